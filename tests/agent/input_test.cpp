#include "agent/input.h"

#include <gmock/gmock.h>

#include <string>

#include "platform/file.h"
#include "tests/support/temp_folder.h"

namespace brovanta::agent_tool {
namespace {

using std::string_literals::operator""s;
using testing::HasSubstr;

TEST(ReadInputTest, ReadsEveryByte) {
  const test::TempFolder folder;
  const std::string bytes = std::string(200'000, 'x') + "\0\r\n\xFF"s;
  folder.WriteText("a.xml", bytes);
  std::string error;
  EXPECT_EQ(ReadInput(folder.File("a.xml"), error), bytes);
  folder.WriteText("b.xml", "");
  EXPECT_EQ(ReadInput(folder.File("b.xml"), error), "");
}

// Several of these programs, or one and the planner, may look at one file at the same time.
TEST(ReadInputTest, ReadsAFileThatSomeoneElseHolds) {
  const test::TempFolder folder;
  folder.WriteText("a.xml", "x");
  platform::File holder;
  ASSERT_TRUE(holder.Open(folder.File("a.xml"), platform::File::Mode::kRead));
  std::string error;
  EXPECT_EQ(ReadInput(folder.File("a.xml"), error), "x");
}

TEST(ReadInputTest, SaysWhyItCannot) {
  const test::TempFolder folder;
  std::string error;
  EXPECT_EQ(ReadInput(folder.File("none"), error), std::nullopt);
  EXPECT_THAT(error, HasSubstr("No such file"));
  EXPECT_EQ(ReadInput(folder.path(), error), std::nullopt);
  EXPECT_THAT(error, HasSubstr("directory"));
}

TEST(PageOfTest, KeepsAPageAsItIs) {
  const Page page = PageOf("<p>\r\n");
  EXPECT_EQ(page.text, "<p>\r\n");
  EXPECT_EQ(page.stored_bytes, 5U);
  EXPECT_FALSE(page.cut);
  EXPECT_FALSE(page.zeros);
  EXPECT_EQ(PageOf("").text, "");
}

// 319,999 bytes are kept. A longer page loses the piece of 1,024 bytes that goes over: what is left
// are 312 whole pieces.
TEST(PageOfTest, CutsAPageAsTheDownloadDoes) {
  const std::string longest(319'999, 'x');
  EXPECT_EQ(PageOf(longest).text.size(), 319'999U);
  EXPECT_FALSE(PageOf(longest).cut);
  const Page page = PageOf(longest + "x");
  EXPECT_EQ(page.text.size(), 319'488U);
  EXPECT_EQ(page.stored_bytes, 320'000U);
  EXPECT_TRUE(page.cut);
}

TEST(PageOfTest, ZeroByteEndsItsPieceAsInTheDownload) {
  std::string stored(2048, 'x');
  stored[10] = '\0';
  const Page page = PageOf(stored);
  EXPECT_EQ(page.text, std::string(10 + 1024, 'x'));
  EXPECT_TRUE(page.zeros);
  EXPECT_FALSE(page.cut);
}

TEST(AgentFileTextTest, EndsAtTheFirstZeroByte) {
  EXPECT_EQ(AgentFileText("ab"), "ab");
  EXPECT_EQ(AgentFileText("ab\0cd"s), "ab");
  EXPECT_EQ(AgentFileText("\0"s), "");
}

TEST(LinesTest, CountsFromOne) {
  const Lines lines("a\nbc\r\n\nd");
  EXPECT_EQ(lines.LineOf(0), 1U);
  EXPECT_EQ(lines.LineOf(1), 1U);  // the line feed ends its line
  EXPECT_EQ(lines.LineOf(2), 2U);
  EXPECT_EQ(lines.LineOf(5), 2U);
  EXPECT_EQ(lines.LineOf(6), 3U);
  EXPECT_EQ(lines.LineOf(7), 4U);
  EXPECT_EQ(lines.LineOf(8), 4U);
  EXPECT_EQ(Lines("").LineOf(0), 1U);
}

}  // namespace
}  // namespace brovanta::agent_tool
