#include "platform/text_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/file.h"
#include "tests/support/temp_folder.h"
#include "util/error_codes.h"

namespace brovanta::platform {
namespace {

using std::string_literals::operator""s;

class TextFileTest : public testing::Test {
 protected:
  int Read(const std::string& path) { return ReadTextFile(path, text_); }

  test::TempFolder folder_;
  std::string text_ = "from before";
};

TEST_F(TextFileTest, ReadsEveryByte) {
  const std::string text = "<IT>\r\nCaf\xE9\xFF\n" + std::string(1'000'000, 'x');
  folder_.WriteText("feed", text);
  EXPECT_EQ(Read(folder_.path() + "\\feed"), 0);
  EXPECT_EQ(text_, text);
}

TEST_F(TextFileTest, EmptyFileIsAnEmptyText) {
  folder_.WriteText("feed", "");
  EXPECT_EQ(Read(folder_.File("feed")), 0);
  EXPECT_EQ(text_, "");
}

TEST_F(TextFileTest, ZeroEndsTheText) {
  folder_.WriteText("feed", "text\0more"s);
  EXPECT_EQ(Read(folder_.File("feed")), 0);
  EXPECT_EQ(text_, "text");
}

TEST_F(TextFileTest, WholeFileHasItsZerosToo) {
  folder_.WriteText("feed", "text\0more"s);
  EXPECT_EQ(ReadWholeFile(folder_.File("feed"), text_), 0);
  EXPECT_EQ(text_, "text\0more"s);
  EXPECT_EQ(ReadWholeFile(folder_.File("missing"), text_), ERR_OPEN);
  EXPECT_EQ(text_, "");
}

TEST_F(TextFileTest, MissingFileAndFolderDoNotOpen) {
  EXPECT_EQ(Read(folder_.File("missing")), ERR_OPEN);
  EXPECT_EQ(text_, "");
  EXPECT_EQ(Read(folder_.path()), ERR_OPEN);
}

TEST_F(TextFileTest, FileThatSomebodyElseHoldsDoesNotOpen) {
  folder_.WriteText("feed", "text");
  File holder;
  ASSERT_TRUE(holder.Open(folder_.File("feed"), File::Mode::kRead));
  EXPECT_EQ(Read(folder_.File("feed")), ERR_OPEN);
  holder.Close();
  EXPECT_EQ(Read(folder_.File("feed")), 0);
}

TEST_F(TextFileTest, EnormousFileIsNotRead) {
  folder_.WriteText("feed", "text");
  std::filesystem::resize_file(folder_.File("feed"), kLargestWholeFile + 1);
  EXPECT_EQ(Read(folder_.File("feed")), ERR_IO);
  EXPECT_EQ(text_, "");
}

TEST_F(TextFileTest, FileIsClosedAgain) {
  folder_.WriteText("feed", "text");
  ASSERT_EQ(Read(folder_.File("feed")), 0);
  File next;
  EXPECT_TRUE(next.Open(folder_.File("feed"), File::Mode::kReadWrite));
}

}  // namespace
}  // namespace brovanta::platform
