#include "data/run_data_tool.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/backup_folder.h"
#include "tests/data/sample_folder.h"
#include "tests/support/json_reader.h"
#include "tests/support/program_end.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;
using test::ProgramEnd;
using testing::HasSubstr;
using testing::StartsWith;

class RunDataToolTest : public testing::Test {
 protected:
  RunDataToolTest() : data_(folder_.File("data")) {
    fs::create_directory(data_);
    test::MakeHousehold(data_);
  }
  [[nodiscard]] ProgramEnd Run(const std::vector<std::string>& arguments) const {
    return test::RunToEnd(BROVANTA_DATA_PROGRAM, folder_, arguments);
  }

  test::TempFolder folder_;
  std::string data_;
};

TEST_F(RunDataToolTest, AWholeFolderEndsWithZero) {
  const ProgramEnd end = Run({"check", data_});
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.output, StartsWith(data_ + "\nstore.lst: 76 bytes, 1 entry\n"));
  EXPECT_THAT(end.output, HasSubstr("\nThe folder is whole.\n"));
  EXPECT_EQ(end.errors, "");
}

TEST_F(RunDataToolTest, ADamagedFolderEndsWithOne) {
  fs::resize_file(data_ + "/product.dat", 100);
  const ProgramEnd end = Run({"check", "--json", data_});
  EXPECT_EQ(end.status, 1);
  const auto json = test::ReadJson(end.output);
  ASSERT_TRUE(json);
  EXPECT_EQ(json->at("findings[0].file"), "product.dat");
  EXPECT_EQ(json->at("findings[0].byte"), "12");
}

TEST_F(RunDataToolTest, AFileInThePlaceOfTheResultsFolderEndsWithOneToo) {
  fs::remove_all(data_ + "/WebSearch");
  folder_.WriteText("data/WebSearch", "no folder");
  const ProgramEnd end = Run({"check", data_});
  EXPECT_EQ(end.status, 1);
  EXPECT_THAT(end.output, HasSubstr("\nerror: WebSearch: a file stands where the folder of the web "
                                    "searches should be: no search can be saved\n"));
  EXPECT_THAT(end.output, HasSubstr("\nThe folder is NOT whole: 1 error and 0 warnings.\n"));
}

TEST_F(RunDataToolTest, ACommandLineWithoutSenseEndsWithTwo) {
  const ProgramEnd end = Run({"mend", data_});
  EXPECT_EQ(end.status, 2);
  EXPECT_EQ(end.output, "");
  EXPECT_EQ(end.errors, "brovanta-data: There is no command \"mend\". See brovanta-data --help.\n");
}

TEST_F(RunDataToolTest, NoFolderEndsWithThree) {
  const ProgramEnd end = Run({"check", data_ + "/none"});
  EXPECT_EQ(end.status, 3);
  EXPECT_THAT(end.errors, HasSubstr("none\": No such file or directory\n"));
}

TEST_F(RunDataToolTest, ACopyIsListedAndBroughtBack) {
  ASSERT_TRUE(BackupFolder(data_).Keep("2026-11-21", {{"unit.lst", "old"}}));
  EXPECT_EQ(Run({"backups", data_}).output, "2026-11-21: daily, 1 file, 3 bytes\n");
  const ProgramEnd end = Run({"restore", data_});
  EXPECT_EQ(end.status, 0);
  EXPECT_THAT(end.output, HasSubstr("holds the files of 2026-11-21 again"));
  EXPECT_EQ(folder_.ReadText("data/unit.lst"), "old");
  EXPECT_FALSE(fs::exists(data_ + "/product.dat"));
  EXPECT_EQ(Run({"restore", data_, "2026-11-20"}).status, 1);
}

TEST_F(RunDataToolTest, WhatIsExportedIsImported) {
  const ProgramEnd tables = Run({"export", "--csv", data_, "-o", folder_.File("tables")});
  EXPECT_EQ(tables.status, 0);
  EXPECT_TRUE(fs::exists(folder_.File("tables/products.csv")));
  EXPECT_EQ(Run({"export", "--json", data_, "-o", folder_.File("all.json")}).status, 0);
  EXPECT_EQ(Run({"export", "--json", data_}).output, folder_.ReadText("all.json"));
  const ProgramEnd end = Run({"import", "--json", folder_.File("all.json"), folder_.File("new")});
  EXPECT_EQ(end.status, 0);
  EXPECT_EQ(end.errors, "");
  auto exported = test::FilesOf(data_);
  auto imported = test::FilesOf(folder_.File("new"));
  exported.erase("backup.dat");
  imported.erase("backup.dat");
  EXPECT_EQ(imported, exported);
}

TEST_F(RunDataToolTest, HelpAndVersion) {
  EXPECT_THAT(Run({"--help"}).output, HasSubstr("brovanta-data check DIR [--json]\n"));
  EXPECT_EQ(Run({"--version"}).output, "brovanta-data " BROVANTA_VERSION "\n");
  EXPECT_EQ(Run({"--version"}).status, 0);
}

TEST_F(RunDataToolTest, AReportThatDoesNotArriveIsAnError) {
  const ProgramEnd end = test::RunToEnd(
      "/bin/sh", folder_, {"-c", "exec " BROVANTA_DATA_PROGRAM " check \"$0\" > /dev/full", data_});
  EXPECT_EQ(end.status, 1);
  EXPECT_EQ(end.errors, "brovanta-data: standard output cannot be written\n");
}

}  // namespace
}  // namespace brovanta::data_tool
