#include "data/folder_reader.h"

#include <gtest/gtest.h>

#include "platform/file.h"
#include "tests/support/temp_folder.h"

namespace brovanta::data_tool {
namespace {

TEST(FolderReaderTest, GivesTheDataFiles) {
  const test::TempFolder folder;
  folder.WriteText("product.dat", "bytes");
  folder.WriteText("notes.txt", "none of ours");
  ReadProblem problem;
  const auto files = ReadFolder(folder.path(), problem);
  ASSERT_TRUE(files) << problem.words;
  EXPECT_EQ(*files, (DataSnapshot{{"product.dat", "bytes"}}));
}

TEST(FolderReaderTest, SaysWhyThereIsNothing) {
  const test::TempFolder folder;
  ReadProblem problem;
  EXPECT_FALSE(ReadFolder(folder.File("missing"), problem));
  EXPECT_EQ(problem.status, kNoFolder);
  EXPECT_EQ(problem.words, "there is no such folder");
  EXPECT_FALSE(ReadFolder(folder.path(), problem));
  EXPECT_EQ(problem.status, kNoFolder);
  EXPECT_EQ(problem.words, "no data file of the program is in it");
  folder.WriteText("product.dat", "bytes");
  platform::File held;
  ASSERT_TRUE(held.Open(folder.File("product.dat"), platform::File::Mode::kReadWrite));
  EXPECT_FALSE(ReadFolder(folder.path(), problem));
  EXPECT_EQ(problem.status, kBad);
  EXPECT_EQ(problem.words, "someone else has product.dat open, or it may not be read");
}

}  // namespace
}  // namespace brovanta::data_tool
