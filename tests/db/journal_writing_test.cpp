// The journal as a unit of work writes and empties it.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "db/error_codes.h"
#include "db/unit_of_work.h"
#include "tests/db/journal_fixture.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/truncation_watch.h"

namespace brovanta {
namespace {

using platform::SystemCallsInUse;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::kJournal;
using test::TruncationWatch;

class CountedSyncs;

class JournalWritingTest : public test::JournalFixture {
 protected:
  void RollBackInVain(Journal& journal, CountedSyncs& calls, const std::string& path);
};

TEST_F(JournalWritingTest, OneWriterHoldsIt) {
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

TEST_F(JournalWritingTest, ThatItIsEmptyReachesTheDeviceOnceForEachProgram) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  for (int time = 0; time < 3; ++time) {
    Journal journal;
    ASSERT_EQ(journal.Hold(Path()), 0);
    EXPECT_EQ(calls.count, 2) << "the journal and its folder, the first time only";
  }
}

/// Gives every change of the journal a time of its own, of whichever program.
class Times : public CountedSyncs {
 public:
  Times()
      : changes_(static_cast<int*>(mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE,
                                        MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    if (changes_ == MAP_FAILED) std::abort();
  }
  ~Times() override { munmap(changes_, sizeof *changes_); }
  ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override {
    ++*changes_;
    return SystemCalls::WriteAt(descriptor, bytes, size, offset);
  }
  int Truncate(int descriptor, off_t size) override {
    ++*changes_;
    return CountedSyncs::Truncate(descriptor, size);
  }
  int Sync(int descriptor) override {
    if (ends_behind_the_cut && truncated) _exit(0);
    return CountedSyncs::Sync(descriptor);
  }
  int StatusOf(int descriptor, struct stat* status) override {
    const int result = SystemCalls::StatusOf(descriptor, status);
    status->st_ctim = {1714996800, *changes_};
    return result;
  }
  bool ends_behind_the_cut = false;

 private:
  int* changes_;
};

// It was settled; then another program wrote into it, cut it and was killed before that had reached
// the device: there its records stand.
TEST_F(JournalWritingTest, OneThatAnotherProgramLeftSinceIsSettledAgain) {
  const std::vector<UndoRecord> records = {{UndoKind::kMade, "a.dat", 0, 0, {}}};
  folder_.Write(kJournal, EncodeEmptyJournal());
  Times calls;
  const SystemCallsInUse in_use(calls);
  const auto syncs_of_holding = [&] {
    const int before = calls.count;
    Journal journal;
    EXPECT_EQ(journal.Hold(Path()), 0);
    return calls.count - before;
  };
  EXPECT_EQ(syncs_of_holding(), 2);
  {
    Journal journal;
    ASSERT_EQ(journal.Hold(Path()), 0);
    ASSERT_EQ(journal.Write(records), 0);
    ASSERT_EQ(journal.Empty(), 0);
  }
  EXPECT_EQ(syncs_of_holding(), 0) << "as this program left it";
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Journal journal;
    if (journal.Hold(Path()) != 0 || journal.Write(records) != 0) _exit(2);
    calls.ends_behind_the_cut = true;
    (void)journal.Empty();
    _exit(1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
  ExpectEmptyJournal();
  EXPECT_EQ(syncs_of_holding(), 2);
  EXPECT_EQ(syncs_of_holding(), 0);
}

TEST_F(JournalWritingTest, OneThatMayBeFullOnTheDeviceIsNotHeld) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  CountedSyncs calls;
  calls.fails = calls.truncated = true;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  EXPECT_EQ(journal.Hold(Path()), ERR_OPEN);
  EXPECT_EQ(journal.Hold(Path()), 0);
}

// The journal was known to be empty on the device; a roll-back through this path fails then.
void JournalWritingTest::RollBackInVain(Journal& journal, CountedSyncs& calls,
                                        const std::string& path) {
  folder_.Write(kJournal, EncodeEmptyJournal());
  ASSERT_EQ(journal.Hold(Path()), 0);
  journal.Release();
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  calls.fails = true;
  EXPECT_EQ(RollBackJournal(path), ERR_IO);
}

TEST_F(JournalWritingTest, AfterARollBackThatMayNotHaveReachedTheDeviceItIsSyncedAgain) {
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  RollBackInVain(journal, calls, Path());
  ExpectEmptyJournal();
  calls.count = 0;
  EXPECT_EQ(journal.Hold(Path()), 0);
  EXPECT_EQ(calls.count, 2);
}

TEST_F(JournalWritingTest, ThatIsTrueOfEveryNameOfTheFolder) {
  CountedSyncs calls;
  const SystemCallsInUse in_use(calls);
  Journal journal;
  RollBackInVain(journal, calls, folder_.path() + "/./backup.dat");
  calls.count = 0;
  EXPECT_EQ(journal.Hold(Path()), 0);
  EXPECT_EQ(calls.count, 2);
}

TEST_F(JournalWritingTest, AUnitPutBackKeepsItsRecordsWhenEmptyingThemFails) {
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
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_FALSE(calls.fails) << "it has struck";
  EXPECT_TRUE(MayHoldRecords(Path()));
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.lst"), "old");
}

TEST_F(JournalWritingTest, WhatIsToBeRolledBackIsNotOverwritten) {
  WriteJournal({{UndoKind::kMade, "a.dat", 0, 0, {}}});
  const auto before = folder_.Read(kJournal);
  Journal journal;
  EXPECT_EQ(journal.Hold(Path()), ERR_OPEN);
  EXPECT_EQ(folder_.Read(kJournal), before);
}

TEST_F(JournalWritingTest, RecordsStandInItUntilItIsEmptied) {
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
TEST_F(JournalWritingTest, ZerosStandInTheJournalWhenItIsCut) {
  // One that stands in its first block, and one longer than one piece of zeros.
  for (const std::int64_t old_size : {900, 100000}) {
    const std::vector<UndoRecord> records = {
        {UndoKind::kReplaced, "a.dat", old_size, 0,
         Bytes(static_cast<std::size_t>(old_size), std::byte{'a'})}};
    Journal journal;
    ASSERT_EQ(journal.Hold(Path()), 0);
    ASSERT_EQ(journal.Write(records), 0);
    TruncationWatch calls(folder_, kJournal, off_t{8});
    const SystemCallsInUse in_use(calls);
    ASSERT_EQ(journal.Empty(), 0);
    const std::size_t size = EncodeJournal(records).size();
    EXPECT_EQ(calls.cut, test::Join({EncodeEmptyJournal(), Bytes(size - 8)}));
    EXPECT_EQ(calls.syncs, old_size == 900 ? 1 : 2)
        << "what is cut off before it was written does not reach the device";
    ExpectEmptyJournal();
  }
}

// Where new space is taken for every write, nothing that is cut off can come back.
TEST_F(JournalWritingTest, WithoutSpaceForTheZerosItIsEmptiedAllTheSame) {
  const std::vector<UndoRecord> records = {
      {UndoKind::kReplaced, "a.dat", 3000, 0, Bytes(3000, std::byte{'a'})}};
  Journal journal;
  ASSERT_EQ(journal.Hold(Path()), 0);
  ASSERT_EQ(journal.Write(records), 0);
  FaultyCalls calls(Fault::kFull, 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(journal.Empty(), 0);
  EXPECT_TRUE(calls.has_struck());
  EXPECT_FALSE(journal.is_active());
  ExpectEmptyJournal();
}

// It cannot be cut, its records cannot be written again, and then the first file could not be put
// back, but the second one could.
TEST_F(JournalWritingTest, WithoutRecordsNothingIsPutBack) {
  class Failing : public CountedSyncs {
   public:
    int Truncate(int /*descriptor*/, off_t /*size*/) override {
      truncated = true;
      return Fail();
    }
    ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override {
      if (truncated && offset == 0 && !written_again_) {
        written_again_ = true;
        return Fail();
      }
      return SystemCalls::WriteAt(descriptor, bytes, size, offset);
    }
    int MakeTemporary(char* pattern) override {
      if (written_again_ && !temporary_failed_) {
        temporary_failed_ = true;
        return Fail();
      }
      return SystemCalls::MakeTemporary(pattern);
    }

   private:
    static int Fail() {
      errno = EIO;
      return -1;
    }
    bool written_again_ = false;
    bool temporary_failed_ = false;
  };
  folder_.WriteText("a.lst", "old");
  folder_.WriteText("b.lst", "old");
  {
    Failing calls;
    const SystemCallsInUse in_use(calls);
    UnitOfWork work(Path());
    work.Replace(Path("a.lst"), Hex("41"));
    work.Replace(Path("b.lst"), Hex("41"));
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(RollBackJournal(Path()), 0);
  EXPECT_EQ(folder_.ReadText("a.lst"), "A");
  EXPECT_EQ(folder_.ReadText("b.lst"), "A");
}

TEST_F(JournalWritingTest, ARecordThatDoesNotFitOntoTheDiskLeavesItEmpty) {
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

}  // namespace
}  // namespace brovanta
