#include "search/text_cleaning.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/comma_locale.h"

namespace brovanta {
namespace {

TEST(CleanTextTest, TagsAndEntitiesGo) {
  EXPECT_EQ(CleanText("<b>Red</b> &amp; Blue&nbsp;Shoe"), "Red & Blue Shoe");
}

TEST(CleanTextTest, ClosingBracketBeforeTheFirstOpeningOneStopsTheRemoval) {
  EXPECT_EQ(CleanText("a > b <i>c</i>"), "a > b <i>c</i>");
  EXPECT_EQ(CleanText("<i>a</i> > b <i>c</i>"), "a > b <i>c</i>");
}

TEST(CleanTextTest, BracketsWithoutAPartnerStay) {
  EXPECT_EQ(CleanText("a < b"), "a < b");
  EXPECT_EQ(CleanText("<i>a < b"), "a < b");
}

TEST(CleanTextTest, TagRunsToTheFirstClosingBracket) {
  EXPECT_EQ(CleanText("<a <b>c>d"), "c>d");
  EXPECT_EQ(CleanText("<a title=\">\">x</a>"), "\">x</a>");
}

TEST(CleanTextTest, AmpersandIsDecodedBeforeTheBlank) {
  EXPECT_EQ(CleanText("a&amp;nbsp;b"), "a b");
}

TEST(CleanTextTest, WhatDecodingMakesIsNotDecodedAgain) {
  EXPECT_EQ(CleanText("&amp;amp;"), "&amp;");
  EXPECT_EQ(CleanText("&amp;lt;b&gt;"), "&lt;b&gt;");
}

TEST(CleanTextTest, EntitiesAreKnownInThisLetterCaseOnly) {
  EXPECT_EQ(CleanText("&AMP;&Nbsp;&quot;"), "&AMP;&Nbsp;&quot;");
}

TEST(CleanTextTest, ControlCharactersBecomeBlanks) {
  EXPECT_EQ(CleanText("a\r\n\tb\x01"
                      "c\x1F"
                      "d\x7F\x80"),
            "a   b c d\x7F\x80");
}

TEST(CleanTextTest, LeadingBlanksGoAndTrailingOnesStay) {
  EXPECT_EQ(CleanText("\r\n <b> &nbsp;Soap</b> \n"), "Soap  ");
  EXPECT_EQ(CleanText(" \t "), "");
  EXPECT_EQ(CleanText(""), "");
}

TEST(PriceOfTest, CurrencyAndThousandsAreNoPartOfTheNumber) {
  EXPECT_EQ(PriceOf("$1,299.99"), 1299.99);
}

TEST(PriceOfTest, FirstNumberCounts) { EXPECT_EQ(PriceOf("From $5 to $9"), 5.0); }

// Kept: commas go wherever they stand.
TEST(PriceOfTest, DecimalCommaIsDropped) {
  EXPECT_EQ(PriceOf("1.299,00"), 1.299);
  EXPECT_EQ(PriceOf("19,95 EUR"), 1995.0);
}

TEST(PriceOfTest, NothingIsNoPrice) {
  for (const char* text : {"", " ", "free", ",", ".", "EUR", "<b></b>"}) {
    EXPECT_EQ(PriceOf(text), 0.0) << text;
  }
}

TEST(PriceOfTest, SignsAndExponentsAreNotRead) {
  EXPECT_EQ(PriceOf("-5.50"), 5.5);
  EXPECT_EQ(PriceOf("2e3"), 2.0);
}

// A point ends what stands in front of it as well: "Rs. 5" begins with a point.
TEST(PriceOfTest, PointOfAnAbbreviationIsTakenForTheNumber) {
  EXPECT_EQ(PriceOf("Rs. 5"), 0.0);
  EXPECT_EQ(PriceOf("Rs.5"), 0.5);
  EXPECT_EQ(PriceOf("1.2.3"), 1.2);
}

TEST(PriceOfTest, DigitsBeyondAllNumbersAreNoPrice) {
  EXPECT_EQ(PriceOf(std::string(400, '9')), 0.0);
}

TEST(PriceOfTest, LocaleHasNoSay) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  EXPECT_EQ(PriceOf("14.95"), 14.95);
}

TEST(CompleteUrlTest, WholeAddressesStayAsTheyAre) {
  for (const char* url : {"http://a.example/", "ftp://a.example/", "mailto:a@b.example"}) {
    EXPECT_EQ(CompleteUrl(url, "http://shop.example"), url);
  }
}

TEST(CompleteUrlTest, WwwGetsTheSchemeInFront) {
  EXPECT_EQ(CompleteUrl("www.a.example/1", "http://shop.example"), "http://www.a.example/1");
  EXPECT_EQ(CompleteUrl("wwwshop.example", "http://shop.example"), "http://wwwshop.example");
}

TEST(CompleteUrlTest, EverythingElseGetsTheSiteInFrontExactlyAsBothStand) {
  EXPECT_EQ(CompleteUrl("/p/12", "http://shop.example"), "http://shop.example/p/12");
  EXPECT_EQ(CompleteUrl("/p/12", "http://shop.example/"), "http://shop.example//p/12");
  EXPECT_EQ(CompleteUrl("p", "http://shop.example"), "http://shop.examplep");
  EXPECT_EQ(CompleteUrl("", "http://shop.example"), "http://shop.example");
  EXPECT_EQ(CompleteUrl("HTTP://a", "x"), "xHTTP://a");
  EXPECT_EQ(CompleteUrl("http:x", "http://shop.example/"), "http://shop.example/http:x");
  EXPECT_EQ(CompleteUrl("ftp:/x", "http://shop.example/"), "http://shop.example/ftp:/x");
}

// Kept: only the schemes above are known.
TEST(CompleteUrlTest, SecureAddressGetsTheSiteInFront) {
  EXPECT_EQ(CompleteUrl("https://a.example/", "http://shop.example/"),
            "http://shop.example/https://a.example/");
}

}  // namespace
}  // namespace brovanta
