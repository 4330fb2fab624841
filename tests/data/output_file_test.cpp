#include "data/output_file.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/exit_status.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta::data_tool {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class OutputFileTest : public testing::Test {
 protected:
  OutputFileTest() : data_(folder_.File("data")) { std::filesystem::create_directory(data_); }

  CommandEnd DeliverTo(const std::string& file, const std::string& document = "the list\n") {
    CommandLine line;
    line.options.push_back({"--output", file});
    return DeliverDocument(line, data_, document);
  }

  test::TempFolder folder_;
  std::string data_;
};

TEST_F(OutputFileTest, WithoutAFileItGoesToStandardOutput) {
  const CommandEnd end = DeliverDocument(CommandLine(), data_, "the list\n");
  EXPECT_EQ(end.status, kGood);
  EXPECT_EQ(end.output, "the list\n");
}

TEST_F(OutputFileTest, AFileIsWrittenAndReplaced) {
  const std::string long_text(300'000, 'x');
  for (const std::string& document : {long_text, std::string("short")}) {
    const CommandEnd end = DeliverTo(folder_.File("list.txt"), document);
    EXPECT_EQ(end.status, kGood);
    EXPECT_EQ(end.output, "");
    EXPECT_EQ(folder_.ReadText("list.txt"), document);
  }
}

TEST_F(OutputFileTest, AFileThatCannotBeWrittenIsTold) {
  const CommandEnd end = DeliverTo(folder_.File("no/such/folder"));
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("No such file or directory")));
  const CommandEnd full = DeliverTo("/dev/full");
  EXPECT_EQ(full.status, kBad);
  EXPECT_THAT(full.complaints, ElementsAre("\"/dev/full\": No space left on device"));
}

TEST_F(OutputFileTest, TheDataFolderIsNoPlaceForIt) {
  folder_.WriteText("data/product.dat", "products");
  std::filesystem::create_directory_symlink(data_, folder_.File("link"));
  for (const std::string& file :
       {data_ + "/product.dat", data_ + "/../data/list.txt", folder_.path() + "//data/x",
        data_ + "/WebSearch/2.dat", folder_.File("link") + "/x"}) {
    const CommandEnd end = DeliverTo(file);
    EXPECT_EQ(end.status, kBad) << file;
    EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("the data folder is no place for it")));
  }
  EXPECT_EQ(folder_.ReadText("data/product.dat"), "products");
  EXPECT_EQ(DeliverTo(data_ + ".txt").status, kGood);
}

TEST_F(OutputFileTest, AnOldFileStandsUntilTheNewOneIsWhole) {
  folder_.WriteText("list.txt", "old");
  const test::WriteLimit limit(1000);
  EXPECT_EQ(DeliverTo(folder_.File("list.txt"), std::string(5000, 'x')).status, kBad);
  EXPECT_EQ(folder_.ReadText("list.txt"), "old");
}

}  // namespace
}  // namespace brovanta::data_tool
