#include "data/list/plain_line.h"

#include <gtest/gtest.h>

#include "util/utf16.h"

namespace brovanta::data_tool {
namespace {

TEST(PlainLineTest, IsUtf8OnOneLine) {
  EXPECT_EQ(PlainLine("  two\r\nlines \t and\x01 more  "), "two lines and more");
  EXPECT_EQ(PlainLine("K\xE4se"), "Käse");
  EXPECT_EQ(PlainLine("Caf\xC3\xA9"), "CafÃ©") << "as every screen shows it";
  EXPECT_EQ(PlainLine("a\x85z \xA0 b"), "a…z b");
  EXPECT_EQ(PlainLine("a\x81z"), "a z") << "a control character";
  EXPECT_EQ(PlainLine("\x7F"), "");
  EXPECT_EQ(PlainLine(""), "");
}

TEST(PlainLineTest, EveryByteGivesATextThatIsUtf8) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string line = PlainLine(std::string("a") + static_cast<char>(byte) + "z");
    EXPECT_EQ(line.front(), 'a');
    EXPECT_EQ(line.back(), 'z');
    EXPECT_TRUE(Utf8ToUtf16(line)) << byte;
  }
}

TEST(DisplayWidthTest, CountsColumnsAndNotBytes) {
  EXPECT_EQ(DisplayWidth(""), 0U);
  EXPECT_EQ(DisplayWidth("Milk"), 4U);
  EXPECT_EQ(DisplayWidth("Käse"), 4U);
  EXPECT_EQ(DisplayWidth("€"), 1U);
  EXPECT_EQ(DisplayWidth("牛乳"), 4U);
  EXPECT_EQ(DisplayWidth("우유"), 4U);
  EXPECT_EQ(DisplayWidth("ｱ"), 1U);   // the half-width form
  EXPECT_EQ(DisplayWidth("Ａ"), 2U);  // the full-width form
  EXPECT_EQ(DisplayWidth("🥛"), 2U);
  EXPECT_EQ(DisplayWidth("Ka\xCC\x88se"), 4U);  // a and a combining diaeresis
  EXPECT_EQ(DisplayWidth("a\xE2\x80\x8D"
                         "b"),
            2U);
}

}  // namespace
}  // namespace brovanta::data_tool
