#include "data/backup_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "data/backup_names.h"
#include "tests/data/sample_folder.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/plain_user.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using test::Fault;
using test::FaultyCalls;
using testing::ElementsAre;
using testing::IsEmpty;

class BackupFolderTest : public testing::Test {
 protected:
  BackupFolderTest() : data_(folder_.File("data")) { fs::create_directory(data_); }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const BackupCopy& copy : backups_.Copies()) names.push_back(copy.name);
    return names;
  }
  std::vector<std::string> Everything() const {
    std::vector<std::string> names;
    if (!fs::exists(backups_.path())) return names;
    for (const auto& entry : fs::directory_iterator(backups_.path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  test::TempFolder folder_;
  std::string data_;
  BackupFolder backups_{data_};
  DataSnapshot snapshot_{{"product.dat", "products"}, {"WebSearch/2.dat", std::string(2, '\0')}};
};

TEST_F(BackupFolderTest, LiesBesideTheDataFolder) {
  EXPECT_EQ(backups_.path(), fs::canonical(data_).string() + ".backups");
  EXPECT_EQ(BackupFolder(data_ + "/").path(), backups_.path());
  EXPECT_EQ(BackupFolder(data_ + "/../data/.").path(), backups_.path());
  fs::create_directory_symlink(data_, folder_.File("link"));
  EXPECT_EQ(BackupFolder(folder_.File("link")).path(), backups_.path());
  fs::remove(data_);
  EXPECT_EQ(BackupFolder(data_ + "/").path(), backups_.path());
}

TEST_F(BackupFolderTest, KeepsEveryByteForItsOwnerAlone) {
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  const std::string copy = backups_.PathOf("2026-11-21");
  EXPECT_EQ(test::FilesOf(copy),
            (std::map<std::string, test::Bytes>{{"product.dat", test::Padded("products", 8)},
                                                {"WebSearch/2.dat", test::Run(2)}}));
  struct stat status {};
  ASSERT_EQ(stat(copy.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(stat((copy + "/product.dat").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  EXPECT_THAT(Everything(), ElementsAre("2026-11-21"));
}

/// A device with so many bytes left.
class NarrowDevice : public platform::SystemCalls {
 public:
  explicit NarrowDevice(std::uint64_t free) : free_(free) {}
  int FreeSpace(const char* /*path*/, std::uint64_t& bytes) override {
    bytes = free_;
    return 0;
  }

 private:
  std::uint64_t free_;
};

TEST_F(BackupFolderTest, ACopyLeavesRoomForTheDataFiles) {
  // Two files of one block each, three folders, and 16 MiB.
  constexpr std::uint64_t kEnough = 5 * 4096 + (std::uint64_t{16} << 20);
  {
    NarrowDevice device(kEnough - 1);
    const platform::SystemCallsInUse in_use(device);
    EXPECT_FALSE(backups_.Keep("2026-11-21", snapshot_));
  }
  EXPECT_THAT(Everything(), IsEmpty());
  NarrowDevice device(kEnough);
  const platform::SystemCallsInUse in_use(device);
  EXPECT_TRUE(backups_.Keep("2026-11-21", snapshot_));
}

TEST_F(BackupFolderTest, AFullDeviceIsAnObstacle) {
  const char* const words = "there is hardly any room left on the device";
  for (const bool stands : {false, true}) {
    if (stands) fs::create_directory(backups_.path());
    NarrowDevice full((std::uint64_t{16} << 20) - 1);
    const platform::SystemCallsInUse in_use(full);
    EXPECT_EQ(backups_.Obstacle(), words);
  }
  EXPECT_EQ(backups_.Obstacle(), "");
}

TEST_F(BackupFolderTest, WhereTheSystemDoesNotTellTheRoomACopyIsTried) {
  class Silent : public platform::SystemCalls {
   public:
    int FreeSpace(const char* /*path*/, std::uint64_t& /*bytes*/) override { return -1; }
  };
  Silent silent;
  const platform::SystemCallsInUse in_use(silent);
  EXPECT_EQ(backups_.Obstacle(), "");
  EXPECT_TRUE(backups_.Keep("2026-11-21", snapshot_));
}

TEST_F(BackupFolderTest, ListsCopiesAndNothingElse) {
  EXPECT_THAT(backups_.Copies(), IsEmpty());
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  ASSERT_TRUE(backups_.Keep("2026-11-21.before-restore", snapshot_));
  ASSERT_TRUE(backups_.Keep("2026-11-20", {}));
  fs::create_directory(backups_.PathOf("2026-11-19.part"));
  fs::create_directory(backups_.PathOf("mine"));
  folder_.WriteText("data.backups/2026-11-18", "a file");
  const std::vector<BackupCopy> copies = backups_.Copies();
  ASSERT_EQ(copies.size(), 3U);
  EXPECT_EQ(copies[0].name, "2026-11-20");
  EXPECT_EQ(copies[1].name, "2026-11-21");
  EXPECT_TRUE(copies[1].is_daily);
  EXPECT_EQ(copies[1].files, 2U);
  EXPECT_EQ(copies[1].bytes, 10);
  EXPECT_FALSE(copies[2].is_daily);
  EXPECT_TRUE(backups_.Has("2026-11-20"));
  for (const char* const name : {"2026-11-18", "2026-11-19.part", "mine", "..", ""}) {
    EXPECT_FALSE(backups_.Has(name)) << name;
  }
}

TEST_F(BackupFolderTest, ACopyIsNeverReplaced) {
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  EXPECT_FALSE(backups_.Keep("2026-11-21", {{"product.dat", "other"}}));
  EXPECT_EQ(folder_.ReadText("data.backups/2026-11-21/product.dat"), "products");
}

TEST_F(BackupFolderTest, WhatWasLeftInTheMiddleIsMadeAnew) {
  fs::create_directories(backups_.PathOf("2026-11-21.part/WebSearch"));
  folder_.WriteText("data.backups/2026-11-21.part/store.lst", "old");
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  EXPECT_FALSE(fs::exists(backups_.PathOf("2026-11-21/store.lst")));
  EXPECT_THAT(Everything(), ElementsAre("2026-11-21"));
}

TEST_F(BackupFolderTest, StopsWhenItIsAsked) {
  std::stop_source stop;
  stop.request_stop();
  EXPECT_FALSE(backups_.Keep("2026-11-21", snapshot_, stop.get_token()));
  EXPECT_THAT(Everything(), IsEmpty());
}

TEST_F(BackupFolderTest, ClearsAwayWhatIsTooOldAndWhatWasLeft) {
  const test::FixedClock clock(1796126400);  // 2026-12-01, 12:00:00
  for (int day = 10; day < 30; ++day) {
    ASSERT_TRUE(backups_.Keep("2026-10-" + std::to_string(day), snapshot_));
  }
  ASSERT_TRUE(backups_.Keep("2026-01-01.before-restore", snapshot_));
  fs::create_directory(backups_.PathOf("2026-10-09.part"));
  fs::create_directory(backups_.PathOf("mine"));
  fs::create_directory(backups_.PathOf("mine.part"));
  backups_.ClearAway();
  // 2026-10-12 and 19 were Mondays; 10 is the first of its week here.
  EXPECT_THAT(Everything(),
              testing::UnorderedElementsAre("2026-01-01.before-restore", "2026-10-10", "2026-10-12",
                                            "2026-10-19", "2026-10-23", "2026-10-24", "2026-10-25",
                                            "2026-10-26", "2026-10-27", "2026-10-28", "2026-10-29",
                                            "mine", "mine.part"));
}

TEST_F(BackupFolderTest, TellsWhyNoCopyCanBeMade) {
  EXPECT_EQ(backups_.Obstacle(), "");
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  EXPECT_EQ(backups_.Obstacle(), "");
  fs::remove_all(backups_.path());
  folder_.WriteText("data.backups", "");
  EXPECT_EQ(backups_.Obstacle(), "something else than a folder stands there");
  EXPECT_FALSE(backups_.Keep("2026-11-21", snapshot_));
}

TEST_F(BackupFolderTest, APlaceThatMayNotBeWrittenIsAnObstacle) {
  fs::permissions(folder_.path(), fs::perms(0555));  // for whoever runs the tests
  {
    const test::PlainUser plain;
    ASSERT_TRUE(plain.active());
    EXPECT_EQ(backups_.Obstacle(), "the folder cannot be made");
    EXPECT_FALSE(backups_.Keep("2026-11-21", snapshot_));
  }
  fs::permissions(folder_.path(), fs::perms(0755));
  ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  fs::permissions(backups_.path(), fs::perms(0555));
  {
    const test::PlainUser plain;
    ASSERT_TRUE(plain.active());
    EXPECT_EQ(backups_.Obstacle(), "the folder may not be written");
    EXPECT_FALSE(backups_.Keep("2026-11-22", snapshot_));
  }
  fs::permissions(backups_.path(), fs::perms(0755));
}

/// Every call of a copy fails once, or the process ends there.
TEST_F(BackupFolderTest, ACopyIsWholeOrNotThere) {
  FaultyCalls counting;
  {
    const platform::SystemCallsInUse in_use(counting);
    ASSERT_TRUE(backups_.Keep("2026-11-21", snapshot_));
  }
  const auto whole = test::FilesOf(backups_.PathOf("2026-11-21"));
  for (const Fault fault : {Fault::kIo, Fault::kNoSpace, Fault::kShort, Fault::kStop}) {
    for (int at = 1; at <= counting.count() + 1; ++at) {
      fs::remove_all(backups_.path());
      bool kept = false;
      const pid_t child = fault == Fault::kStop ? fork() : -1;
      if (child <= 0) {
        FaultyCalls calls(fault, at);
        const platform::SystemCallsInUse in_use(calls);
        kept = backups_.Keep("2026-11-21", snapshot_);
        if (child == 0) _exit(0);
      } else {
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
      }
      const bool there = backups_.Has("2026-11-21");
      ASSERT_TRUE(there || !kept) << at;
      // The next one comes through, whatever is left.
      ASSERT_TRUE(there || backups_.Keep("2026-11-21", snapshot_)) << at;
      ASSERT_EQ(test::FilesOf(backups_.PathOf("2026-11-21")), whole) << at;
    }
  }
}

TEST_F(BackupFolderTest, ACopyThatIsHalfRemovedDoesNotLookLikeOne) {
  const test::FixedClock clock(1796126400);  // 2026-12-01, 12:00:00
  const auto prepare = [this] {
    fs::remove_all(backups_.path());
    for (int day = 10; day < 21; ++day) {
      ASSERT_TRUE(backups_.Keep("2026-10-" + std::to_string(day), snapshot_));
    }
  };
  prepare();
  FaultyCalls counting;
  {
    const platform::SystemCallsInUse in_use(counting);
    backups_.ClearAway();
  }
  const std::vector<std::string> expected = Names();
  for (int at = 1; at <= counting.count(); at += 3) {
    prepare();
    const pid_t child = fork();
    if (child == 0) {
      FaultyCalls calls(Fault::kStop, at);
      const platform::SystemCallsInUse in_use(calls);
      backups_.ClearAway();
      _exit(0);
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    for (const BackupCopy& copy : backups_.Copies()) EXPECT_EQ(copy.files, 2U) << copy.name;
    backups_.ClearAway();
    EXPECT_EQ(Names(), expected);
    EXPECT_EQ(Everything().size(), expected.size());
  }
}

}  // namespace
}  // namespace brovanta
