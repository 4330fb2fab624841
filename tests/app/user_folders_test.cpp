#include "app/user_folders.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace brovanta
