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

TEST(WideTextTest, EveryByteComesBackAsItWas) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  EXPECT_EQ(NarrowText(WideText(all)), all);
}

}  // namespace
}  // namespace brovanta
