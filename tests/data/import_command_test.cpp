#include "data/import_command.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/backup_folder.h"
#include "data/check_folder.h"
#include "data/commands.h"
#include "data/exit_status.h"
#include "data/export_json.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "platform/folder.h"
#include "tests/data/sample_folder.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"

namespace brovanta::data_tool {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using Files = std::map<std::string, test::Bytes>;

constexpr std::int64_t kNoon = 20778 * std::int64_t{86400} + 43200;  // 2026-11-21

class ImportCommandTest : public testing::Test {
 protected:
  ImportCommandTest() : data_(folder_.File("data")), document_(folder_.File("all.json")) {
    fs::create_directory(data_);
    test::MakeHousehold(data_);
    DataSnapshot files;
    EXPECT_EQ(TakeDataSnapshot(data_, files), SnapshotResult::kTaken);
    folder_.WriteText("all.json", ExportJson(files));
    exported_ = DataOf(data_);
  }

  [[nodiscard]] static Files DataOf(const std::string& folder) {
    Files files = test::FilesOf(folder);
    files.erase(kJournalFile);
    return files;
  }

  [[nodiscard]] static CommandEnd Run(const std::vector<std::string_view>& words) {
    std::string error;
    const auto line = ParseCommandLine(words, Commands(), error);
    EXPECT_TRUE(line) << error;
    return line ? line->command->run(*line) : CommandEnd{-1, {}, {}};
  }

  /// Another household in the data folder.
  void LiveOn() {
    folder_.WriteText("data/unit.lst", "damaged");
    fs::remove(data_ + "/purchase.dat");
    folder_.WriteText("data/WebSearch/9.dat", "results of another search");
    lived_ = DataOf(data_);
  }

  test::TempFolder folder_;
  test::FixedClock clock_{kNoon};
  std::string data_;
  std::string document_;
  Files exported_;
  Files lived_;
};

TEST_F(ImportCommandTest, AMissingFolderIsMadeAndHoldsTheSameFiles) {
  const std::string fresh = folder_.File("new/data");
  const CommandEnd end = Run({"import", "--json", document_, fresh});
  EXPECT_EQ(end.status, kGood) << (end.complaints.empty() ? "" : end.complaints.front());
  EXPECT_THAT(end.output, HasSubstr("10 files written, 0 removed.\n"));
  EXPECT_EQ(DataOf(fresh), exported_);
  std::string error;
  EXPECT_TRUE(CheckFolder(fresh, error).value().IsWhole());
  EXPECT_FALSE(fs::exists(fresh + ".backups"));
}

TEST_F(ImportCommandTest, AFolderOfAFirstStartCountsAsEmpty) {
  const std::string fresh = folder_.File("fresh");
  fs::create_directory(fresh);
  test::MakeEmptyLists(fresh);
  EXPECT_EQ(Run({"import", "--json", document_, fresh}).status, kGood);
  EXPECT_EQ(DataOf(fresh), exported_);
}

TEST_F(ImportCommandTest, DataIsReplacedOnlyWhenAskedFor) {
  LiveOn();
  const CommandEnd refused = Run({"import", "--json", document_, data_});
  EXPECT_EQ(refused.status, kBad);
  EXPECT_EQ(refused.output, "");
  EXPECT_THAT(refused.complaints, ElementsAre(HasSubstr("there are data files in it already; "
                                                        "--replace keeps them as a copy")));
  EXPECT_EQ(DataOf(data_), lived_);
  EXPECT_FALSE(fs::exists(BackupFolder(data_).path()));

  const CommandEnd done = Run({"import", "--json", document_, data_, "--replace"});
  EXPECT_EQ(done.status, kGood);
  EXPECT_THAT(done.output, HasSubstr("2 files written, 1 removed.\n"
                                     "What stood there before is kept as "
                                     "2026-11-21.before-restore.\n"));
  EXPECT_EQ(DataOf(data_), exported_);
  EXPECT_EQ(test::FilesOf(BackupFolder(data_).PathOf("2026-11-21.before-restore")), lived_);
  EXPECT_EQ(Run({"restore", data_, "2026-11-21.before-restore"}).status, kGood);
  EXPECT_EQ(DataOf(data_), lived_);
}

TEST_F(ImportCommandTest, TheSameDataIsLeftAlone) {
  const auto before = test::PictureOf(folder_.path());
  const CommandEnd end = Run({"import", "--json", document_, data_});
  EXPECT_EQ(end.status, kGood);
  EXPECT_THAT(end.output, HasSubstr("holds the very data of"));
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(ImportCommandTest, ABadDocumentChangesNothing) {
  LiveOn();
  std::string text = *folder_.ReadText("all.json");
  text.replace(text.find("\"Bread\""), 7, "\"\\u03a9\"");
  folder_.WriteText("all.json", text);
  const auto before = test::PictureOf(folder_.path());
  const CommandEnd end = Run({"import", "--json", document_, data_, "--replace"});
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("product.dat, records[1], Name: the character "
                                                    "\"\xCE\xA9\" is not in Windows-1252")));
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
  EXPECT_EQ(Run({"import", "--json", document_, folder_.File("new")}).status, kBad);
  EXPECT_FALSE(fs::exists(folder_.File("new")));
}

TEST_F(ImportCommandTest, WhatIsNoDocumentIsTold) {
  const std::string fresh = folder_.File("new");
  EXPECT_THAT(Run({"import", "--json", folder_.File("none"), fresh}).complaints,
              ElementsAre(HasSubstr("there is no such file")));
  EXPECT_THAT(Run({"import", "--json", data_, fresh}).complaints,
              ElementsAre(HasSubstr("this is no file")));
  folder_.WriteText("nothing.json", R"({"format":"brovanta-data","version":1,"files":{}})");
  EXPECT_THAT(Run({"import", "--json", folder_.File("nothing.json"), fresh}).complaints,
              ElementsAre(HasSubstr("there are no files in this document")));
  EXPECT_FALSE(fs::exists(fresh));
}

TEST_F(ImportCommandTest, IsRefusedWhileTheProgramRuns) {
  LiveOn();
  platform::FolderLock program;
  ASSERT_EQ(program.Take(data_), platform::FolderLock::Outcome::kTaken);
  const CommandEnd end = Run({"import", "--json", document_, data_, "--replace"});
  EXPECT_EQ(end.status, kBad);
  EXPECT_THAT(end.complaints, ElementsAre(HasSubstr("close it first")));
  EXPECT_EQ(DataOf(data_), lived_);
}

// Whichever call fails, the old files stand or the new ones, the latter when it says so.
TEST_F(ImportCommandTest, AllOrNothing) {
  LiveOn();
  const Files prepared = test::FilesOf(folder_.path());
  for (int at = 1;; ++at) {
    bool struck = false;
    int status = kBad;
    {
      test::FaultyCalls calls(at % 2 == 0 ? test::Fault::kNoSpace : test::Fault::kIo, at);
      const platform::SystemCallsInUse in_use(calls);
      status = Run({"import", "--json", document_, data_, "--replace"}).status;
      struck = calls.has_struck();
    }
    ASSERT_EQ(RollBackJournal(data_ + "/" + kJournalFile), 0) << at;
    Files now = DataOf(data_);
    std::erase_if(now, [](const auto& file) {  // temporaries that nobody reads
      return file.first.find(".lst.") != std::string::npos ||
             file.first.find(".dat.") != std::string::npos;
    });
    ASSERT_TRUE(now == (status == kGood ? exported_ : lived_)) << at;
    if (!struck) {
      EXPECT_GT(at, 100);
      break;
    }
    for (const auto& entry : fs::directory_iterator(folder_.path())) fs::remove_all(entry);
    for (const auto& [name, bytes] : prepared) {
      fs::create_directories(fs::path(folder_.File(name)).parent_path());
      folder_.Write(name, bytes);
    }
  }
}

}  // namespace
}  // namespace brovanta::data_tool
