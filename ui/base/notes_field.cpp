#include "ui/base/notes_field.h"

#include <QPlainTextEdit>

#include "db/record_format.h"
#include "ui/base/wide_text.h"

namespace brovanta {

void ShowNotes(QPlainTextEdit& field, std::string_view stored) {
  field.setPlainText(WideText(stored).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  field.document()->setModified(false);
}

std::string NotesText(const QPlainTextEdit& field, std::string_view shown) {
  if (!field.document()->isModified()) return std::string(shown);
  QString notes = field.document()->toRawText();  // toPlainText() makes blanks of no-break spaces
  notes.replace(QChar(QChar::ParagraphSeparator), QStringLiteral("\r\n"));
  notes.replace(QChar(QChar::LineSeparator), QStringLiteral("\r\n"));
  notes.replace(QChar(QChar::Null), QLatin1Char(' '));  // what is stored would end there
  return NarrowText(notes).substr(0, kLongTextSize);
}

}  // namespace brovanta
