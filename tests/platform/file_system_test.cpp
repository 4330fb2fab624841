#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "platform/file.h"
#include "platform/system_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::platform {
namespace {

using test::Bytes;
using test::Hex;
using test::TempFolder;

class FileSystemTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(std::string_view name = "data") const {
    return folder_.File(name);
  }

  // How many things stand in the folder: no temporary is left behind.
  [[nodiscard]] std::ptrdiff_t Count() const {
    return std::distance(std::filesystem::directory_iterator(folder_.path()), {});
  }

  [[nodiscard]] mode_t Permissions(std::string_view name = "data") const {
    struct stat status {};
    EXPECT_EQ(stat(Path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }

  TempFolder folder_;
};

TEST_F(FileSystemTest, ReplacePutsAWholeNewFile) {
  folder_.Write("data", Hex("01 02 03 04"));
  EXPECT_TRUE(ReplaceFile(folder_.path() + "\\data", Hex("AA BB")));
  EXPECT_EQ(folder_.Read("data"), Hex("AA BB"));
  EXPECT_EQ(Count(), 1);
}

TEST_F(FileSystemTest, ReplaceMakesAMissingFileForItsOwnerAlone) {
  EXPECT_TRUE(ReplaceFile(Path(), {}));
  EXPECT_EQ(folder_.Read("data"), Bytes());
  EXPECT_EQ(Permissions(), 0600u);
  EXPECT_EQ(Count(), 1);
}

TEST_F(FileSystemTest, ReplaceKeepsThePermissions) {
  folder_.WriteText("data", "old");
  ASSERT_EQ(chmod(Path().c_str(), 0640), 0);
  EXPECT_TRUE(ReplaceFile(Path(), Hex("AA")));
  EXPECT_EQ(Permissions(), 0640u);
}

TEST_F(FileSystemTest, ReplaceFollowsASymbolicLink) {
  folder_.WriteText("target", "old");
  std::filesystem::create_symlink("target", Path("link"));
  EXPECT_TRUE(ReplaceFile(Path("link"), Hex("AA")));
  EXPECT_EQ(folder_.Read("target"), Hex("AA"));
  EXPECT_TRUE(std::filesystem::is_symlink(Path("link")));
}

TEST_F(FileSystemTest, AReadOnlyFileIsNotReplaced) {
  folder_.WriteText("data", "old");
  ASSERT_EQ(chmod(Path().c_str(), 0444), 0);
  EXPECT_FALSE(ReplaceFile(Path(), Hex("AA")));
  EXPECT_EQ(folder_.ReadText("data"), "old");
  EXPECT_EQ(Count(), 1);
}

TEST_F(FileSystemTest, AFileHeldBySomeoneElseIsNotReplaced) {
  folder_.WriteText("data", "old");
  File holder;
  ASSERT_TRUE(holder.Open(Path(), File::Mode::kRead));
  EXPECT_FALSE(ReplaceFile(Path(), Hex("AA")));
  EXPECT_EQ(folder_.ReadText("data"), "old");
  EXPECT_EQ(Count(), 1);
  holder.Close();
  EXPECT_TRUE(ReplaceFile(Path(), Hex("AA")));
}

TEST_F(FileSystemTest, AFolderOrALinkToNothingIsNotReplaced) {
  std::filesystem::create_directory(Path("folder"));
  EXPECT_FALSE(ReplaceFile(Path("folder"), Hex("AA")));
  std::filesystem::create_symlink("nowhere", Path("link"));
  EXPECT_FALSE(ReplaceFile(Path("link"), Hex("AA")));
  EXPECT_FALSE(ReplaceFile(Path("none/data"), Hex("AA")));
  EXPECT_EQ(Count(), 2);
}

TEST_F(FileSystemTest, AFullDiskLeavesTheOldFileAndNoTemporary) {
  folder_.WriteText("data", "old");
  rlimit previous{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{4, previous.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  const bool replaced = ReplaceFile(Path(), Bytes(5));
  const bool small = ReplaceFile(Path("small"), Bytes(4));
  setrlimit(RLIMIT_FSIZE, &previous);
  std::signal(SIGXFSZ, handler);
  EXPECT_FALSE(replaced);
  EXPECT_TRUE(small);
  EXPECT_EQ(folder_.ReadText("data"), "old");
  EXPECT_EQ(Count(), 2);
}

TEST_F(FileSystemTest, RemoveIsTrueWhenNothingStandsThereAnyMore) {
  folder_.WriteText("data", "x");
  EXPECT_TRUE(RemoveFile(folder_.path() + "\\data"));
  EXPECT_FALSE(FileExists(Path()));
  EXPECT_TRUE(RemoveFile(Path()));
  EXPECT_TRUE(RemoveFile(Path("none/data")));
  EXPECT_FALSE(RemoveFile(folder_.path()));
}

TEST_F(FileSystemTest, ThatNothingStandsThereReachesTheDevice) {
  class FailingSync : public SystemCalls {
   public:
    int Sync(int /*descriptor*/) override {
      errno = EIO;
      return -1;
    }
  };
  folder_.WriteText("data", "x");
  {
    FailingSync calls;
    const SystemCallsInUse in_use(calls);
    EXPECT_FALSE(RemoveFile(Path()));
    EXPECT_FALSE(FileExists(Path()));
    EXPECT_FALSE(RemoveFile(Path())) << "the removal before it may still wait";
  }
  EXPECT_TRUE(RemoveFile(Path()));
}

TEST_F(FileSystemTest, RenameTakesThePlaceOfTheOther) {
  folder_.WriteText("data", "new");
  folder_.WriteText("other", "old");
  EXPECT_TRUE(RenameFile(folder_.path() + "\\data", folder_.path() + "\\other"));
  EXPECT_EQ(folder_.ReadText("other"), "new");
  EXPECT_EQ(Count(), 1);
  EXPECT_FALSE(RenameFile(Path(), Path("other")));
  EXPECT_EQ(folder_.ReadText("other"), "new");
}

TEST_F(FileSystemTest, CreateFolderMakesWhatIsMissingForItsOwnerAlone) {
  EXPECT_TRUE(CreateFolder(folder_.path() + "\\a\\b"));
  EXPECT_EQ(Permissions("a"), 0700u);
  EXPECT_EQ(Permissions("a/b"), 0700u);
  EXPECT_TRUE(CreateFolder(Path("a/b/")));
  EXPECT_TRUE(CreateFolder(Path("a//c")));
  EXPECT_TRUE(std::filesystem::is_directory(Path("a/c")));
}

TEST_F(FileSystemTest, CreateFolderLeavesTheOneThatIsThere) {
  std::filesystem::create_directory(Path("a"));
  std::filesystem::permissions(Path("a"), std::filesystem::perms(0755));
  EXPECT_TRUE(CreateFolder(Path("a")));
  EXPECT_EQ(Permissions("a"), 0755u);
}

TEST_F(FileSystemTest, CreateFolderFailsWhereAFileStands) {
  folder_.WriteText("data", "x");
  EXPECT_FALSE(CreateFolder(Path()));
  EXPECT_EQ(errno, ENOTDIR);
  EXPECT_FALSE(CreateFolder(Path("data/below")));
  EXPECT_EQ(errno, ENOTDIR);
  EXPECT_FALSE(CreateFolder(""));
}

}  // namespace
}  // namespace brovanta::platform
