#include "db/journal.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "db/error_codes.h"
#include "tests/db/journal_fixture.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"
#include "tests/support/truncation_watch.h"

namespace brovanta {
namespace {

using platform::File;
using platform::SystemCallsInUse;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::kJournal;
using test::TruncationWatch;

class JournalTest : public test::JournalFixture {};

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

TEST_F(JournalTest, AFileInThePlaceOfTheResultsFolderSetsItAside) {
  folder_.WriteText("a.dat", "XXXX");
  folder_.WriteText("WebSearch", "a file");
  const UndoRecord overwritten{UndoKind::kOverwritten, "a.dat", 4, 0, Hex("30")};
  WriteJournal({overwritten, {UndoKind::kReplaced, "WebSearch/2.dat", 3, 0, Hex("6f 6c 64")}});
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "XXXX");
  EXPECT_TRUE(folder_.Read("backup.dat.bad"));
  // Where no results were before, there may have been a file all along.
  WriteJournal({overwritten, {UndoKind::kMade, "WebSearch/2.dat", 0, 0, {}}});
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0XXX");
  EXPECT_EQ(folder_.ReadText("WebSearch"), "a file");
  ExpectEmptyJournal();
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

TEST_F(JournalTest, WithoutSpaceForZerosAFileIsCutAllTheSame) {
  folder_.WriteText("a.dat", "0123new");
  WriteJournal({{UndoKind::kOverwritten, "a.dat", 4, 4, {}}});
  FaultyCalls calls(Fault::kFull, 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_TRUE(calls.has_struck());
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
  ExpectEmptyJournal();
}

// A product marked as purchased the first time, with a name and results: a file that has grown, one
// that is replaced, one that is made and written to, and one that came by a rename.
TEST_F(JournalTest, ARollBackOfRecordsThatTellWhatComesAfterIsDoneTheNextTimeToo) {
  const auto with = [](UndoRecord record, AfterChange after) {
    record.after = std::move(after);
    return record;
  };
  for (const Fault fault : {Fault::kIo, Fault::kShort, Fault::kFull}) {
    for (int k = 1;; ++k) {
      folder_.WriteText("a.dat", "01AB45CDEF");
      folder_.WriteText("store.lst", "new");
      folder_.WriteText("made.dat", "made");
      std::filesystem::create_directory(folder_.File("WebSearch"));
      folder_.WriteText("WebSearch/2.dat", "new");
      WriteJournal(
          {// The CRC-32 of "01", two zeros and "45".
           with({UndoKind::kOverwritten, "a.dat", 6, 2, Hex("32 33")},
                {10, 0xC46000EC, Hex("41 42")}),
           with({UndoKind::kOverwritten, "a.dat", 6, 6, {}}, {10, 0xC46000EC, Hex("43 44 45 46")}),
           // The CRC-32 of "new".
           with({UndoKind::kReplaced, "store.lst", 3, 0, Hex("6f 6c 64")}, {3, 0x6BE34445, {}}),
           with({UndoKind::kMade, "made.dat", 0, 0, {}}, {4, 0, Hex("6d 61")}),
           with({UndoKind::kMade, "made.dat", 0, 2, {}}, {4, 0, Hex("64 65")}),
           with({UndoKind::kMade, "WebSearch/2.dat", 0, 0, {}}, {3, 0x6BE34445, Hex("6e 65 77")})});
      FaultyCalls calls(fault, k);
      {
        const SystemCallsInUse in_use(calls);
        (void)RollBackJournal(Path());
      }
      ASSERT_EQ(RollBackJournal(Path()), 0) << k;
      EXPECT_EQ(folder_.ReadText("a.dat"), "012345") << k;
      EXPECT_EQ(folder_.ReadText("store.lst"), "old") << k;
      EXPECT_FALSE(folder_.ReadText("made.dat")) << k;
      EXPECT_FALSE(folder_.ReadText("WebSearch/2.dat")) << k;
      EXPECT_FALSE(folder_.Read("backup.dat.bad")) << k;
      ExpectEmptyJournal();
      if (k > calls.count()) break;
    }
  }
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
  folder_.WriteText("a.dat", "abcd");
  WriteJournal({{UndoKind::kOverwritten, "a.dat", 2, 2, {}}});
  TruncationWatch calls(folder_, "a.dat", off_t{2});
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(calls.synced, Hex("61 62 00 00")) << "on the device before it is cut";
  EXPECT_EQ(folder_.ReadText("a.dat"), "ab");
}

}  // namespace
}  // namespace brovanta
