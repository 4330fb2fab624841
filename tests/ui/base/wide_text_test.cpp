#include "ui/base/wide_text.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

TEST(WideTextTest, StoredBytesAreWidenedByTheWindowsCodePage) {
  EXPECT_EQ(WideText("M\xFCsli \x80 5"), QStringLiteral("M\u00FCsli \u20AC 5"));
  EXPECT_EQ(WideText(""), QString());
}

TEST(WideTextTest, WideTextIsNarrowedByTheWindowsCodePage) {
  EXPECT_EQ(NarrowText(QStringLiteral("M\u00FCsli \u20AC 5")), "M\xFCsli \x80 5");
  EXPECT_EQ(NarrowText(QString()), "");
}

TEST(WideTextTest, ADecomposedAccentIsComposedFirst) {
  EXPECT_EQ(NarrowText(QStringLiteral("Cafe\u0301")), "Caf\xE9");
}

TEST(WideTextTest, CharactersWithoutACounterpartBecomeQuestionMarks) {
  EXPECT_EQ(NarrowText(QStringLiteral("\u0416\U0001F600x")), "??x");
}

TEST(WideTextTest, TextFromTheWebIsUtf8WhereItCanBe) {
  EXPECT_EQ(WebText("Caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80"),
            QStringLiteral("Caf\u00E9 \u20AC \U0001F600"));
  EXPECT_EQ(WebText("plain"), QStringLiteral("plain"));
  EXPECT_EQ(WebText(""), QString());
}

TEST(WideTextTest, TextFromTheWebThatIsNoUtf8IsOfTheWindowsCodePageAsAWhole) {
  EXPECT_EQ(WebText("Caf\xE9 \x80"), QStringLiteral("Caf\u00E9 \u20AC"));
  EXPECT_EQ(WebText("Caf\xC3\xA9 \xE9"), QStringLiteral("Caf\u00C3\u00A9 \u00E9"));
  EXPECT_EQ(WebText("cut \xC3"), QStringLiteral("cut \u00C3"));
}

TEST(WideTextTest, ATextOfOneLineEndsAtAZeroAndHasNoBreaksAndTabs) {
  EXPECT_EQ(OneLine(QStringLiteral("x\ty\nz\r\u0001\u007F\u0085\u2028\u2029.")),
            QStringLiteral("x y z      ."));
  EXPECT_EQ(OneLine(QString(QChar(0)) + QStringLiteral("zz")), QString());
  EXPECT_EQ(OneLine(QStringLiteral("ab") + QChar(0) + QStringLiteral("zz")), QStringLiteral("ab"));
  EXPECT_EQ(OneLine(QStringLiteral("  plain\u00A0text ")), QStringLiteral("  plain\u00A0text "));
  EXPECT_EQ(NarrowLine(QStringLiteral("Caf\u00E9\tbar")), "Caf\xE9 bar");
}

TEST(WideTextTest, ATextOfOneLineKeepsEveryStoredByteThatIsNoAsciiControl) {
  std::string all;
  for (int byte = 32; byte < 256; ++byte) {
    if (byte != 127) all.push_back(static_cast<char>(byte));
  }
  EXPECT_EQ(NarrowLine(WideText(all)), all);
}

TEST(WideTextTest, EveryByteComesBackAsItWas) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  EXPECT_EQ(NarrowText(WideText(all)), all);
}

}  // namespace
}  // namespace brovanta
