#include "util/readable_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brovanta {
namespace {

using std::string_literals::operator""s;

TEST(Utf8TextTest, LeavesUtf8AsItIsAndTakesTheRestForWindows1252) {
  EXPECT_EQ(Utf8Text("plain"), "plain");
  EXPECT_EQ(Utf8Text("\xC2\xA3"
                     "5"),
            "\xC2\xA3"
            "5");
  EXPECT_EQ(Utf8Text("\xA3"
                     "5"),
            "\xC2\xA3"
            "5");
  EXPECT_EQ(Utf8Text("\x93x\x94"), "\xE2\x80\x9Cx\xE2\x80\x9D");
  EXPECT_EQ(Utf8Text(""), "");
}

TEST(QuotedTest, StandsOnOneLineInQuotationMarks) {
  EXPECT_EQ(Quoted(""), "\"\"");
  EXPECT_EQ(Quoted(" a\r\n\tb "), "\" a\\r\\n\\tb \"");
  EXPECT_EQ(Quoted("a=\"\\\""), "\"a=\\\"\\\\\\\"\"");
  EXPECT_EQ(Quoted("caf\xE9"), "\"caf\xC3\xA9\"");
}

// What a page writes to a terminal must not move its cursor or change its colours.
TEST(QuotedTest, HasNoCharacterThatATerminalObeys) {
  EXPECT_EQ(Quoted("\x1B[2J\x07\x7F" + "\0"s), "\"\\x1B[2J\\x07\\x7F\\x00\"");
  EXPECT_EQ(Quoted("\xC2\x9B"
                   "2J"),
            "\"\\x9B2J\"");
  EXPECT_EQ(Quoted("\x81"), "\"\\x81\"");
}

}  // namespace
}  // namespace brovanta
