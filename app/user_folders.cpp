#include "app/user_folders.h"

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

}  // namespace

std::string UserRegistryFile() {
  return ConventionalFolder("XDG_CONFIG_HOME", "/.config") + "/brovanta/registry.reg";
}

std::string UserDataFolder() {
  return ConventionalFolder("XDG_DATA_HOME", "/.local/share") + "/brovanta";
}

}  // namespace brovanta
