#include "data/export_commands.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/commands.h"
#include "data/exit_status.h"
#include "data/export_json.h"
#include "db/journal_format.h"
#include "platform/file.h"
#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ExportCommandsTest : public testing::Test {
 protected:
  ExportCommandsTest() : data_(folder_.File("data")) {
    fs::create_directory(data_);
    test::MakeHousehold(data_);
  }

  [[nodiscard]] static CommandEnd Run(const std::vector<std::string_view>& words) {
    std::string error;
    const auto line = ParseCommandLine(words, Commands(), error);
    EXPECT_TRUE(line) << error;
    return line ? line->command->run(*line) : CommandEnd{-1, {}, {}};
  }

  test::TempFolder folder_;
  std::string data_;
};

TEST_F(ExportCommandsTest, ADocumentGoesToStandardOutput) {
  const auto before = test::PictureOf(data_);
  const CommandEnd end = Run({"export", "--json", data_});
  EXPECT_EQ(end.status, kGood);
  DataSnapshot files;
  ASSERT_EQ(TakeDataSnapshot(data_, files), SnapshotResult::kTaken);
  EXPECT_EQ(end.output, ExportJson(files));
  EXPECT_THAT(end.complaints, IsEmpty());
  EXPECT_EQ(test::PictureOf(data_), before);
}

TEST_F(ExportCommandsTest, OrIntoAFileThatIsReplaced) {
  folder_.WriteText("out.json", "old");
  const std::string out = folder_.File("out.json");
  const CommandEnd end = Run({"export", "--json", data_, "-o", out});
  EXPECT_EQ(end.status, kGood);
  EXPECT_EQ(end.output, "");
  EXPECT_EQ(folder_.ReadText("out.json"), Run({"export", "--json", data_}).output);
}

TEST_F(ExportCommandsTest, TablesGoIntoAFolder) {
  const std::string out = folder_.File("tables/of/today");
  const CommandEnd end = Run({"export", "--csv", data_, "-o", out});
  EXPECT_EQ(end.status, kGood) << (end.complaints.empty() ? "" : end.complaints.front());
  EXPECT_EQ(test::FilesOf(out).size(), 8U);
  EXPECT_EQ(folder_.ReadText("tables/of/today/units.csv"), "id,name\r\n5000,bottle\r\n");
  const CommandEnd without = Run({"export", "--csv", data_});
  EXPECT_EQ(without.status, kMisused);
  EXPECT_THAT(without.complaints, ElementsAre(HasSubstr("--csv needs a folder: -o FOLDER")));
}

TEST_F(ExportCommandsTest, ADamagedFileIsTold) {
  fs::resize_file(data_ + "/product.dat", 900);
  const CommandEnd tables = Run({"export", "--csv", data_, "-o", folder_.File("tables")});
  EXPECT_EQ(tables.status, kBad);
  EXPECT_THAT(tables.complaints,
              ElementsAre("product.dat: the file is cut off: it ends within a record (byte 472); "
                          "products.csv has what stands in front of that"));
  // A document has the file as it is.
  EXPECT_EQ(Run({"export", "--json", data_}).status, kGood);
}

TEST_F(ExportCommandsTest, NothingIsPutIntoTheDataFolder) {
  const auto before = test::PictureOf(data_);
  fs::create_directory_symlink(data_, folder_.File("link"));
  for (const std::string& out : {data_ + "/product.dat", data_ + "/WebSearch/9.dat",
                                 folder_.File("link") + "/x", folder_.File("other/../data/x")}) {
    const CommandEnd end = Run({"export", "--json", data_, "-o", out});
    EXPECT_EQ(end.status, kBad) << out;
    EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("the data folder is no place for it")))
        << out;
  }
  for (const std::string& out : {data_, data_ + "/", folder_.File("link"), data_ + "/tables"}) {
    EXPECT_EQ(Run({"export", "--csv", data_ + "/", "-o", out}).status, kBad) << out;
  }
  EXPECT_EQ(test::PictureOf(data_), before);
  // Beside it, even if the name begins alike, it is another matter.
  EXPECT_EQ(Run({"export", "--json", data_, "-o", data_ + ".json"}).status, kGood);
}

TEST_F(ExportCommandsTest, WhatCannotBeWrittenIsTold) {
  const CommandEnd end = Run({"export", "--json", data_, "-o", folder_.File("none/out.json")});
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("out.json\": ")));
  folder_.WriteText("file", "in the way");
  const CommandEnd tables = Run({"export", "--csv", data_, "-o", folder_.File("file")});
  EXPECT_THAT(tables.complaints, ElementsAre(HasSubstr("the folder cannot be made")));
  EXPECT_EQ(folder_.ReadText("file"), "in the way");
}

TEST_F(ExportCommandsTest, NoFolderEndsWithThree) {
  const CommandEnd none = Run({"export", "--json", folder_.File("none")});
  EXPECT_EQ(none.status, kNoFolder);
  EXPECT_THAT(none.complaints, ElementsAre(HasSubstr("there is no such folder")));
  fs::create_directory(folder_.File("empty"));
  const CommandEnd empty = Run({"export", "--json", folder_.File("empty")});
  EXPECT_EQ(empty.status, kNoFolder);
  EXPECT_THAT(empty.complaints, ElementsAre(HasSubstr("no data file of the program is in it")));
}

TEST_F(ExportCommandsTest, AFolderInTheMiddleOfAChangeIsLeftAlone) {
  {
    platform::File holder;
    ASSERT_TRUE(holder.Open(data_ + "/store.lst", platform::File::Mode::kReadWrite));
    EXPECT_THAT(Run({"export", "--json", data_}).complaints,
                ElementsAre(HasSubstr("someone else has store.lst open, or it may not be read")));
  }
  const UndoRecord record{UndoKind::kOverwritten, "store.lst", 76, 0, test::Hex("81 38 01 00")};
  folder_.Write("data/backup.dat", EncodeJournal(std::vector{record}));
  const auto before = test::PictureOf(data_);
  const CommandEnd end = Run({"export", "--csv", data_, "-o", folder_.File("tables")});
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("start the program once, it undoes it")));
  EXPECT_FALSE(fs::exists(folder_.File("tables")));
  EXPECT_EQ(test::PictureOf(data_), before);
}

}  // namespace
}  // namespace brovanta::data_tool
