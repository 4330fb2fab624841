#include "db/unit_of_work.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "db/error_codes.h"
#include "platform/text_file.h"
#include "tests/support/temp_folder.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using platform::File;
using test::Bytes;
using test::Hex;
using test::TempFolder;
using test::WriteLimit;

class UnitOfWorkTest : public testing::Test {
 protected:
  std::string Path(const char* name) const { return folder_.path() + "\\" + name; }

  UnitOfWork::FileIndex Adopt(UnitOfWork& work, const char* name) const {
    File file;
    EXPECT_TRUE(file.Open(Path(name), File::Mode::kReadWrite));
    return work.Adopt(std::move(file), Path(name));
  }

  TempFolder folder_;
};

TEST_F(UnitOfWorkTest, NothingChangesBeforeCommit) {
  folder_.WriteText("a.dat", "0123456789");
  {
    UnitOfWork work;
    work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
    work.Replace(Path("b.lst"), Hex("42"));
    EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_FALSE(folder_.ReadText("b.lst"));
}

TEST_F(UnitOfWorkTest, CommitOverwritesAndExtends) {
  folder_.WriteText("a.dat", "0123456789");
  UnitOfWork work;
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 2, Hex("41 42"));
  work.Write(file, 9, Hex("43 44 45"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "01AB45678CDE");
}

TEST_F(UnitOfWorkTest, LaterChangesWinOverEarlierOnes) {
  folder_.WriteText("a.dat", "0123");
  UnitOfWork work;
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 0, Hex("41 41 41"));
  work.Write(file, 1, Hex("42"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "ABA3");
}

TEST_F(UnitOfWorkTest, ReplaceMakesOrReplacesAWholeFile) {
  folder_.WriteText("old.lst", "a longer text than the new one");
  UnitOfWork work;
  work.Replace(Path("old.lst"), Hex("41 42"));
  work.Replace(Path("new.lst"), Hex("43"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("old.lst"), "AB");
  EXPECT_EQ(folder_.ReadText("new.lst"), "C");
}

TEST_F(UnitOfWorkTest, AdoptedFilesAreHeldUntilCommit) {
  folder_.WriteText("a.dat", "0123");
  UnitOfWork work;
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  File other;
  EXPECT_FALSE(other.Open(Path("a.dat"), File::Mode::kRead));
  ASSERT_EQ(work.Commit(), 0);
  EXPECT_TRUE(other.Open(Path("a.dat"), File::Mode::kRead));
}

TEST_F(UnitOfWorkTest, AFailureInTheSecondFilePutsTheFirstBack) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("b.dat", std::string(100, 'b'));
  UnitOfWork work;
  const auto first = Adopt(work, "a.dat");
  work.Write(first, 0, Hex("41 42 43"));
  work.Write(first, 8, Hex("44 45 46 47"));
  work.Write(Adopt(work, "b.dat"), 98, Hex("48 49 4A 4B"));
  {
    const WriteLimit full(100);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(folder_.ReadText("b.dat"), std::string(100, 'b'));
}

TEST_F(UnitOfWorkTest, OverlappingChangesArePutBackToTheFirstState) {
  folder_.WriteText("a.dat", "0123456789");
  UnitOfWork work;
  const auto file = Adopt(work, "a.dat");
  work.Write(file, 0, Hex("41 41 41 41"));
  work.Write(file, 2, Hex("42 42 42 42"));
  work.Write(file, 9, Hex("43 43 43 43"));
  {
    const WriteLimit full(12);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
}

TEST_F(UnitOfWorkTest, AFileTooLargeToBePutBackIsNotReplaced) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("b.lst", "old");
  std::filesystem::resize_file(folder_.File("b.lst"), platform::kLargestWholeFile + 1);
  UnitOfWork work;
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("b.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_IO);
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(std::filesystem::file_size(folder_.File("b.lst")), platform::kLargestWholeFile + 1);
}

TEST_F(UnitOfWorkTest, AFailurePutsReplacementsBack) {
  folder_.WriteText("a.dat", "0123456789");
  folder_.WriteText("old.lst", "old names");
  UnitOfWork work;
  work.Replace(Path("old.lst"), Hex("41"));
  work.Replace(Path("new.lst"), Hex("42"));
  work.Write(Adopt(work, "a.dat"), 9, Hex("43 43 43 43"));
  {
    const WriteLimit full(11);
    EXPECT_EQ(work.Commit(), ERR_IO);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
  EXPECT_EQ(folder_.ReadText("old.lst"), "old names");
  EXPECT_FALSE(folder_.ReadText("new.lst"));
}

TEST_F(UnitOfWorkTest, AReplacementThatCannotBeWrittenIsAnOpenErrorAndUndoesTheRest) {
  folder_.WriteText("a.dat", "0123");
  folder_.WriteText("names.lst", "old");
  UnitOfWork work;
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("names.lst"), Bytes(50));
  {
    const WriteLimit full(20);
    EXPECT_EQ(work.Commit(), ERR_OPEN);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
  EXPECT_EQ(folder_.ReadText("names.lst"), "old");
}

TEST_F(UnitOfWorkTest, AFileHeldBySomeoneElseIsNotReplaced) {
  folder_.WriteText("names.lst", "old");
  folder_.WriteText("a.dat", "0123");
  File holder;
  ASSERT_TRUE(holder.Open(Path("names.lst"), File::Mode::kRead));
  UnitOfWork work;
  work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
  work.Replace(Path("names.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("names.lst"), "old");
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
}

TEST_F(UnitOfWorkTest, AFolderInTheWayIsNotReplaced) {
  std::filesystem::create_directory(folder_.File("names.lst"));
  UnitOfWork work;
  work.Replace(Path("names.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_TRUE(std::filesystem::is_directory(folder_.File("names.lst")));
}

TEST_F(UnitOfWorkTest, ACreatedFileStaysOnlyWhenCommitSucceeds) {
  {
    UnitOfWork work;
    ASSERT_EQ(work.Create(Path("a.dat"), Hex("41 42")), 0);
    EXPECT_EQ(folder_.ReadText("a.dat"), "AB");
  }
  EXPECT_FALSE(folder_.ReadText("a.dat"));
  UnitOfWork work;
  ASSERT_EQ(work.Create(Path("a.dat"), Hex("41 42")), 0);
  work.Write(Adopt(work, "a.dat"), 2, Hex("43"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.dat"), "ABC");
}

TEST_F(UnitOfWorkTest, CreateDoesNotTouchAFileThatIsThere) {
  folder_.WriteText("a.dat", "0123");
  {
    UnitOfWork work;
    EXPECT_EQ(work.Create(Path("a.dat"), Hex("41")), ERR_OPEN);
  }
  EXPECT_EQ(folder_.ReadText("a.dat"), "0123");
}

TEST_F(UnitOfWorkTest, AnEmptyUnitCommits) {
  UnitOfWork work;
  EXPECT_EQ(work.Commit(), 0);
}

}  // namespace
}  // namespace brovanta
