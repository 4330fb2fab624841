#include "db/journal.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "db/error_codes.h"
#include "db/shopping_database.h"
#include "db/unit_of_work.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using platform::File;
using platform::SystemCallsInUse;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::TempFolder;

const char* const kJournal = "backup.dat";

class JournalTest : public testing::Test {
 protected:
  std::string Path(const char* name = kJournal) const { return folder_.path() + "\\" + name; }

  void WriteJournal(const std::vector<UndoRecord>& records) const {
    folder_.Write(kJournal, EncodeJournal(records));
  }
  void ExpectEmptyJournal() const { EXPECT_EQ(folder_.Read(kJournal), EncodeEmptyJournal()); }

  TempFolder folder_;
};

TEST_F(JournalTest, StandsBesideTheFileInEitherWayOfWriting) {
  EXPECT_EQ(JournalBeside("/data\\product.dat"), "/data\\backup.dat");
  EXPECT_EQ(JournalBeside("/data/product.dat"), "/data/backup.dat");
  EXPECT_EQ(JournalBeside("product.dat"), "backup.dat");
}

TEST_F(JournalTest, WithoutAJournalOneQuestionIsAsked) {
  FaultyCalls calls;
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(calls.count(), 1);
}

TEST_F(JournalTest, AnEmptyJournalChangesNothing) {
  for (const Bytes& empty : {Bytes(), EncodeEmptyJournal()}) {
    folder_.Write(kJournal, empty);
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_EQ(folder_.Read(kJournal), empty);
  }
}

TEST_F(JournalTest, OverwrittenBytesComeBackAndTheFileIsCut) {
  folder_.WriteText("a.dat", "01XX45XXXX");
  folder_.WriteText("b.dat", "b");
  WriteJournal({{UndoKind::kOverwritten, "a.dat", 6, 2, Hex("32 33")},
                {UndoKind::kOverwritten, "a.dat", 6, 6, {}}});
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "012345");
  EXPECT_EQ(folder_.ReadText("b.dat"), "b");
  ExpectEmptyJournal();
}

TEST_F(JournalTest, ReplacedFilesComeBackAndMadeOnesGo) {
  folder_.WriteText("store.lst", "the new list");
  folder_.WriteText("made.dat", "made");
  WriteJournal({{UndoKind::kReplaced, "store.lst", 3, 0, Hex("6f 6c 64")},
                {UndoKind::kMade, "made.dat", 0, 0, {}},
                {UndoKind::kMade, "never made.dat", 0, 0, {}}});
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("store.lst"), "old");
  EXPECT_FALSE(folder_.ReadText("made.dat"));
  ExpectEmptyJournal();
}

TEST_F(JournalTest, ResultsComeBackWithTheirFolder) {
  WriteJournal({{UndoKind::kReplaced, "WebSearch/2.dat", 3, 0, Hex("6f 6c 64")},
                {UndoKind::kMade, "WebSearch/3.dat", 0, 0, {}}});
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("WebSearch/2.dat"), "old");
  EXPECT_FALSE(folder_.ReadText("WebSearch/3.dat"));
  ExpectEmptyJournal();
}

TEST_F(JournalTest, AForeignJournalIsSetAsideUnderTheNextFreeName) {
  for (const char* aside : {"backup.dat.bad", "backup.dat.bad2"}) {
    folder_.WriteText(kJournal, "a backup of another kind");
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_FALSE(folder_.Read(kJournal));
    EXPECT_EQ(folder_.ReadText(aside), "a backup of another kind");
  }
}

TEST_F(JournalTest, ATornJournalIsSetAsideAndNotFollowed) {
  folder_.WriteText("a.dat", "0123");
  Bytes torn = EncodeJournal(
      std::vector{UndoRecord{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("41 42 43 44")}});
  torn.pop_back();
  folder_.Write(kJournal, torn);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
  EXPECT_EQ(folder_.Read("backup.dat.bad"), torn);
}

TEST_F(JournalTest, AJournalOfOtherFilesIsSetAsideBeforeAnythingChanges) {
  for (const char* other : {"missing.dat", "short.dat"}) {
    folder_.WriteText("a.dat", "0123");
    folder_.WriteText("short.dat", "012");
    WriteJournal({{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("41")},
                  {UndoKind::kOverwritten, other, 4, 0, Hex("41")}});
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
    EXPECT_EQ(folder_.ReadText("short.dat"), "012");
    EXPECT_FALSE(folder_.Read(kJournal));
  }
}

TEST_F(JournalTest, WhatSomeoneElseHoldsIsRolledBackLater) {
  folder_.WriteText("a.dat", "XXXX");
  WriteJournal({{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("30 31 32 33")}});
  for (const char* name : {kJournal, "a.dat"}) {
    File holder;
    ASSERT_TRUE(holder.Open(Path(name), File::Mode::kRead));
    EXPECT_EQ(RollBackJournal(Path()), ERR_OPEN);
    EXPECT_EQ(folder_.ReadText("a.dat"), "XXXX");
  }
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
}

TEST_F(JournalTest, WhatSomeoneElseHoldsKeepsEveryFileFromBeingPutBack) {
  for (const UndoRecord& held : {UndoRecord{UndoKind::kReplaced, "held", 3, 0, Hex("6f 6c 64")},
                                 UndoRecord{UndoKind::kMade, "held", 0, 0, {}}}) {
    folder_.WriteText("a.dat", "XXXX");
    folder_.WriteText("held", "new");
    WriteJournal({{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("30 31 32 33")}, held});
    File holder;
    ASSERT_TRUE(holder.Open(Path("held"), File::Mode::kRead));
    EXPECT_EQ(RollBackJournal(Path()), ERR_OPEN);
    EXPECT_EQ(folder_.ReadText("a.dat"), "XXXX");
    EXPECT_EQ(folder_.ReadText("held"), "new");
    holder.Close();
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
  }
}

TEST_F(JournalTest, AFolderUnderARecordsNameSetsItAside) {
  std::filesystem::create_directory(folder_.File("WebSearch"));
  for (const UndoKind kind : {UndoKind::kOverwritten, UndoKind::kReplaced, UndoKind::kMade}) {
    folder_.WriteText("a.dat", "XXXX");
    WriteJournal(
        {{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("30")}, {kind, "WebSearch", 0, 0, {}}});
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_EQ(folder_.ReadText("a.dat"), "XXXX");
    EXPECT_FALSE(folder_.Read(kJournal));
  }
  EXPECT_TRUE(std::filesystem::is_directory(folder_.File("WebSearch")));
}

TEST_F(JournalTest, AJournalThatNamesItselfIsSetAside) {
  for (const UndoKind kind : {UndoKind::kOverwritten, UndoKind::kReplaced, UndoKind::kMade}) {
    WriteJournal({{kind, kJournal, 0, 0, {}}});
    EXPECT_EQ(RollBackJournal(Path()), 0);
    EXPECT_FALSE(folder_.Read(kJournal));
  }
}

TEST_F(JournalTest, OfAHugeForeignFileTheFirstBytesAreRead) {
  class Reads : public platform::SystemCalls {
   public:
    ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override {
      bytes += size;
      return SystemCalls::ReadAt(descriptor, buffer, size, offset);
    }
    std::size_t bytes = 0;
  };
  folder_.WriteText(kJournal, "a backup of another kind");
  std::filesystem::resize_file(folder_.File(kJournal), std::uintmax_t{200} << 20);
  Reads reads;
  const SystemCallsInUse in_use(reads);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(reads.bytes, 24U);
  EXPECT_TRUE(std::filesystem::exists(folder_.File("backup.dat.bad")));
}

TEST_F(JournalTest, MayHoldRecordsBeyondItsFirstWords) {
  EXPECT_FALSE(MayHoldRecords(Path()));
  for (const std::size_t size : {0U, 8U, 9U}) {
    folder_.Write(kJournal, test::Run(size));
    EXPECT_EQ(MayHoldRecords(Path()), size > 8) << size;
  }
  FaultyCalls calls(Fault::kIo, 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_TRUE(MayHoldRecords(Path()));
}

TEST_F(JournalTest, ARollBackThatFailsAnywhereIsDoneTheNextTime) {
  for (int k = 1;; ++k) {
    folder_.WriteText("a.dat", "01XX45XXXX");
    folder_.WriteText("store.lst", "the new list");
    folder_.WriteText("made.dat", "made");
    WriteJournal({{UndoKind::kOverwritten, "a.dat", 6, 2, Hex("32 33")},
                  {UndoKind::kReplaced, "store.lst", 3, 0, Hex("6f 6c 64")},
                  {UndoKind::kMade, "made.dat", 0, 0, {}}});
    bool struck = false;
    {
      FaultyCalls calls(Fault::kIo, k);
      const SystemCallsInUse in_use(calls);
      (void)RollBackJournal(Path());
      struck = calls.has_struck();
    }
    ASSERT_EQ(RollBackJournal(Path()), 0) << k;
    EXPECT_EQ(folder_.ReadText("a.dat"), "012345") << k;
    EXPECT_EQ(folder_.ReadText("store.lst"), "old") << k;
    EXPECT_FALSE(folder_.ReadText("made.dat")) << k;
    ExpectEmptyJournal();
    if (!struck) break;
  }
}

TEST_F(JournalTest, OneWriterHoldsIt) {
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  Journal other;
  EXPECT_EQ(other.Hold(Path()), ERR_OPEN);
  journal.Release();
  EXPECT_EQ(other.Hold(Path()), 0);
}

/// Counts the syncs; those behind a truncation can fail.
class CountedSyncs : public platform::SystemCalls {
 public:
  int Truncate(int descriptor, off_t size) override {
    truncated = true;
    return SystemCalls::Truncate(descriptor, size);
  }
  int Sync(int /*descriptor*/) override {
    ++count;
    if (!fails || !truncated) return 0;
    fails = false;
    errno = EIO;
    return -1;
  }
  int count = 0;
  bool fails = false;
  bool truncated = false;
};

TEST_F(JournalTest, ThatItIsEmptyReachesTheDeviceOnceForEachProgram) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  for (int time = 0; time < 3; ++time) {
    Journal journal;
    ASSERT_EQ(journal.Hold(Path()), 0);
    EXPECT_EQ(calls.count, 2) << "the journal and its folder, the first time only";
  }
}

TEST_F(JournalTest, OneThatMayBeFullOnTheDeviceIsNotHeld) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  calls.fails = calls.truncated = true;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  EXPECT_EQ(journal.Hold(Path()), ERR_OPEN);
  EXPECT_EQ(journal.Hold(Path()), 0);
}

TEST_F(JournalTest, AfterARollBackThatMayNotHaveReachedTheDeviceItIsSyncedAgain) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  journal.Release();
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  calls.fails = true;
  EXPECT_EQ(RollBackJournal(Path()), ERR_IO);
  ExpectEmptyJournal();
  calls.count = 0;
  EXPECT_EQ(journal.Hold(Path()), 0);
  EXPECT_EQ(calls.count, 2);
}

TEST_F(JournalTest, ThatIsTrueOfEveryNameOfTheFolder) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  journal.Release();
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  calls.fails = true;
  EXPECT_EQ(RollBackJournal(folder_.path() + "/./backup.dat"), ERR_IO);
  calls.count = 0;
  EXPECT_EQ(journal.Hold(Path()), 0);
  EXPECT_EQ(calls.count, 2);
}

TEST_F(JournalTest, AUnitPutBackKeepsItsRecordsWhenEmptyingThemFails) {
  folder_.WriteText("a.lst", "old");
  folder_.WriteText("b.lst", "old");
  class SecondRenameFails : public CountedSyncs {
   public:
    int Rename(const char* from, const char* to) override {
      if (++renames_ != 2) return SystemCalls::Rename(from, to);
      errno = EIO;
      return -1;
    }

   private:
    int renames_ = 0;
  };
  SecondRenameFails calls;
  calls.fails = true;
  {
    const SystemCallsInUse in_use(calls);
    UnitOfWork work(Path());
    work.Replace(Path("a.lst"), Hex("41"));
    work.Replace(Path("b.lst"), Hex("41"));
    EXPECT_EQ(work.Commit(), ERR_OPEN);
  }
  EXPECT_FALSE(calls.fails) << "it has struck";
  EXPECT_TRUE(MayHoldRecords(Path()));
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.lst"), "old");
}

TEST_F(JournalTest, WhatIsToBeRolledBackIsNotOverwritten) {
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  const auto before = folder_.Read(kJournal);
  Journal journal;
  EXPECT_EQ(journal.Hold(Path()), ERR_OPEN);
  EXPECT_EQ(folder_.Read(kJournal), before);
}

TEST_F(JournalTest, RecordsStandInItUntilItIsEmptied) {
  const std::vector<UndoRecord> records = {{UndoKind::kMade, "a.dat", 0, 0, {}}};
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  ASSERT_EQ(journal.Write(records), 0);
  EXPECT_TRUE(journal.is_active());
  EXPECT_EQ(folder_.Read(kJournal), EncodeJournal(records));
  ASSERT_EQ(journal.Empty(), 0);
  EXPECT_FALSE(journal.is_active());
  ExpectEmptyJournal();
}

// What is only cut off may stand there again after a power loss.
TEST_F(JournalTest, ZerosStandInTheJournalWhenItIsCut) {
  class Watch : public platform::SystemCalls {
   public:
    explicit Watch(const TempFolder& folder) : folder_(folder) {}
    int Truncate(int descriptor, off_t size) override {
      cut = folder_.Read(kJournal).value_or(Bytes());
      return SystemCalls::Truncate(descriptor, size);
    }
    int Sync(int descriptor) override {
      ++syncs;
      return SystemCalls::Sync(descriptor);
    }
    Bytes cut;
    int syncs = 0;

   private:
    const TempFolder& folder_;
  };
  // Longer than one piece of zeros.
  const std::vector<UndoRecord> records = {
      {UndoKind::kReplaced, "a.dat", 100000, 0, Bytes(100000, std::byte{'a'})}};
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  ASSERT_EQ(journal.Write(records), 0);
  Watch calls(folder_);
  const SystemCallsInUse in_use(calls);
  ASSERT_EQ(journal.Empty(), 0);
  const std::size_t size = EncodeJournal(records).size();
  EXPECT_EQ(calls.cut, test::Join({EncodeEmptyJournal(), Bytes(size - 8)}));
  EXPECT_EQ(calls.syncs, 1) << "both wait for the device together";
  ExpectEmptyJournal();
}

TEST_F(JournalTest, AnEmptiedJournalIsCutAndNoFileChanges) {
  folder_.WriteText("a.dat", "new");
  for (const std::size_t zeros : {1, 16, 500}) {
    folder_.Write(kJournal, test::Join({EncodeEmptyJournal(), Bytes(zeros)}));
    Journal journal;
    EXPECT_EQ(journal.Hold(Path()), ERR_OPEN);
    EXPECT_TRUE(MayHoldRecords(Path()));
    EXPECT_EQ(RollBackJournal(Path()), 0);
    ExpectEmptyJournal();
    EXPECT_EQ(journal.Hold(Path()), 0);
    EXPECT_EQ(folder_.ReadText("a.dat"), "new");
  }
  // What stands behind the zeros goes with them.
  folder_.Write(kJournal, test::Join({EncodeEmptyJournal(), Bytes(16), Hex("61 62")}));
  EXPECT_EQ(RollBackJournal(Path()), 0);
  ExpectEmptyJournal();
}

TEST_F(JournalTest, WhatIsPutBackIsWipedBehindItsEnd) {
  class Watch : public platform::SystemCalls {
   public:
    explicit Watch(const TempFolder& folder) : folder_(folder) {}
    int Truncate(int descriptor, off_t size) override {
      if (size == 2) cut = folder_.ReadText("a.dat").value_or("");
      return SystemCalls::Truncate(descriptor, size);
    }
    std::string cut;

   private:
    const TempFolder& folder_;
  };
  folder_.WriteText("a.dat", "abcd");
  WriteJournal({{UndoKind::kOverwritten, "a.dat", 2, 2, {}}});
  Watch calls(folder_);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(calls.cut, std::string("ab\0\0", 4));
  EXPECT_EQ(folder_.ReadText("a.dat"), "ab");
}

TEST_F(JournalTest, ARecordThatDoesNotFitOntoTheDiskLeavesItEmpty) {
  const std::vector<UndoRecord> records = {{UndoKind::kMade, "a.dat", 0, 0, {}}};
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  {
    // One call asks for the folder, one syncs it, one closes it; then the records are written.
    FaultyCalls calls(Fault::kNoSpace, 4);
    const SystemCallsInUse in_use(calls);
    EXPECT_EQ(journal.Write(records), ERR_IO);
    EXPECT_TRUE(calls.has_struck());
  }
  EXPECT_FALSE(journal.is_active());
  EXPECT_EQ(folder_.Read(kJournal), Bytes());
}

TEST_F(JournalTest, OpeningTheDatabaseRollsBack) {
  folder_.WriteText("product.dat", "torn");
  WriteJournal({{UndoKind::kOverwritten, "product.dat", 2, 0, Hex("41 42")}});
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder_.path()), ERR_OPEN);  // there are no lists
  EXPECT_EQ(folder_.ReadText("product.dat"), "AB");
}

TEST_F(JournalTest, OpeningTheDatabaseLoadsTheListsWhenTheRollBackFails) {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, NameList().Encode());
  }
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  File holder;
  ASSERT_TRUE(holder.Open(Path(), File::Mode::kRead));
  ShoppingDatabase database;
  EXPECT_EQ(database.Open(folder_.path()), ERR_OPEN);
  EXPECT_TRUE(database.units().loaded());
  holder.Close();
  EXPECT_EQ(database.Open(folder_.path()), 0);
}

// A program ended when it had written two lists with new names; another one opens the folder while
// somebody holds the journal.
class UndoneNamesTest : public JournalTest {
 protected:
  void SetUp() override {
    const Bytes empty = NameList().Encode();
    NameList names;
    ListItem item;
    item.Id = 5000;
    item.Name.Assign("undone");
    names.Insert(item);
    for (const char* list : {"store.lst", "category.lst"}) folder_.Write(list, names.Encode());
    folder_.Write("unit.lst", empty);
    folder_.Write("product.dat", Hex("81 38 01 00 00 00 00 00 83 38 01 00"));
    const auto size = static_cast<std::int64_t>(empty.size());
    WriteJournal({{UndoKind::kReplaced, "store.lst", size, 0, empty},
                  {UndoKind::kMade, "category.lst", 0, 0, {}}});
    File holder;
    ASSERT_TRUE(holder.Open(Path(), File::Mode::kRead));
    ASSERT_EQ(database_.Open(folder_.path()), ERR_OPEN);
    ASSERT_NE(database_.stores().Find(5000), nullptr);
    ASSERT_NE(database_.categories().Find(5000), nullptr);
  }
  void ExpectNoUndoneName() {
    EXPECT_EQ(database_.stores().Find(5000), nullptr);
    EXPECT_EQ(database_.categories().Find(5000), nullptr);
    EXPECT_EQ(folder_.Read("store.lst"), NameList().Encode());
    EXPECT_FALSE(folder_.Read("category.lst"));
  }

  ShoppingDatabase database_;
};

TEST_F(UndoneNamesTest, GoWhenAListOfRecordsIsLoaded) {
  ProductFilter products;
  products.kind = kProductKind;
  EXPECT_EQ(database_.products().Load(&products), 0);
  ExpectNoUndoneName();
}

TEST_F(UndoneNamesTest, GoBeforeANewNameIsWritten) {
  NameRef store{0, "new"};
  EXPECT_EQ(database_.ResolveNames(&store, nullptr, nullptr), 0);
  EXPECT_EQ(store.Id, 5000) << "the id of the name that is gone is free";
  EXPECT_EQ(database_.stores().size(), 1U);
  EXPECT_EQ(database_.categories().Find(5000), nullptr);
}

TEST_F(UndoneNamesTest, GoLaterWhenAListIsInUse) {
  File holder;
  ASSERT_TRUE(holder.Open(Path("unit.lst"), File::Mode::kRead));
  EXPECT_EQ(database_.RollBack(), 0);
  ExpectNoUndoneName();
  EXPECT_TRUE(database_.units().loaded());
  holder.Close();
  EXPECT_EQ(database_.RollBack(), 0);
  ExpectNoUndoneName();
}

TEST_F(JournalTest, TheFirstChangeRollsBackBeforeItReads) {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, NameList().Encode());
  }
  ShoppingDatabase database;
  ASSERT_EQ(database.Open(folder_.path()), 0);
  folder_.Write("product.dat", Hex("81 38 01 00 09 00 00 00 ff ff ff ff"));  // torn since
  WriteJournal({{UndoKind::kOverwritten, "product.dat", 12, 4, Hex("06 00 00 00")},
                {UndoKind::kOverwritten, "product.dat", 12, 8, Hex("83 38 01 00")}});
  ProductFields fields;
  fields.name = "Milk";
  const auto added = database.products().Add(kProductKind, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(added->Id, 7);
}

}  // namespace
}  // namespace brovanta
