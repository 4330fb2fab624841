#include "db/unit_of_work.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

#include "db/error_codes.h"
#include "db/journal.h"
#include "platform/text_file.h"
#include "tests/db/unit_of_work_fixture.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using platform::File;
using platform::SystemCallsInUse;
using test::Bytes;
using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::TempFolder;
using test::WriteLimit;

class UnitOfWorkTest : public test::UnitOfWorkFixture {};

TEST_F(UnitOfWorkTest, NothingChangesBeforeCommit) {
  folder_.WriteText("a.dat", "0123456789");
  {
    UnitOfWork work(Path("backup.dat"));
    work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
    work.Replace(Path("b.lst"), Hex("42"));
    EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_FALSE(folder_.ReadText("b.lst"));
}

TEST_F(UnitOfWorkTest, RemovesFilesAndReplacesResults) {
  folder_.WriteText("a.dat", "old");
  std::filesystem::create_directory(folder_.File("WebSearch"));
  folder_.WriteText("WebSearch/2.dat", "old");
  UnitOfWork work(Path("backup.dat"));
  work.Remove(Path("a.dat"));
  work.Remove(Path("none.dat"));
  work.Replace(Path("WebSearch\\2.dat"), Hex("41"));
  work.Replace(Path("WebSearch\\3.dat"), Hex("42"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_FALSE(folder_.ReadText("a.dat"));
  EXPECT_EQ(folder_.ReadText("WebSearch/2.dat"), "A");
  EXPECT_EQ(folder_.ReadText("WebSearch/3.dat"), "B");
}

TEST_F(UnitOfWorkTest, AHeldFileIsNotRemoved) {
  folder_.WriteText("a.dat", "old");
  File holder;
  ASSERT_TRUE(holder.Open(Path("a.dat"), File::Mode::kRead));
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("b.lst"), Hex("41"));
  work.Remove(Path("a.dat"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "old");
  EXPECT_FALSE(folder_.ReadText("b.lst"));
}

TEST_F(UnitOfWorkTest, RemovalsAndResultsArePutBackWhateverCallFails) {
  for (int at = 1;; ++at) {
    folder_.WriteText("a.dat", "old");
    std::filesystem::create_directory(folder_.File("WebSearch"));
    folder_.WriteText("WebSearch/2.dat", "old");
    std::filesystem::remove(folder_.File("WebSearch/3.dat"));
    FaultyCalls calls(Fault::kIo, at);
    int code = 0;
    {
      const SystemCallsInUse in_use(calls);
      UnitOfWork work(Path("backup.dat"));
      work.Replace(Path("WebSearch\\2.dat"), Hex("41"));
      work.Replace(Path("WebSearch\\3.dat"), Hex("42"));
      work.Remove(Path("a.dat"));
      code = work.Commit();
    }
    ASSERT_EQ(RollBackJournal(Path("backup.dat")), 0);
    ASSERT_EQ(folder_.ReadText("WebSearch/2.dat"), code == 0 ? "A" : "old") << at;
    ASSERT_EQ(folder_.ReadText("WebSearch/3.dat").has_value(), code == 0) << at;
    ASSERT_EQ(folder_.ReadText("a.dat").has_value(), code != 0) << at;
    if (!calls.has_struck()) break;
  }
}

TEST_F(UnitOfWorkTest, CommitOverwritesAndExtends) {
  folder_.WriteText("a.dat", "0123456789");
  UnitOfWork work(Path("backup.dat"));
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 2, Hex("41 42"));
  work.Write(file, 9, Hex("43 44 45"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "01AB45678CDE");
}

TEST_F(UnitOfWorkTest, LaterChangesWinOverEarlierOnes) {
  folder_.WriteText("a.dat", "0123");
  UnitOfWork work(Path("backup.dat"));
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 0, Hex("41 41 41"));
  work.Write(file, 1, Hex("42"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "ABA3");
}

TEST_F(UnitOfWorkTest, ReplaceMakesOrReplacesAWholeFile) {
  folder_.WriteText("old.lst", "a longer text than the new one");
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("old.lst"), Hex("41 42"));
  work.Replace(Path("new.lst"), Hex("43"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("old.lst"), "AB");
  EXPECT_EQ(folder_.ReadText("new.lst"), "C");
}

TEST_F(UnitOfWorkTest, AdoptedFilesAreHeldUntilCommit) {
  folder_.WriteText("a.dat", "0123");
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  File other;
  EXPECT_FALSE(other.Open(Path("a.dat"), File::Mode::kRead));
  ASSERT_EQ(work.Commit(), 0);
  EXPECT_TRUE(other.Open(Path("a.dat"), File::Mode::kRead));
}

TEST_F(UnitOfWorkTest, AFailureInTheSecondFilePutsTheFirstBack) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("b.dat", std::string(300, 'b'));
  UnitOfWork work(Path("backup.dat"));
  const auto first = Adopt(work, "a.dat");
  work.Write(first, 0, Hex("41 42 43"));
  work.Write(first, 8, Hex("44 45 46 47"));
  work.Write(Adopt(work, "b.dat"), 298, Hex("48 49 4A 4B"));
  {
    const WriteLimit full(300);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(folder_.ReadText("b.dat"), std::string(300, 'b'));
}

TEST_F(UnitOfWorkTest, OverlappingChangesArePutBackToTheFirstState) {
  const std::string old(200, '0');
  folder_.WriteText("a.dat", old);
  UnitOfWork work(Path("backup.dat"));
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 0, Hex("41 41 41 41"));
  work.Write(file, 2, Hex("42 42 42 42"));
  work.Write(file, 199, Hex("43 43 43 43"));
  {
    const WriteLimit full(202);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), old);
}

TEST_F(UnitOfWorkTest, AFileTooLargeToBePutBackIsNotReplaced) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("b.lst", "old");
  std::filesystem::resize_file(folder_.File("b.lst"), platform::kLargestWholeFile + 1);
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("b.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_IO);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(std::filesystem::file_size(folder_.File("b.lst")), platform::kLargestWholeFile + 1);
}

TEST_F(UnitOfWorkTest, AFailurePutsReplacementsBack) {
  const std::string old(300, '0');
  folder_.WriteText("a.dat", old);
  folder_.WriteText("old.lst", "old names");
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("old.lst"), Hex("41"));
  work.Replace(Path("new.lst"), Hex("42"));
  work.Write(Adopt(work, "a.dat"), 299, Hex("43 43 43 43"));
  {
    const WriteLimit full(301);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), old);
  EXPECT_EQ(folder_.ReadText("old.lst"), "old names");
  EXPECT_FALSE(folder_.ReadText("new.lst"));
}

TEST_F(UnitOfWorkTest, AReplacementThatCannotBeWrittenIsAWriteErrorAndUndoesTheRest) {
  folder_.WriteText("a.dat", "0123");
  folder_.WriteText("names.lst", "old");
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("names.lst"), Bytes(500));
  {
    const WriteLimit full(200);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
  EXPECT_EQ(folder_.ReadText("names.lst"), "old");
}

TEST_F(UnitOfWorkTest, AFileHeldBySomeoneElseIsNotReplaced) {
  folder_.WriteText("names.lst", "old");
  folder_.WriteText("a.dat", "0123");
  File holder;
  ASSERT_TRUE(holder.Open(Path("names.lst"), File::Mode::kRead));
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("names.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("names.lst"), "old");
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
}

TEST_F(UnitOfWorkTest, AFolderInTheWayIsNotReplaced) {
  std::filesystem::create_directory(folder_.File("names.lst"));
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("names.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.File("names.lst")));
}

TEST_F(UnitOfWorkTest, AFileIsMadeByCommitAndNotBefore) {
  UnitOfWork work(Path("backup.dat"));
  const auto file = work.Make(Path("a.dat"), Hex("41 42"));
  work.Write(file, 2, Hex("43"));
  EXPECT_FALSE(folder_.ReadText("a.dat"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "ABC");
}

TEST_F(UnitOfWorkTest, AFileThatIsThereIsNotMadeAnew) {
  folder_.WriteText("a.dat", "0123");
  UnitOfWork work(Path("backup.dat"));
  work.Write(work.Make(Path("a.dat"), Hex("41")), 1, Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
}

// One change of each kind, over files with an old state.
class EveryKindOfChange {
 public:
  explicit EveryKindOfChange(const TempFolder& folder) : folder_(folder) {
    folder.WriteText("a.dat", "0123456789");
    folder.WriteText("b.lst", "old names");
    std::filesystem::remove(folder.File("c.dat"));
  }

  int Commit() const {
    UnitOfWork work(Path("backup.dat"));
    File file;
    if (!file.Open(Path("a.dat"), File::Mode::kReadWrite)) return ERR_OPEN;
    const auto a = work.Adopt(std::move(file), Path("a.dat"));
    work.Write(a, 2, Hex("41 42"));
    work.Replace(Path("b.lst"), Hex("43"));
    work.Write(work.Make(Path("c.dat"), Hex("44")), 1, Hex("45"));
    work.Write(a, 9, Hex("46 47"));
    return work.Commit();
  }

  [[nodiscard]] bool IsOld() const { return Is("0123456789", "old names", std::nullopt); }
  [[nodiscard]] bool IsNew() const { return Is("01AB45678FG", "C", "DE"); }

 private:
  [[nodiscard]] std::string Path(const char* name) const { return folder_.path() + "\\" + name; }
  [[nodiscard]] bool Is(const char* a, const char* b, std::optional<std::string> c) const {
    return folder_.ReadText("a.dat") == a && folder_.ReadText("b.lst") == b &&
           folder_.ReadText("c.dat") == c;
  }

  const TempFolder& folder_;
};

TEST_F(UnitOfWorkTest, WhicheverCallFailsTheOldOrTheNewStateStands) {
  for (const Fault fault :
       {Fault::kIo, Fault::kNoSpace, Fault::kShort, Fault::kInterrupted, Fault::kFull}) {
    for (int k = 1;; ++k) {
      const EveryKindOfChange change(folder_);
      FaultyCalls calls(fault, k);
      int code = 0;
      {
        const SystemCallsInUse in_use(calls);
        code = change.Commit();
      }
      ASSERT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
      EXPECT_TRUE(code == 0 ? change.IsNew() : change.IsOld()) << k << " gave " << code;
      EXPECT_LE(folder_.Read("backup.dat").value_or(Bytes()).size(), EncodeEmptyJournal().size());
      if (k > calls.count()) break;
    }
  }
}

TEST_F(UnitOfWorkTest, WhereverTheProgramEndsTheOldOrTheNewStateStands) {
  bool was_old = true;
  for (int k = 1;; ++k) {
    const EveryKindOfChange change(folder_);
    FaultyCalls calls(Fault::kStop, k);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const SystemCallsInUse in_use(calls);
      _exit(change.Commit() == 0 ? 1 : 2);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(RollBackJournal(Path("backup.dat")), 0) << k;
    EXPECT_TRUE(change.IsOld() || change.IsNew()) << k;
    // Once it has happened, it has happened for good.
    EXPECT_TRUE(was_old || change.IsNew()) << k;
    was_old = change.IsOld();
    if (status != 0) {
      EXPECT_EQ(WEXITSTATUS(status), 1);
      EXPECT_FALSE(was_old);
      break;
    }
  }
}

TEST_F(UnitOfWorkTest, WhileSomeoneElseHoldsTheJournalNothingChanges) {
  const EveryKindOfChange change(folder_);
  File holder;
  ASSERT_TRUE(holder.Open(Path("backup.dat"), File::Mode::kCreateNew));
  EXPECT_EQ(change.Commit(), ERR_OPEN);
  EXPECT_TRUE(change.IsOld());
  UnitOfWork single(Path("backup.dat"));
  single.Replace(Path("b.lst"), Hex("41"));
  EXPECT_EQ(single.Commit(), ERR_OPEN);
  EXPECT_TRUE(change.IsOld());
}

TEST_F(UnitOfWorkTest, AUnitThatHasBegunKeepsOthersOutUntilItIsCommitted) {
  UnitOfWork work(Path("backup.dat"));
  ASSERT_EQ(work.Begin(), 0);
  ASSERT_EQ(work.Begin(), 0);
  UnitOfWork other(Path("backup.dat"));
  EXPECT_EQ(other.Begin(), ERR_OPEN);
  work.Replace(Path("store.lst"), Hex("41"));
  ASSERT_EQ(work.Commit(), 0);
  EXPECT_EQ(other.Begin(), 0);
  EXPECT_EQ(folder_.Read("store.lst"), Hex("41"));
}

TEST_F(UnitOfWorkTest, AnEmptyUnitCommits) {
  UnitOfWork work(Path("backup.dat"));
  EXPECT_EQ(work.Commit(), 0);
}

}  // namespace
}  // namespace brovanta
