// Files that are not where a change believes them to be.
#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

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

/// Somebody puts a file there while something is synced for the k-th time.
class PutThere : public platform::SystemCalls {
 public:
  PutThere(const test::TempFolder& folder, const char* name, int at)
      : folder_(folder), name_(name), at_(at) {}
  int Sync(int /*descriptor*/) override {
    if (++syncs_ == at_ && !folder_.Read(name_)) {
      folder_.WriteText(name_, "somebody's");
      was_put = true;
    }
    return 0;
  }
  bool was_put = false;

 private:
  const test::TempFolder& folder_;
  const char* name_;
  int at_;
  int syncs_ = 0;
};

TEST_F(UnitOfWorkPlacesTest, AFileThatAppearsMeanwhileIsNeitherReplacedNorRemoved) {
  const auto make = [](UnitOfWork& work, const std::string& path) {
    work.Write(work.Make(path, Hex("41")), 1, Hex("42"));
  };
  const auto replace = [](UnitOfWork& work, const std::string& path) {
    work.Replace(path, Hex("41"));
  };
  const auto remove = [](UnitOfWork& work, const std::string& path) { work.Remove(path); };
  const std::vector<std::function<void(UnitOfWork&, const std::string&)>> changes{make, replace,
                                                                                  remove};
  for (const auto& change : changes) {
    for (const int sync : {1, 2}) {  // of the new journal's folder, of its records
      folder_.WriteText("a.dat", "0123456789");
      std::filesystem::remove(folder_.File("b.dat"));
      std::filesystem::remove(folder_.File("backup.dat"));
      UnitOfWork work(Path("backup.dat"));
      ASSERT_EQ(work.Begin(), 0);
      work.Write(Adopt(work, "a.dat"), 0, Hex("41"));
      change(work, Path("b.dat"));
      PutThere calls(folder_, "b.dat", sync);
      const SystemCallsInUse in_use(calls);
      EXPECT_EQ(work.Commit(), ERR_OPEN);
      EXPECT_TRUE(calls.was_put);
      EXPECT_EQ(folder_.ReadText("b.dat"), "somebody's");
      EXPECT_EQ(folder_.ReadText("a.dat"), "0123456789");
      EXPECT_FALSE(MayHoldRecords(Path("backup.dat")));
    }
  }
}

TEST_F(UnitOfWorkPlacesTest, WhatWasPutBetweenLookingAndMakingIsNotRemoved) {
  class Faster : public platform::SystemCalls {
   public:
    explicit Faster(const test::TempFolder& folder) : folder_(folder) {}
    int Open(const char* path, int flags, mode_t mode) override {
      const bool makes = (flags & O_CREAT) != 0 && std::string_view(path).ends_with("b.dat");
      if (makes) folder_.WriteText("b.dat", "somebody's");
      return SystemCalls::Open(path, flags, mode);
    }

   private:
    const test::TempFolder& folder_;
  };
  Faster calls(folder_);
  const SystemCallsInUse in_use(calls);
  UnitOfWork work(Path("backup.dat"));
  (void)work.Make(Path("b.dat"), Hex("41"));
  EXPECT_EQ(work.Commit(), ERR_OPEN);
  EXPECT_EQ(folder_.ReadText("b.dat"), "somebody's");
  EXPECT_FALSE(MayHoldRecords(Path("backup.dat")));
}

TEST_F(UnitOfWorkPlacesTest, AFileWrittenTwiceMayHaveBeenMissing) {
  UnitOfWork work(Path("backup.dat"));
  work.Replace(Path("a.lst"), Hex("41"));
  work.Replace(Path("a.lst"), Hex("42"));
  EXPECT_EQ(work.Commit(), 0);
  EXPECT_EQ(folder_.ReadText("a.lst"), "B");
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
