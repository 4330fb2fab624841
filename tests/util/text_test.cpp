#include "util/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

#include "tests/support/comma_locale.h"

namespace brovanta {
namespace {

TEST(AllWordsInTest, EveryWordMustOccur) {
  EXPECT_EQ(AllWordsIn("FRESH MILK 1 GAL", "milk fresh"), 0);
  EXPECT_EQ(AllWordsIn("FRESH MILK", "milk eggs"), -1);
}

TEST(AllWordsInTest, AWordMayStandInsideAnother) { EXPECT_EQ(AllWordsIn("BUTTERMILK", "MILK"), 0); }

TEST(AllWordsInTest, NoWordsMatch) {
  EXPECT_EQ(AllWordsIn("FRESH MILK", ""), 0);
  EXPECT_EQ(AllWordsIn("FRESH MILK", "   "), 0);
  EXPECT_EQ(AllWordsIn("", ""), 0);
}

TEST(AllWordsInTest, AMissingArgumentDoesNotMatch) {
  EXPECT_EQ(AllWordsIn(nullptr, ""), -1);
  EXPECT_EQ(AllWordsIn("text", nullptr), -1);
}

TEST(AnyWordInTest, OneWordIsEnough) {
  EXPECT_EQ(AnyWordIn("FRESH MILK", "eggs milk"), 0);
  EXPECT_EQ(AnyWordIn("FRESH MILK", "eggs bread"), -1);
}

TEST(AnyWordInTest, NoWordsDoNotMatch) {
  EXPECT_EQ(AnyWordIn("FRESH MILK", ""), -1);
  EXPECT_EQ(AnyWordIn("FRESH MILK", "  "), -1);
}

TEST(AnyWordInTest, AMissingArgumentDoesNotMatch) {
  EXPECT_EQ(AnyWordIn(nullptr, "milk"), -1);
  EXPECT_EQ(AnyWordIn("milk", nullptr), -1);
}

TEST(TagTextTest, GivesWhatLiesBetweenTheTags) {
  EXPECT_EQ(TagText("<ID>7</ID><NM>Bread</NM>", "<NM>", "</NM>"), "Bread");
  EXPECT_EQ(TagText("<NM></NM>", "<NM>", "</NM>"), "");
  EXPECT_EQ(TagText("<NM> a <B>\r\n</NM>", "<NM>", "</NM>"), " a <B>\r\n");
}

TEST(TagTextTest, WithoutATagThereIsNothing) {
  EXPECT_EQ(TagText("<NM>Bread", "<NM>", "</NM>"), std::nullopt);
  EXPECT_EQ(TagText("Bread</NM>", "<NM>", "</NM>"), std::nullopt);
  EXPECT_EQ(TagText("", "<NM>", "</NM>"), std::nullopt);
  EXPECT_EQ(TagText("<nm>Bread</nm>", "<NM>", "</NM>"), std::nullopt);
}

TEST(TagTextTest, BothTagsAreSearchedFromTheStart) {
  EXPECT_EQ(TagText("</NM><NM>Bread</NM>", "<NM>", "</NM>"), std::nullopt);
  EXPECT_EQ(TagText("<NM>a</NM><NM>b</NM>", "<NM>", "</NM>"), "a");
}

TEST(TagTextTest, AClosingTagInsideTheOpeningOneGivesNothing) {
  EXPECT_EQ(TagText("||x|", "||", "|"), std::nullopt);
}

TEST(TagTextTest, AMissingArgumentGivesNothing) {
  EXPECT_EQ(TagText(nullptr, "<", ">"), std::nullopt);
  EXPECT_EQ(TagText("<a>", nullptr, ">"), std::nullopt);
  EXPECT_EQ(TagText("<a>", "<", nullptr), std::nullopt);
}

TEST(TagIntTest, ReadsTheLeadingNumber) {
  EXPECT_EQ(TagInt("<ID> 42 </ID>", "<ID>", "</ID>"), 42);
  EXPECT_EQ(TagInt("<ID>-3.9</ID>", "<ID>", "</ID>"), -3);
  EXPECT_EQ(TagInt("<ID>x</ID>", "<ID>", "</ID>"), 0);
  EXPECT_EQ(TagInt("<ID>5", "<ID>", "</ID>"), 0);
  EXPECT_EQ(TagInt(nullptr, "<ID>", "</ID>"), 0);
  EXPECT_EQ(TagInt("<ID>99999999999</ID>", "<ID>", "</ID>"),
            std::numeric_limits<std::int32_t>::max());
}

TEST(TagIntTest, StopsAtTheClosingTag) { EXPECT_EQ(TagInt("<ID>1</ID>2", "<ID>", "</ID>"), 1); }

TEST(TagDoubleTest, ReadsTheLeadingNumber) {
  EXPECT_EQ(TagDouble("<V> 1.75x</V>", "<V>", "</V>"), 1.75);
  EXPECT_EQ(TagDouble("<V>nan</V>", "<V>", "</V>"), 0.0);
  EXPECT_EQ(TagDouble("<V>1e400</V>", "<V>", "</V>"), 0.0);
  EXPECT_EQ(TagDouble("<V>1.75", "<V>", "</V>"), 0.0);
  EXPECT_EQ(TagDouble("<V>1.75</V>", nullptr, "</V>"), 0.0);
}

TEST(TagDoubleTest, ReadsAPointInACommaLocale) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no localedef";
  const test::CommaLocale locale;
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(TagDouble("<V>1.75</V>", "<V>", "</V>"), 1.75);
}

TEST(UrlEncodeTest, BlanksBecomePlusAndASlashItsCode) { EXPECT_EQ(UrlEncode("a b/c"), "a+b%2fc"); }

TEST(UrlEncodeTest, LettersDigitsAndFourSignsStay) {
  const char* safe = "ABCXYZabcxyz0123456789-*._";
  EXPECT_EQ(UrlEncode(safe), safe);
}

TEST(UrlEncodeTest, AnyOtherCharacterIsItsCodeInLowerCase) {
  EXPECT_EQ(UrlEncode("~%+&=?#/\"<>@[`{"), "%7e%25%2b%26%3d%3f%23%2f%22%3c%3e%40%5b%60%7b");
  EXPECT_EQ(UrlEncode("\x10\x1f\x7f"), "%10%1f%7f");
}

TEST(UrlEncodeTest, ACodeBelow16EndsTheText) {
  EXPECT_EQ(UrlEncode("a\tb"), "a%9");
  EXPECT_EQ(UrlEncode("\r\n"), "%d");
  EXPECT_EQ(UrlEncode("x\x0Fyz"), "x%f");
}

TEST(UrlEncodeTest, EveryByteAbove127IsTheSame) {
  for (int byte = 128; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(UrlEncode(("a" + text + "b").c_str()), "a%ffb") << byte;
  }
}

TEST(UrlEncodeTest, EmptyStaysEmptyAndNothingStaysNothing) {
  EXPECT_EQ(UrlEncode(""), "");
  EXPECT_EQ(UrlEncode(nullptr), std::nullopt);
}

}  // namespace
}  // namespace brovanta
