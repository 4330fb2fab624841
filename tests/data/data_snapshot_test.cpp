#include "data/data_snapshot.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "db/journal_format.h"
#include "platform/file.h"
#include "tests/data/sample_folder.h"
#include "tests/support/faulty_calls.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;
using platform::File;
using testing::ElementsAre;
using testing::IsEmpty;

class DataSnapshotTest : public testing::Test {
 protected:
  DataSnapshotTest() { test::MakeHousehold(folder_.path()); }

  SnapshotResult Take() { return TakeDataSnapshot(folder_.path(), snapshot_); }

  test::TempFolder folder_;
  DataSnapshot snapshot_;
};

TEST_F(DataSnapshotTest, HasEveryDataFileAndNothingElse) {
  folder_.WriteText("registry.reg", "settings");
  folder_.WriteText("update.dat", "scratch");
  folder_.WriteText("store.lst.bad", "damaged");
  folder_.WriteText("WebSearch/notes.txt", "mine");
  ASSERT_EQ(Take(), SnapshotResult::kTaken);
  std::vector<std::string> names;
  for (const auto& [name, bytes] : snapshot_) {
    names.push_back(name);
    EXPECT_EQ(bytes, folder_.ReadText(name)) << name;
  }
  EXPECT_THAT(names, ElementsAre("WebSearch/2.dat", "WebSearch/4.dat", "category.lst",
                                 "discount.dat", "product.dat", "purchase.dat", "store.lst",
                                 "unit.lst", "websearch.dat", "webspider.xml"));
}

TEST_F(DataSnapshotTest, ChangesNothing) {
  const auto before = test::PictureOf(folder_.path());
  ASSERT_EQ(Take(), SnapshotResult::kTaken);
  EXPECT_EQ(test::PictureOf(folder_.path()), before);
}

TEST_F(DataSnapshotTest, IsNotTakenWhileSomeoneHoldsAFile) {
  for (const char* const name : {"product.dat", "backup.dat", "WebSearch/4.dat"}) {
    File holder;
    ASSERT_TRUE(holder.Open(folder_.File(name), File::Mode::kReadWrite));
    EXPECT_EQ(Take(), SnapshotResult::kBusy) << name;
    EXPECT_THAT(snapshot_, IsEmpty());
  }
  EXPECT_EQ(Take(), SnapshotResult::kTaken);
}

TEST_F(DataSnapshotTest, IsNotTakenInTheMiddleOfAChange) {
  const UndoRecord record{UndoKind::kOverwritten, "product.dat", 1392, 4, test::Run(4)};
  folder_.Write("backup.dat", EncodeJournal(std::vector{record}));
  EXPECT_EQ(Take(), SnapshotResult::kUnfinished);
  folder_.WriteText("backup.dat", "of 8 byt");
  EXPECT_EQ(Take(), SnapshotResult::kUnfinished);
  folder_.WriteText("backup.dat", "");  // just made
  EXPECT_EQ(Take(), SnapshotResult::kTaken);
}

/// Makes a journal while the files are read, as a first change would.
class JournalMaker : public platform::SystemCalls {
 public:
  explicit JournalMaker(const test::TempFolder& folder) : folder_(folder) {}
  ssize_t Read(int descriptor, void* buffer, std::size_t size) override {
    folder_.WriteText("backup.dat", "");
    return SystemCalls::Read(descriptor, buffer, size);
  }

 private:
  const test::TempFolder& folder_;
};

TEST_F(DataSnapshotTest, WithoutAJournalNoneMayAppearMeanwhile) {
  fs::remove(folder_.File("backup.dat"));
  ASSERT_EQ(Take(), SnapshotResult::kTaken);
  JournalMaker calls(folder_);
  const platform::SystemCallsInUse in_use(calls);
  EXPECT_EQ(Take(), SnapshotResult::kBusy);
}

TEST_F(DataSnapshotTest, FoldersThatAreNone) {
  EXPECT_EQ(TakeDataSnapshot(folder_.File("missing"), snapshot_), SnapshotResult::kFailed);
  EXPECT_EQ(TakeDataSnapshot(folder_.File("product.dat"), snapshot_), SnapshotResult::kFailed);
  const test::TempFolder empty;
  EXPECT_EQ(TakeDataSnapshot(empty.path(), snapshot_), SnapshotResult::kTaken);
  EXPECT_THAT(snapshot_, IsEmpty());
}

TEST_F(DataSnapshotTest, ADeviceThatFailsGivesNoHalfSnapshot) {
  test::FaultyCalls counting;
  {
    const platform::SystemCallsInUse in_use(counting);
    ASSERT_EQ(Take(), SnapshotResult::kTaken);
  }
  const DataSnapshot whole = snapshot_;
  for (int at = 1; at <= counting.count(); ++at) {
    test::FaultyCalls calls(test::Fault::kIo, at);
    const platform::SystemCallsInUse in_use(calls);
    const SnapshotResult result = Take();
    EXPECT_EQ(snapshot_, result == SnapshotResult::kTaken ? whole : DataSnapshot()) << at;
  }
}

TEST(HoldsNothingTest, EmptyListsAreNothing) {
  const std::string empty_list("\x81\x38\x01\x00\x83\x38\x01\x00", 8);
  EXPECT_TRUE(HoldsNothing({}));
  EXPECT_TRUE(HoldsNothing({{"store.lst", empty_list}, {"category.lst", empty_list}}));
  EXPECT_FALSE(HoldsNothing({{"store.lst", empty_list + "more"}}));
  EXPECT_FALSE(HoldsNothing({{"store.lst", empty_list}, {"product.dat", ""}}));
}

TEST(DataSnapshotWordsTest, NameTheFileThatIsToBlame) {
  EXPECT_EQ(WhyNoSnapshot(SnapshotResult::kBusy, "product.dat"),
            "someone else has product.dat open, or it may not be read");
  EXPECT_EQ(WhyNoSnapshot(SnapshotResult::kFailed, "WebSearch/2.dat"),
            "WebSearch/2.dat cannot be read");
  EXPECT_EQ(WhyNoSnapshot(SnapshotResult::kFailed, "."), "a file cannot be read");
  EXPECT_EQ(WhyNoSnapshot(SnapshotResult::kUnfinished, ""),
            "a change was left in the middle: start the program once, it undoes it");
}

}  // namespace
}  // namespace brovanta
