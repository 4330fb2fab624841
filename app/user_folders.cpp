#include "app/user_folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace brovanta {

namespace {

/// The folder that the variable names, or one in the home folder. By the convention, a relative
/// value is as good as none.
std::string ConventionalFolder(const char* variable, const char* in_home) {
  const char* const value = std::getenv(variable);
  if (value != nullptr && value[0] == '/') return value;
  const char* const home = std::getenv("HOME");
  return std::string(home == nullptr ? "" : home) + in_home;
}

bool IsFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string UserRegistryFile() {
  return ConventionalFolder("XDG_CONFIG_HOME", "/.config") + "/brovanta/registry.reg";
}

std::string UserDataFolder() {
  return ConventionalFolder("XDG_DATA_HOME", "/.local/share") + "/brovanta";
}

std::string CanonicalFolder(const std::string& path) {
  if (!IsFolder(path)) return {};
  char* const name = realpath(path.c_str(), nullptr);
  if (name == nullptr) return {};
  std::string result(name);
  std::free(name);
  return result;
}

bool IsWritableFolder(const std::string& path) {
  return IsFolder(path) && access(path.c_str(), W_OK | X_OK) == 0;
}

}  // namespace brovanta
