#include "ui/base/notes_field.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QTest>

namespace brovanta {
namespace {

TEST(NotesFieldTest, UntouchedNotesGoBackByteForByte) {
  QPlainTextEdit field;
  for (const std::string notes : {"", "a\nb\r\nc\rd", "caf\xE9 \x81 tail"}) {
    ShowNotes(field, notes);
    EXPECT_EQ(NotesText(field, notes), notes);
  }
}

TEST(NotesFieldTest, StoredLineEndsAreShownAsLines) {
  QPlainTextEdit field;
  ShowNotes(field, "one\r\ntwo");
  EXPECT_EQ(field.blockCount(), 2);
  EXPECT_EQ(field.toPlainText(), QStringLiteral("one\ntwo"));
}

TEST(NotesFieldTest, TypedLinesAreStoredWithCrLf) {
  QPlainTextEdit field;
  ShowNotes(field, "one\r\n");
  field.moveCursor(QTextCursor::End);
  QTest::keyClicks(&field, QStringLiteral("two"));
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(NotesText(field, "one\r\n"), "one\r\ntwo\r\n");
}

TEST(NotesFieldTest, TouchedNotesKeepNoBreakSpaces) {
  QPlainTextEdit field;
  ShowNotes(field, "5\xA0kg");
  field.moveCursor(QTextCursor::End);
  QTest::keyClicks(&field, QStringLiteral("!"));
  EXPECT_EQ(NotesText(field, "5\xA0kg"), "5\xA0kg!");
}

TEST(NotesFieldTest, NotesThatWereNeverShownAreRead) {
  QPlainTextEdit field;
  EXPECT_EQ(NotesText(field, ""), "");
  QTest::keyClicks(&field, QStringLiteral("new"));
  EXPECT_EQ(NotesText(field, ""), "new");
}

TEST(NotesFieldTest, LongNotesAreCutTo250Bytes) {
  QPlainTextEdit field;
  QTest::keyClicks(&field, QString(260, QLatin1Char('n')));
  EXPECT_EQ(NotesText(field, ""), std::string(250, 'n'));
}

}  // namespace
}  // namespace brovanta
