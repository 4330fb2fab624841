#include "data/daily_backup.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "data/backup_names.h"
#include "platform/file.h"
#include "tests/data/sample_folder.h"
#include "tests/support/fixed_clock.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kNoon = 20778 * kDay + kDay / 2;  // 2026-11-21

class DailyBackupTest : public testing::Test {
 protected:
  DailyBackupTest() : data_(folder_.File("data")) { fs::create_directory(data_); }

  /// A start of the program: whether it kept a copy.
  bool Start() const {
    const DailyBackup backup(data_);
    const auto snapshot = backup.Read();
    return snapshot && backup.Keep(*snapshot, {});
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const BackupCopy& copy : BackupFolder(data_).Copies()) names.push_back(copy.name);
    return names;
  }

  test::TempFolder folder_;
  std::string data_;
  test::FixedClock clock_{kNoon};
};

TEST_F(DailyBackupTest, TheFirstStartOfADayKeepsACopyBitForBit) {
  test::MakeHousehold(data_);
  EXPECT_TRUE(Start());
  EXPECT_THAT(Names(), ElementsAre("2026-11-21"));
  auto files = test::FilesOf(data_);
  files.erase("backup.dat");
  EXPECT_EQ(test::FilesOf(BackupFolder(data_).PathOf("2026-11-21")), files);
}

TEST_F(DailyBackupTest, LaterStartsOfTheDayKeepNone) {
  test::MakeHousehold(data_);
  EXPECT_TRUE(Start());
  folder_.WriteText("data/store.lst", "changed");
  clock_.Set(kNoon + 6 * 3600);
  EXPECT_FALSE(Start());
  clock_.Set(kNoon + kDay);
  EXPECT_TRUE(Start());
  EXPECT_THAT(Names(), ElementsAre("2026-11-21", "2026-11-22"));
}

TEST_F(DailyBackupTest, AFolderWithoutEntriesIsNotCopied) {
  EXPECT_FALSE(Start());
  test::MakeEmptyLists(data_);
  EXPECT_FALSE(Start());
  EXPECT_FALSE(fs::exists(BackupFolder(data_).path()));
}

TEST_F(DailyBackupTest, AnUnwritablePlaceIsPassedOver) {
  test::MakeHousehold(data_);
  folder_.WriteText("data.backups", "in the way");
  EXPECT_FALSE(Start());
  EXPECT_EQ(folder_.ReadText("data.backups"), "in the way");
}

TEST_F(DailyBackupTest, AHeldFileIsAnotherStartsTurn) {
  test::MakeHousehold(data_);
  {
    platform::File holder;
    ASSERT_TRUE(holder.Open(data_ + "/product.dat", platform::File::Mode::kReadWrite));
    EXPECT_FALSE(Start());
  }
  EXPECT_TRUE(Start());
}

TEST_F(DailyBackupTest, NothingIsHeldAfterReading) {
  test::MakeHousehold(data_);
  const DailyBackup backup(data_);
  const auto snapshot = backup.Read();
  ASSERT_TRUE(snapshot);
  for (const char* const name : {"product.dat", "backup.dat"}) {
    platform::File file;
    EXPECT_TRUE(file.Open(data_ + "/" + name, platform::File::Mode::kReadWrite)) << name;
    // What is saved from now on is not in the copy.
    EXPECT_TRUE(backup.Keep(*snapshot, {}) || name == std::string("backup.dat"));
  }
}

TEST_F(DailyBackupTest, AStoppedCopyClearsNothingAway) {
  test::MakeHousehold(data_);
  const DailyBackup backup(data_);
  std::stop_source stop;
  stop.request_stop();
  const auto snapshot = backup.Read();
  ASSERT_TRUE(snapshot);
  EXPECT_FALSE(backup.Keep(*snapshot, stop.get_token()));
  EXPECT_TRUE(Names().empty());
}

TEST_F(DailyBackupTest, AfterSixtyDaysElevenCopiesAreLeft) {
  folder_.WriteText("data/product.dat", "some data");
  for (std::int64_t day = 0; day < 60; ++day) {
    clock_.Set(kNoon + day * kDay);
    ASSERT_TRUE(Start()) << day;
    ASSERT_LE(Names().size(), kDailyCopies + kWeeklyCopies);
  }
  // 2027-01-19 is the last day; the Mondays before the last seven days are the weeks.
  EXPECT_THAT(Names(), ElementsAre("2026-12-21", "2026-12-28", "2027-01-04", "2027-01-11",
                                   "2027-01-13", "2027-01-14", "2027-01-15", "2027-01-16",
                                   "2027-01-17", "2027-01-18", "2027-01-19"));
}

}  // namespace
}  // namespace brovanta
