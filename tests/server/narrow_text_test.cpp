#include "server/narrow_text.h"

#include <gtest/gtest.h>

namespace brovanta::server {
namespace {

TEST(NarrowByte, KnowsTheCharactersOfTheCodePage) {
  EXPECT_EQ(NarrowByte(u'?'), '?');
  EXPECT_EQ(NarrowByte(u'\u00E9'), '\xE9');
  EXPECT_EQ(NarrowByte(u'\u20AC'), '\x80');
  EXPECT_EQ(NarrowByte(u'\u2122'), '\x99');
}

TEST(NarrowByte, HasNoneForOthers) {
  EXPECT_FALSE(NarrowByte(char16_t{0x80}));
  EXPECT_FALSE(NarrowByte(char16_t{0x9F}));
  EXPECT_FALSE(NarrowByte(u'\u0416'));
  EXPECT_FALSE(NarrowByte(char16_t{0xD83C}));
}

TEST(NarrowText, NarrowsATextAndMarksWhatItCannot) {
  EXPECT_EQ(NarrowText("Caf\xC3\xA9 \xE2\x82\xAC"), "Caf\xE9 \x80");
  EXPECT_EQ(NarrowText("a\xD0\x96z"), "a?z");
  EXPECT_EQ(NarrowText(""), "");
}

TEST(NarrowText, GivesNothingForWhatIsNoUtf8) { EXPECT_EQ(NarrowText("a\xFFz"), ""); }

}  // namespace
}  // namespace brovanta::server
