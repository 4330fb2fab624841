#include "ui/base/wide_text.h"

#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta {

QString WideText(std::string_view stored) {
  QString wide(static_cast<qsizetype>(stored.size()), Qt::Uninitialized);
  WidenFromWindows1252(stored, reinterpret_cast<char16_t*>(wide.data()));
  return wide;
}

QString WebText(std::string_view bytes) {
  const auto wide = Utf8ToUtf16(bytes);
  return wide ? QString::fromStdU16String(*wide) : WideText(bytes);
}

std::string NarrowText(const QString& text) {
  // Composed, or an accent typed by a dead key would be lost as a "?" of its own.
  return NarrowToWindows1252(text.normalized(QString::NormalizationForm_C).toStdU16String());
}

namespace {

// U+0085 is a line break too; the other controls above 127 stand for stored bytes.
bool BreaksALine(QChar character) {
  return character < QLatin1Char(' ') || character == QChar(0x7F) || character == QChar(0x85) ||
         character == QChar(QChar::LineSeparator) || character == QChar(QChar::ParagraphSeparator);
}

}  // namespace

QString OneLine(QString text) {
  if (const qsizetype end = text.indexOf(QChar(QChar::Null)); end >= 0) text.truncate(end);
  for (QChar& character : text) {
    if (BreaksALine(character)) character = QLatin1Char(' ');
  }
  return text;
}

std::string NarrowLine(const QString& text) { return NarrowText(OneLine(text)); }

}  // namespace brovanta
