// Files that are not where a change believes them to be.
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "db/error_codes.h"
#include "db/journal.h"
#include "db/unit_of_work.h"
#include "platform/system_calls.h"
#include "tests/db/unit_of_work_fixture.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using platform::File;
using platform::SystemCallsInUse;
using test::Hex;

class UnitOfWorkPlacesTest : public test::UnitOfWorkFixture {};

TEST_F(UnitOfWorkPlacesTest, AFileThatWasReplacedSinceItWasTakenOverIsNotWritten) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("theirs", "abcdefghij");
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  std::filesystem::rename(folder_.File("theirs"), folder_.File("a.dat"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "abcdefghij");
  EXPECT_EQ(RollBackJournal(Path("backup.dat")), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "abcdefghij");
}

/// Somebody renames a file over another one right behind a write of so many bytes.
class RenamedOver : public platform::SystemCalls {
 public:
  RenamedOver(std::string from, std::string to, std::size_t behind)
      : from_(std::move(from)), to_(std::move(to)), behind_(behind) {}
  ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override {
    const ssize_t count = SystemCalls::WriteAt(descriptor, bytes, size, offset);
    if (size == behind_ && !done_) std::filesystem::rename(from_, to_);
    done_ = done_ || size == behind_;
    return count;
  }

 private:
  std::string from_;
  std::string to_;
  std::size_t behind_;
  bool done_ = false;
};

TEST_F(UnitOfWorkPlacesTest, NothingIsConfirmedThatStandsInAFileReplacedMeanwhile) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("theirs", "abcdefghij");
  UnitOfWork work(Path("backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  RenamedOver calls(folder_.File("theirs"), folder_.File("a.dat"), 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "abcdefghij");
  EXPECT_FALSE(MayHoldRecords(Path("backup.dat")));
}

TEST_F(UnitOfWorkPlacesTest, AFileRenamedOverANewOneStays) {
  folder_.WriteText("theirs", "abcdefghij");
  UnitOfWork work(Path("backup.dat"));
  (void)work.Make(Path("a.dat"), Hex("41"));
  RenamedOver calls(folder_.File("theirs"), folder_.File("a.dat"), 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "abcdefghij");
}

TEST_F(UnitOfWorkPlacesTest, RecordsAreNotWrittenIntoAJournalThatIsGone) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("theirs", "not a journal");
  UnitOfWork work(Path("backup.dat"));
  ASSERT_EQ(work.Begin(), 0);
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  std::filesystem::rename(folder_.File("theirs"), folder_.File("backup.dat"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(folder_.ReadText("backup.dat"), "not a journal");
}

TEST_F(UnitOfWorkPlacesTest, AFileOutsideTheFolderOfTheJournalIsRefused) {
  std::filesystem::create_directory(folder_.File("data"));
  folder_.WriteText("data/a.dat", "inside");
  folder_.WriteText("a.dat", "outside");
  UnitOfWork work(Path("data\\backup.dat"));
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("data\\b.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("a.dat"), "outside");
  EXPECT_EQ(folder_.ReadText("data/a.dat"), "inside");
  EXPECT_FALSE(folder_.ReadText("data/b.lst"));
}

TEST_F(UnitOfWorkPlacesTest, TheFolderMayBeWrittenInEitherWay) {
  folder_.WriteText("a.dat", "old");
  UnitOfWork work(Path("backup.dat"));
  work.Replace(folder_.File("a.dat"), Hex("41"));
  work.Replace(folder_.File("b.dat"), Hex("42"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "A");
}

}  // namespace
}  // namespace brovanta
