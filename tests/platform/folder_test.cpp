#include "platform/folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

namespace fs = std::filesystem;
using Outcome = FolderLock::Outcome;

TEST(NamesInTest, AreSortedAndLeaveTheFolderItselfOut) {
  const test::TempFolder folder;
  folder.WriteText("b", "");
  folder.WriteText(".a", "");
  fs::create_directory(folder.File("c"));
  EXPECT_THAT(NamesIn(folder.path()).value(), testing::ElementsAre(".a", "b", "c"));
}

TEST(NamesInTest, AreNothingWithoutAFolder) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  EXPECT_FALSE(NamesIn(folder.File("missing")));
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(NamesIn(folder.File("file")));
  EXPECT_EQ(errno, ENOTDIR);
}

TEST(IsFolderTest, FollowsLinks) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  fs::create_directory_symlink(folder.path(), folder.File("link"));
  EXPECT_TRUE(IsFolder(folder.path()));
  EXPECT_TRUE(IsFolder(folder.File("link")));
  EXPECT_FALSE(IsFolder(folder.File("file")));
  EXPECT_FALSE(IsFolder(folder.File("missing")));
}

TEST(CanonicalNameTest, IsThatOfTheFolderOnceItIsMade) {
  const test::TempFolder folder;
  std::filesystem::create_directory(folder.File("real"));
  std::filesystem::create_symlink(folder.File("real"), folder.File("link"));
  for (const char* const missing :
       {"link", "missing", "link/missing", "missing/below", "real/./missing/"}) {
    const std::string before = CanonicalName(folder.File(missing));
    std::filesystem::create_directories(folder.File(missing));
    EXPECT_EQ(before, CanonicalFolder(folder.File(missing))) << missing;
    EXPECT_EQ(before, CanonicalName(folder.File(missing))) << missing;
  }
}

TEST(CanonicalNameTest, ARelativeOneBeginsInTheWorkingFolder) {
  EXPECT_EQ(CanonicalName("missing"), CanonicalFolder(".") + "/missing");
  EXPECT_EQ(CanonicalName("."), CanonicalFolder("."));
  EXPECT_EQ(CanonicalName("/"), "/");
}

TEST(CanonicalNameTest, NothingWhereItCannotBeTold) {
  const test::TempFolder folder;
  std::filesystem::create_symlink(folder.File("loop"), folder.File("loop"));
  EXPECT_EQ(CanonicalName(folder.File("loop") + "/below"), "");
  EXPECT_EQ(CanonicalName(""), "");
}

TEST(CanonicalFolderTest, ALinkAndItsFolderHaveOneName) {
  const test::TempFolder folder;
  fs::create_directory(folder.File("real"));
  fs::create_symlink(folder.File("real"), folder.File("link"));
  EXPECT_EQ(CanonicalFolder(folder.File("link")), CanonicalFolder(folder.File("real")));
  EXPECT_NE(CanonicalFolder(folder.File("real")), "");
  EXPECT_EQ(CanonicalFolder(folder.File("missing")), "");
}

TEST(IsWritableFolderTest, OnlyFoldersCanBeWrittenIn) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  EXPECT_TRUE(IsWritableFolder(folder.path()));
  EXPECT_FALSE(IsWritableFolder(folder.File("file")));
  EXPECT_FALSE(IsWritableFolder(folder.File("missing")));
}

TEST(RemoveWholeFolderTest, TakesEverythingInItAndNothingBehindLinks) {
  const test::TempFolder folder;
  fs::create_directories(folder.File("old/inner"));
  folder.WriteText("old/inner/file", "x");
  folder.WriteText("kept", "x");
  fs::create_symlink(folder.File("kept"), folder.File("old/link"));
  fs::create_directory(folder.File("kept folder"));
  fs::create_directory_symlink(folder.File("kept folder"), folder.File("old/folder link"));
  EXPECT_TRUE(RemoveWholeFolder(folder.File("old")));
  EXPECT_FALSE(fs::exists(folder.File("old")));
  EXPECT_TRUE(fs::exists(folder.File("kept")));
  EXPECT_TRUE(fs::exists(folder.File("kept folder")));
}

TEST(RemoveWholeFolderTest, SaysWhetherItIsGone) {
  const test::TempFolder folder;
  folder.WriteText("file", "x");
  EXPECT_TRUE(RemoveWholeFolder(folder.File("missing")));
  EXPECT_FALSE(RemoveWholeFolder(folder.File("file")));
  EXPECT_TRUE(fs::exists(folder.File("file")));
  for (int at = 1;; ++at) {
    fs::create_directory(folder.File("old"));
    folder.WriteText("old/file", "x");
    test::FaultyCalls calls(test::Fault::kIo, at);
    bool removed = false;
    {
      const SystemCallsInUse in_use(calls);
      removed = RemoveWholeFolder(folder.File("old"));
    }
    EXPECT_EQ(removed, !fs::exists(folder.File("old"))) << at;
    if (!calls.has_struck()) break;
  }
}

TEST(FolderLockTest, KeepsASecondOneOutUntilItIsReleased) {
  const test::TempFolder folder;
  FolderLock first;
  FolderLock second;
  EXPECT_EQ(first.Take(folder.path()), Outcome::kTaken);
  EXPECT_EQ(second.Take(folder.path()), Outcome::kHeld);
  first.Release();
  EXPECT_EQ(second.Take(folder.path()), Outcome::kTaken);
}

TEST(FreeSpaceAtTest, IsToldForAFolderThatStands) {
  const test::TempFolder folder;
  EXPECT_TRUE(FreeSpaceAt(folder.path()));
  EXPECT_FALSE(FreeSpaceAt(folder.File("missing")));
  test::FaultyCalls calls(test::Fault::kIo, 1);
  const SystemCallsInUse in_use(calls);
  EXPECT_FALSE(FreeSpaceAt(folder.path()));
}

TEST(FolderLockTest, EndsWithTheObjectAndMovesWithIt) {
  const test::TempFolder folder;
  FolderLock other;
  {
    FolderLock first;
    ASSERT_EQ(first.Take(folder.path()), Outcome::kTaken);
    const FolderLock moved = std::move(first);
    EXPECT_EQ(other.Take(folder.path()), Outcome::kHeld);
  }
  EXPECT_EQ(other.Take(folder.path()), Outcome::kTaken);
}

TEST(FolderLockTest, KnowsWhetherItHoldsAFolder) {
  const test::TempFolder folder;
  FolderLock lock;
  EXPECT_FALSE(lock.held());
  ASSERT_EQ(lock.Take(folder.path()), Outcome::kTaken);
  EXPECT_TRUE(lock.held());
  FolderLock other;
  ASSERT_EQ(other.Take(folder.path()), Outcome::kHeld);
  EXPECT_FALSE(other.held());
  lock.Release();
  EXPECT_FALSE(lock.held());
}

TEST(FolderLockTest, IsNotPossibleOnWhatIsNoFolder) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  FolderLock lock;
  EXPECT_EQ(lock.Take(folder.File("missing")), Outcome::kNotPossible);
  EXPECT_EQ(lock.Take(folder.File("file")), Outcome::kNotPossible);
}

TEST(FolderLockTest, AFileSystemWithoutLocksIsNotASecondProgram) {
  const test::TempFolder folder;
  test::FaultyCalls calls(test::Fault::kIo, 2);
  const SystemCallsInUse in_use(calls);
  FolderLock lock;
  EXPECT_EQ(lock.Take(folder.path()), Outcome::kNotPossible);
}

}  // namespace
}  // namespace brovanta::platform
