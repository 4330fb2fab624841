#include "platform/system_calls.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/file.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Fault;
using test::FaultyCalls;
using test::Hex;
using test::TempFolder;

TEST(SystemCallsTest, OthersAreInUseWhileTheObjectLives) {
  SystemCalls* const before = &Calls();
  FaultyCalls others;
  {
    const SystemCallsInUse in_use(others);
    EXPECT_EQ(&Calls(), &others);
  }
  EXPECT_EQ(&Calls(), before);
}

TEST(SystemCallsTest, EveryFileOperationAsksThem) {
  const TempFolder folder;
  FaultyCalls calls(Fault::kIo, 1, true);
  const SystemCallsInUse in_use(calls);
  File file;
  int count = 0;
  const auto asked = [&] { return calls.count() > std::exchange(count, calls.count()); };
  EXPECT_FALSE(file.Open(folder.File("a"), File::Mode::kCreateNew));
  EXPECT_TRUE(asked());
  EXPECT_EQ(TryReplaceFile(folder.File("a"), Hex("41")), Replacement::kRefused);
  EXPECT_TRUE(asked());
  EXPECT_FALSE(RemoveFile(folder.File("a")));
  EXPECT_TRUE(asked());
  EXPECT_FALSE(RenameFile(folder.File("a"), folder.File("b")));
  EXPECT_TRUE(asked());
  EXPECT_FALSE(CreateFolder(folder.File("a")));
  EXPECT_TRUE(asked());
  EXPECT_FALSE(SyncFolderOf(folder.File("a")));
  EXPECT_TRUE(asked());
  EXPECT_TRUE(FileExists(folder.File("a")));  // it cannot be said that nothing stands there
  EXPECT_TRUE(asked());
  EXPECT_FALSE(FreePathAside(folder.File("a")));
  EXPECT_TRUE(asked());
}

TEST(SystemCallsTest, AReplacementWhoseFolderIsNotSyncedSaysSo) {
  const TempFolder folder;
  for (int k = 1;; ++k) {
    folder.WriteText("a", "old");
    FaultyCalls calls(Fault::kIo, k);
    Replacement result = Replacement::kDone;
    {
      const SystemCallsInUse in_use(calls);
      result = TryReplaceFile(folder.File("a"), Hex("6e 65 77"));
    }
    EXPECT_EQ(folder.ReadText("a"),
              result == Replacement::kRefused || result == Replacement::kHeld ? "old" : "new")
        << k;
    if (!calls.has_struck()) {
      EXPECT_EQ(result, Replacement::kDone);
      break;
    }
  }
}

TEST(SystemCallsTest, InterruptedAndShortTransfersAreContinued) {
  const TempFolder folder;
  for (const Fault fault : {Fault::kInterrupted, Fault::kShort}) {
    for (int k = 1; k < 12; ++k) {
      folder.WriteText("a", "0123456789");
      File file;
      ASSERT_TRUE(file.Open(folder.File("a"), File::Mode::kReadWrite));
      FaultyCalls calls(fault, k);
      const SystemCallsInUse in_use(calls);
      EXPECT_TRUE(file.WriteAt(2, Hex("41 42 43 44")));
      test::Bytes bytes(10);
      EXPECT_EQ(file.ReadAt(0, bytes), 10);
      EXPECT_EQ(bytes, Hex("30 31 41 42 43 44 36 37 38 39"));
      EXPECT_TRUE(file.Truncate(3));
      EXPECT_TRUE(file.Sync());
    }
  }
}

}  // namespace
}  // namespace brovanta::platform
