#include "data/restore.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "data/backup_folder.h"
#include "data/check_folder.h"
#include "data/daily_backup.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "db/shopping_database.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "tests/data/sample_folder.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using Outcome = RestoreEnd::Outcome;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using testing::HasSubstr;
using Files = std::map<std::string, Bytes>;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kNoon = 20778 * kDay + kDay / 2;  // 2026-11-21

class RestoreTest : public testing::Test {
 protected:
  RestoreTest() : data_(folder_.File("data")) {
    fs::create_directory(data_);
    test::MakeHousehold(data_);
    KeepToday();
    copied_ = Data();
  }

  void KeepToday() const {
    const DailyBackup backup(data_);
    const auto snapshot = backup.Read();
    ASSERT_TRUE(snapshot && backup.Keep(*snapshot, {}));
  }

  /// Another day: a product more, a list damaged, results added and taken away.
  void LiveOn() {
    clock_.Set(kNoon + kDay);
    ShoppingDatabase database;
    ASSERT_EQ(database.Open(data_), 0);
    ProductFields fields;
    fields.name = "Butter";
    ASSERT_TRUE(database.products().Add(kProductKind, fields));
    folder_.WriteText("data/unit.lst", "damaged");
    fs::remove(data_ + "/WebSearch/2.dat");
    fs::remove(data_ + "/purchase.dat");
    folder_.WriteText("data/WebSearch/9.dat", "results of another search");
    lived_ = Data();
  }

  [[nodiscard]] Files Data() const {
    Files files = test::FilesOf(data_);
    files.erase(kJournalFile);
    return files;
  }
  [[nodiscard]] Files Copy(const std::string& name) const {
    return test::FilesOf(BackupFolder(data_).PathOf(name));
  }
  [[nodiscard]] RestoreEnd Restore(const std::optional<std::string>& name = std::nullopt) const {
    return RestoreCopy(data_, name);
  }

  test::TempFolder folder_;
  std::string data_;
  test::FixedClock clock_{kNoon};
  Files copied_;
  Files lived_;
};

TEST_F(RestoreTest, BringsTheNewestCopyBackBitForBitAndKeepsWhatItReplaces) {
  LiveOn();
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kDone) << end.words;
  EXPECT_EQ(end.copy, "2026-11-21");
  EXPECT_EQ(end.kept_as, "2026-11-22.before-restore");
  // product.dat, purchase.dat, unit.lst, results 2; results 9 are gone.
  EXPECT_EQ(end.written, 4U);
  EXPECT_EQ(end.removed, 1U);
  EXPECT_EQ(Data(), copied_);
  EXPECT_EQ(Copy("2026-11-22.before-restore"), lived_);
  std::string error;
  EXPECT_TRUE(data_tool::CheckFolder(data_, error).value().IsWhole());
}

TEST_F(RestoreTest, ThereAndBackAgain) {
  LiveOn();
  ASSERT_EQ(Restore().outcome, Outcome::kDone);
  const RestoreEnd back = Restore("2026-11-22.before-restore");
  EXPECT_EQ(back.outcome, Outcome::kDone) << back.words;
  EXPECT_EQ(back.kept_as, "2026-11-22.before-restore2");
  EXPECT_EQ(Data(), lived_);
}

TEST_F(RestoreTest, TakesTheCopyThatIsNamed) {
  LiveOn();
  KeepToday();
  EXPECT_EQ(Restore("2026-11-21").outcome, Outcome::kDone);
  EXPECT_EQ(Data(), copied_);
  const RestoreEnd newest = Restore();
  EXPECT_EQ(newest.copy, "2026-11-22");
  EXPECT_EQ(Data(), lived_);
}

TEST_F(RestoreTest, WhatIsNoDataStays) {
  folder_.WriteText("data/registry.reg", "settings");
  folder_.WriteText("data/store.lst.bad", "damaged");
  LiveOn();
  ASSERT_EQ(Restore().outcome, Outcome::kDone);
  EXPECT_EQ(folder_.ReadText("data/registry.reg"), "settings");
  EXPECT_EQ(folder_.ReadText("data/store.lst.bad"), "damaged");
}

TEST_F(RestoreTest, TheSameFilesAreLeftAlone) {
  const auto before = test::PictureOf(folder_.path());
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kSame);
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(RestoreTest, AFolderThatIsGoneIsMadeAnew) {
  fs::remove_all(data_);
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kDone) << end.words;
  EXPECT_EQ(end.kept_as, "");
  EXPECT_EQ(Data(), copied_);
}

TEST_F(RestoreTest, WithoutACopyNothingHappens) {
  const RestoreEnd other = Restore("2026-11-20");
  EXPECT_EQ(other.outcome, Outcome::kNoCopy);
  EXPECT_THAT(other.words, HasSubstr("there is no copy 2026-11-20 in "));
  EXPECT_EQ(Restore("../data").outcome, Outcome::kNoCopy);
  fs::remove_all(BackupFolder(data_).path());
  EXPECT_EQ(Restore().outcome, Outcome::kNoCopy);
  EXPECT_EQ(Data(), copied_);
  EXPECT_EQ(RestoreCopy(folder_.File("none"), std::nullopt).outcome, Outcome::kNoFolder);
  EXPECT_FALSE(fs::exists(folder_.File("none")));
}

TEST_F(RestoreTest, IsRefusedWhileTheProgramRuns) {
  LiveOn();
  platform::FolderLock program;
  ASSERT_EQ(program.Take(data_), platform::FolderLock::Outcome::kTaken);
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kInUse);
  EXPECT_THAT(end.words, HasSubstr("close it first"));
  EXPECT_EQ(Data(), lived_);
}

TEST_F(RestoreTest, IsRefusedWhileAFileIsHeld) {
  LiveOn();
  for (const char* const name : {"product.dat", "backup.dat", "WebSearch/9.dat"}) {
    platform::File holder;
    ASSERT_TRUE(holder.Open(data_ + "/" + name, platform::File::Mode::kReadWrite));
    EXPECT_EQ(Restore().outcome, Outcome::kInUse) << name;
    EXPECT_EQ(Data(), lived_);
  }
}

TEST_F(RestoreTest, IsRefusedWhenWhatIsThereCannotBeKept) {
  LiveOn();
  // From the first folder that is made on, the place beside the data is full.
  class FullBeside : public platform::SystemCalls {
   public:
    int MakeFolder(const char* /*path*/, mode_t /*mode*/) override {
      errno = ENOSPC;
      return -1;
    }
  };
  FullBeside calls;
  const platform::SystemCallsInUse in_use(calls);
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kFailed);
  EXPECT_THAT(end.words, HasSubstr("cannot be kept in "));
  EXPECT_EQ(Data(), lived_);
}

TEST_F(RestoreTest, NamesTheFileThatItCannotRead) {
  LiveOn();
  const Files before = Data();
  const std::string copy = folder_.File("data.backups/2026-11-21");
  fs::remove(copy + "/WebSearch/4.dat");
  fs::create_directory(copy + "/WebSearch/4.dat");
  const RestoreEnd of_copy = RestoreCopy(data_, std::nullopt);
  EXPECT_THAT(of_copy.words, HasSubstr("WebSearch/4.dat of the copy "));
  fs::remove(copy + "/WebSearch/4.dat");
  platform::File held;
  ASSERT_TRUE(held.Open(data_ + "/store.lst", platform::File::Mode::kRead));
  const RestoreEnd of_folder = RestoreCopy(data_, std::nullopt);
  EXPECT_THAT(of_folder.words, HasSubstr("store.lst of the folder "));
  held.Close();
  EXPECT_EQ(Data(), before);
}

TEST_F(RestoreTest, NamesTheFileThatMayNotBeWritten) {
  LiveOn();
  fs::permissions(data_ + "/unit.lst", fs::perms::owner_read);
  const RestoreEnd end = RestoreCopy(data_, std::nullopt);
  EXPECT_EQ(end.outcome, Outcome::kInUse);
  EXPECT_EQ(end.words, "someone else has unit.lst open, or it may not be written");
}

TEST_F(RestoreTest, AnEmptyCopyIsNotBroughtBack) {
  fs::remove_all(BackupFolder(data_).PathOf("2026-11-21"));
  fs::create_directory(BackupFolder(data_).PathOf("2026-11-21"));
  EXPECT_EQ(Restore().outcome, Outcome::kFailed);
  EXPECT_EQ(Data(), copied_);
}

TEST_F(RestoreTest, AnUnfinishedChangeIsUndoneFirst) {
  LiveOn();
  const UndoRecord record{UndoKind::kOverwritten, "store.lst", 76, 0, test::Hex("81 38 01 00")};
  folder_.WriteText("data/store.lst", "XXXX" + folder_.ReadText("data/store.lst")->substr(4));
  folder_.Write("data/backup.dat", EncodeJournal(std::vector{record}));
  const RestoreEnd end = Restore();
  EXPECT_EQ(end.outcome, Outcome::kDone) << end.words;
  EXPECT_EQ(Data(), copied_);
  EXPECT_EQ(Copy(end.kept_as), lived_);
}

/// Every call of a restore fails once, or the process ends there: the old files or the new ones,
/// and with the new ones the old ones as a copy.
class RestoreFaultsTest : public RestoreTest {
 protected:
  RestoreFaultsTest() {
    LiveOn();
    prepared_ = test::FilesOf(folder_.path());
  }

  void Prepare() const {
    for (const auto& entry : fs::directory_iterator(folder_.path())) fs::remove_all(entry);
    for (const auto& [name, bytes] : prepared_) {
      fs::create_directories(fs::path(folder_.File(name)).parent_path());
      folder_.Write(name, bytes);
    }
  }

  void Judge(int at, std::optional<Outcome> outcome) const {
    ASSERT_EQ(RollBackJournal(data_ + "/" + kJournalFile), 0) << at;
    Files now = Data();
    std::erase_if(now, [](const auto& file) {  // temporaries that nobody reads
      return file.first.find(".lst.") != std::string::npos ||
             file.first.find(".dat.") != std::string::npos;
    });
    const bool is_new = now == copied_;
    ASSERT_TRUE(is_new || now == lived_) << at;
    const bool confirmed = outcome == Outcome::kDone;
    const bool refused = outcome && !confirmed && *outcome != Outcome::kUndecided;
    ASSERT_TRUE(is_new || !confirmed) << at;
    ASSERT_FALSE(is_new && refused) << at;
    ASSERT_TRUE(!is_new || Copy("2026-11-22.before-restore") == lived_) << at;
    ASSERT_EQ(Copy("2026-11-21"), copied_) << at;
    // And it can be brought back all the same.
    if (at % 10 != 0) return;
    const Outcome again = Restore("2026-11-21").outcome;
    ASSERT_TRUE(again == Outcome::kDone || again == Outcome::kSame) << at;
    ASSERT_EQ(RollBackJournal(data_ + "/" + kJournalFile), 0);
  }

  int CountCalls() const {
    FaultyCalls counting;
    const platform::SystemCallsInUse in_use(counting);
    EXPECT_EQ(Restore().outcome, Outcome::kDone);
    return counting.count();
  }

  Files prepared_;
};

TEST_F(RestoreFaultsTest, TheProcessEndsAnywhere) {
  const int calls_of_all = CountCalls();
  EXPECT_GT(calls_of_all, 200);
  for (int at = 1; at <= calls_of_all; ++at) {
    Prepare();
    const pid_t child = fork();
    if (child == 0) {
      FaultyCalls calls(Fault::kStop, at);
      const platform::SystemCallsInUse in_use(calls);
      (void)Restore();
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    // What a process asks the device once only, the counting has asked already.
    constexpr int kAskedOnce = 12;
    if (status != 0 && at > calls_of_all - kAskedOnce) break;
    ASSERT_EQ(status, 0) << at;
    Judge(at, std::nullopt);
    if (HasFatalFailure()) return;
  }
}

TEST_F(RestoreFaultsTest, ACallFailsAnywhere) {
  const int calls_of_all = CountCalls();
  for (int at = 1; at <= calls_of_all; ++at) {
    Prepare();
    std::optional<Outcome> outcome;
    {
      FaultyCalls calls(at % 3 == 0 ? Fault::kNoSpace : Fault::kIo, at);
      const platform::SystemCallsInUse in_use(calls);
      outcome = Restore().outcome;
    }
    Judge(at, outcome);
    if (HasFatalFailure()) return;
  }
}

TEST_F(RestoreFaultsTest, ADeviceFailsForGood) {
  const int calls_of_all = CountCalls();
  for (int at = 1; at <= calls_of_all; at += 2) {
    Prepare();
    bool done = false;
    {
      FaultyCalls calls(Fault::kIo, at, true);
      const platform::SystemCallsInUse in_use(calls);
      done = Restore().outcome == Outcome::kDone;
    }
    // Where nothing can be put back any more, either state may stand.
    Judge(at, done ? std::optional(Outcome::kDone) : std::nullopt);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace brovanta
