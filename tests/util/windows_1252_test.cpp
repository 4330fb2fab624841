#include "util/windows_1252.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

TEST(Windows1252Test, AsciiAndLatinLettersKeepTheirValue) {
  EXPECT_EQ(NarrowToWindows1252(u"Milk 1%"), "Milk 1%");
  EXPECT_EQ(NarrowToWindows1252(u"Cr\u00E8me br\u00FBl\u00E9e"),
            "Cr\xE8me br\xFBl\xE9"
            "e");
  EXPECT_EQ(WidenFromWindows1252("\xA0\xBF\xFF"), u"\u00A0\u00BF\u00FF");
}

TEST(Windows1252Test, TheEuroAndTypographicCharactersHaveTheirBytes) {
  EXPECT_EQ(NarrowToWindows1252(u"\u20AC\u201E\u2026\u0160\u017D\u2019\u2014\u2122\u0153\u0178"),
            "\x80\x84\x85\x8A\x8E\x92\x97\x99\x9C\x9F");
  EXPECT_EQ(WidenFromWindows1252("\x80\x84\x85\x8A\x8E\x92\x97\x99\x9C\x9F"),
            u"\u20AC\u201E\u2026\u0160\u017D\u2019\u2014\u2122\u0153\u0178");
}

TEST(Windows1252Test, WhatHasNoCounterpartBecomesAQuestionMark) {
  EXPECT_EQ(NarrowToWindows1252(u"\u0394x\u4E2D"), "?x?");
  EXPECT_EQ(NarrowToWindows1252(u"\u0080\u0085\u009F"),
            "???");  // their bytes mean other characters
}

TEST(Windows1252Test, ASurrogatePairBecomesOneQuestionMark) {
  EXPECT_EQ(NarrowToWindows1252(u"a\U0001F34E"
                                u"b"),
            "a?b");
  EXPECT_EQ(NarrowToWindows1252(u"\U0001F34E\U0001F34F"), "??");
}

TEST(Windows1252Test, EachLoneSurrogateBecomesAQuestionMark) {
  const std::u16string high(1, char16_t{0xD83C});
  const std::u16string low(1, char16_t{0xDF4E});
  EXPECT_EQ(NarrowToWindows1252(high), "?");
  EXPECT_EQ(NarrowToWindows1252(low + high), "??");
  EXPECT_EQ(NarrowToWindows1252(high + u"a"), "?a");
  EXPECT_EQ(NarrowToWindows1252(high + high + low), "??");
}

TEST(Windows1252Test, TheFiveOpenBytesStandForControlCharacters) {
  EXPECT_EQ(WidenFromWindows1252("\x81\x8D\x8F\x90\x9D"), u"\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(NarrowToWindows1252(u"\u0081\u008D\u008F\u0090\u009D"), "\x81\x8D\x8F\x90\x9D");
}

TEST(Windows1252Test, EveryByteComesBackFromItsWideForm) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::u16string wide = WidenFromWindows1252(bytes);
  EXPECT_EQ(wide.size(), bytes.size());
  EXPECT_EQ(wide.find(u'?'), 0x3F);
  EXPECT_EQ(wide.rfind(u'?'), 0x3F);
  EXPECT_EQ(NarrowToWindows1252(wide), bytes);
}

}  // namespace
}  // namespace brovanta
