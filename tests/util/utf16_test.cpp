#include "util/utf16.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

TEST(Utf16Test, TextsOfEachLengthConvertBothWays) {
  const std::string narrow = "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8D\x8E";  // A, e acute, euro, apple
  const std::u16string wide = u"A\u00E9\u20AC\U0001F34E";
  EXPECT_EQ(Utf8ToUtf16(narrow), wide);
  EXPECT_EQ(Utf16ToUtf8(wide), narrow);
  EXPECT_EQ(Utf8ToUtf16(""), u"");
  EXPECT_EQ(Utf16ToUtf8(u""), "");
}

TEST(Utf16Test, BothEndsOfEachLengthConvertBothWays) {
  for (const char* text :
       {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    const auto wide = Utf8ToUtf16(text);
    ASSERT_TRUE(wide);
    EXPECT_EQ(Utf16ToUtf8(*wide), text);
  }
  EXPECT_EQ(Utf8ToUtf16("\xF0\x90\x80\x80"), u"\U00010000");
  EXPECT_EQ(Utf8ToUtf16("\xF4\x8F\xBF\xBF"), u"\U0010FFFF");
}

TEST(Utf16Test, WhatIsNotWellFormedIsRefused) {
  for (const char* text : {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE2\x82",
                           "\xE2(\xAC", "\xE0\x80\x80", "\xE0\x9F\xBF", "\xED\xA0\x80",
                           "\xED\xBF\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x8D",
                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "A\xFF"}) {
    EXPECT_EQ(Utf8ToUtf16(text), std::nullopt) << text;
  }
}

TEST(Utf16Test, HalfASurrogatePairIsReplaced) {
  const std::u16string high(1, char16_t{0xD83C});
  const std::u16string low(1, char16_t{0xDF4E});
  EXPECT_EQ(Utf16ToUtf8(high + u"a"),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(Utf16ToUtf8(low + high), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Utf16ToUtf8(high + low), "\xF0\x9F\x8D\x8E");
}

TEST(Utf16Test, ACutNeverSplitsAPair) {
  const std::u16string text =
      u"ab\U0001F34E"
      u"c";
  EXPECT_EQ(CutUtf16(text, 5), text);
  EXPECT_EQ(CutUtf16(text, 4), u"ab\U0001F34E");
  EXPECT_EQ(CutUtf16(text, 3), u"ab");
  EXPECT_EQ(CutUtf16(text, 2), u"ab");
  EXPECT_EQ(CutUtf16(text, 0), u"");
  const std::u16string low_alone = u"ab" + std::u16string(2, char16_t{0xDF4E});
  EXPECT_EQ(CutUtf16(low_alone, 3), low_alone.substr(0, 3));
}

}  // namespace
}  // namespace brovanta
