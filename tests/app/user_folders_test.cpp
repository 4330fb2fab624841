#include "app/user_folders.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

namespace fs = std::filesystem;

/// Sets an environment variable (nullptr: removes it) for the length of a test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(old_ ? old_->c_str() : nullptr); }

 private:
  void Set(const char* value) {
    if (value == nullptr) {
      unsetenv(name_);
    } else {
      setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::optional<std::string> old_;
};

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 0777U;
}

TEST(UserFoldersTest, FollowTheDesktopsVariables) {
  const Variable config("XDG_CONFIG_HOME", "/tmp/c");
  const Variable data("XDG_DATA_HOME", "/tmp/d");
  EXPECT_EQ(UserRegistryFile(), "/tmp/c/brovanta/registry.reg");
  EXPECT_EQ(UserDataFolder(), "/tmp/d/brovanta");
}

TEST(UserFoldersTest, LieInTheHomeFolderWithoutTheVariables) {
  const Variable home("HOME", "/home/me");
  const Variable config("XDG_CONFIG_HOME", nullptr);
  const Variable data("XDG_DATA_HOME", "relative/is/ignored");
  EXPECT_EQ(UserRegistryFile(), "/home/me/.config/brovanta/registry.reg");
  EXPECT_EQ(UserDataFolder(), "/home/me/.local/share/brovanta");
}

TEST(UserFoldersTest, FoldersAreMadeForOneUserAloneWithAllAboveThem) {
  const test::TempFolder folder;
  const std::string deep = folder.File("a/b/c");
  EXPECT_TRUE(MakeFolder(deep));
  EXPECT_EQ(ModeOf(deep), 0700U);
  EXPECT_EQ(ModeOf(folder.File("a")), 0700U);
  EXPECT_TRUE(MakeFolder(deep));
  EXPECT_TRUE(MakeFolder(deep + "/"));
}

TEST(UserFoldersTest, AnExistingFolderKeepsItsPermissions) {
  const test::TempFolder folder;
  fs::create_directory(folder.File("a"));
  fs::permissions(folder.File("a"), fs::perms(0755));
  EXPECT_TRUE(MakeFolder(folder.File("a")));
  EXPECT_EQ(ModeOf(folder.File("a")), 0755U);
}

TEST(UserFoldersTest, AFileInTheWayIsReported) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  EXPECT_FALSE(MakeFolder(folder.File("file")));
  EXPECT_EQ(errno, ENOTDIR);
  EXPECT_FALSE(MakeFolder(folder.File("file/below")));
  EXPECT_FALSE(MakeFolder(""));
}

TEST(UserFoldersTest, ALinkAndItsFolderHaveOneName) {
  const test::TempFolder folder;
  fs::create_directory(folder.File("real"));
  fs::create_symlink(folder.File("real"), folder.File("link"));
  EXPECT_EQ(CanonicalFolder(folder.File("link")), CanonicalFolder(folder.File("real")));
  EXPECT_NE(CanonicalFolder(folder.File("real")), "");
  EXPECT_EQ(CanonicalFolder(folder.File("missing")), "");
}

TEST(UserFoldersTest, OnlyFoldersCanBeWrittenIn) {
  const test::TempFolder folder;
  folder.WriteText("file", "");
  EXPECT_TRUE(IsWritableFolder(folder.path()));
  EXPECT_FALSE(IsWritableFolder(folder.File("file")));
  EXPECT_FALSE(IsWritableFolder(folder.File("missing")));
}

}  // namespace
}  // namespace brovanta
