#include "data/folder_change.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "db/file_names.h"
#include "db/journal.h"
#include "db/shopping_database.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using Outcome = FolderChange::Outcome;

constexpr std::int64_t kNoon = 20778 * std::int64_t{86400} + 43200;  // 2026-11-21

class FolderChangeTest : public testing::Test {
 protected:
  FolderChangeTest() : data_(folder_.File("data")) {}

  test::TempFolder folder_;
  test::FixedClock clock_{kNoon};
  std::string data_;
};

TEST_F(FolderChangeTest, WritesWhatIsOtherAndRemovesWhatIsNotWanted) {
  fs::create_directory(data_);
  folder_.WriteText("data/store.lst", "same");
  folder_.WriteText("data/unit.lst", "old");
  folder_.WriteText("data/product.dat", "gone");
  folder_.WriteText("data/notes.txt", "no data");
  const DataSnapshot wanted{
      {"store.lst", "same"}, {"unit.lst", "new"}, {"WebSearch/2.dat", "results"}};
  FolderChange change(data_ + "/");
  ASSERT_TRUE(change.TakeFolder() && change.ReadCurrent(wanted));
  EXPECT_EQ(change.current().size(), 3U);
  ASSERT_TRUE(change.KeepCurrent() && change.Replace(wanted));
  EXPECT_EQ(change.end().outcome, Outcome::kDone);
  EXPECT_EQ(change.end().written, 2U);
  EXPECT_EQ(change.end().removed, 1U);
  EXPECT_EQ(change.end().kept_as, "2026-11-21.before-restore");
  EXPECT_EQ(folder_.ReadText("data/unit.lst"), "new");
  EXPECT_EQ(folder_.ReadText("data/WebSearch/2.dat"), "results");
  EXPECT_FALSE(fs::exists(data_ + "/product.dat"));
  EXPECT_EQ(folder_.ReadText("data/notes.txt"), "no data");
  EXPECT_EQ(folder_.ReadText("data.backups/2026-11-21.before-restore/product.dat"), "gone");
}

TEST_F(FolderChangeTest, NobodyChangesWhatIsReplacedAfterItWasKept) {
  fs::create_directory(data_);
  ShoppingDatabase other;  // a program that knows nothing of the lock on the folder
  (void)other.Open(data_);
  ProductFields fields;
  fields.name = "Milk";
  ASSERT_TRUE(other.products().Add(kProductKind, fields));
  const auto product = folder_.Read("data/product.dat");
  const DataSnapshot wanted{{"unit.lst", "new"}};
  FolderChange change(data_);
  ASSERT_TRUE(change.TakeFolder());
  ASSERT_TRUE(change.ReadCurrent(wanted));
  EXPECT_FALSE(other.products().Add(kProductKind, fields));
  ASSERT_TRUE(change.KeepCurrent());
  EXPECT_FALSE(other.products().Add(kProductKind, fields));
  EXPECT_EQ(folder_.Read("data/product.dat"), product);
  ASSERT_TRUE(change.Replace(wanted));
  EXPECT_EQ(folder_.Read("data.backups/2026-11-21.before-restore/product.dat"), product);
  EXPECT_FALSE(fs::exists(data_ + "/product.dat"));
  EXPECT_TRUE(other.products().Add(kProductKind, fields)) << "the journal is free again";
}

TEST_F(FolderChangeTest, AChangeThatEndsEarlyLetsTheJournalGo) {
  fs::create_directory(data_);
  folder_.WriteText("data/unit.lst", "same");
  FolderChange change(data_);
  ASSERT_TRUE(change.TakeFolder());
  EXPECT_FALSE(change.ReadCurrent({{"unit.lst", "same"}}));
  Journal journal;
  EXPECT_EQ(journal.Hold(data_ + "/backup.dat"), 0);
}

TEST_F(FolderChangeTest, AMissingFolderIsMadeAndNothingIsKept) {
  FolderChange change(folder_.File("a/b"));
  const DataSnapshot wanted{{"unit.lst", "new"}};
  ASSERT_TRUE(change.TakeFolder() && change.ReadCurrent(wanted) && change.KeepCurrent() &&
              change.Replace(wanted));
  EXPECT_EQ(change.end().kept_as, "");
  EXPECT_EQ(folder_.ReadText("a/b/unit.lst"), "new");
}

TEST_F(FolderChangeTest, TheSameFilesEndIt) {
  fs::create_directory(data_);
  folder_.WriteText("data/unit.lst", "same");
  FolderChange change(data_);
  ASSERT_TRUE(change.TakeFolder());
  EXPECT_FALSE(change.ReadCurrent({{"unit.lst", "same"}}));
  EXPECT_EQ(change.end().outcome, Outcome::kSame);
}

TEST_F(FolderChangeTest, TheFolderIsLockedAsLongAsItLives) {
  FolderChange first(data_);
  ASSERT_TRUE(first.TakeFolder());
  FolderChange second(data_);
  EXPECT_FALSE(second.TakeFolder());
  EXPECT_EQ(second.end().outcome, Outcome::kInUse);
  EXPECT_THAT(second.end().words, testing::HasSubstr("close it first"));
}

TEST_F(FolderChangeTest, WhereAFileStandsNoFolderIsMade) {
  folder_.WriteText("data", "a file");
  FolderChange change(data_);
  EXPECT_FALSE(change.TakeFolder());
  EXPECT_EQ(change.end().outcome, Outcome::kFailed);
  EXPECT_EQ(folder_.ReadText("data"), "a file");
}

}  // namespace
}  // namespace brovanta
