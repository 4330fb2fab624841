#include "app/first_run_setup.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <optional>
#include <system_error>

#include "db/file_names.h"
#include "db/name_list.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace brovanta {

namespace {

using platform::RegistryKey;
using platform::RegistryStore;

constexpr const char* kInstallPath = "InstallPath";
constexpr const char* kUpdateServer = "UpdateServer";
constexpr std::size_t kInstallPathBuffer = 500;  ///< bytes of wide text
constexpr std::size_t kLongestPath = 249;
/// Behind it the longest name in the folder must fit: "\WebSearch\2147483647.dat".
constexpr std::size_t kLongestFolder = 220;
constexpr std::size_t kAnyText = std::string::npos;

std::optional<std::string> Stored(const RegistryStore& store, const char* name) {
  const auto key = RegistryKey::Open(store, kProgramKey);
  return key ? key->QueryText(name, kInstallPathBuffer) : std::nullopt;
}

/// Whether a value of that name is there at all, readable for us or not.
bool IsThere(const RegistryStore& store, const char* name) {
  const auto key = RegistryKey::Open(store, kProgramKey);
  return key && key->Query(name).has_value();
}

void StoreMissing(const RegistryStore& store, const char* name, const std::string& value) {
  if (IsThere(store, name)) return;
  // Without a place for settings the program runs on its defaults, and asks again at the next
  // start.
  static_cast<void>(RegistryKey::StoreText(store, kProgramKey, name, value));
}

/// The native path of a documented one; the working folder will be another one soon.
std::string AbsoluteFolder(const std::string& path) {
  std::string native = platform::NativePath(path);
  if (native.empty()) return native;
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(native, error);
  return error ? native : absolute.string();
}

/// Why there is no data folder although the settings name one.
std::string DamagedLine(const RegistryStore& store) {
  return "the line \"" + std::string(kInstallPath) + "\" of the settings '" + store.file_path() +
         "' is damaged: it names no folder";
}

/// Why files in the folder could not be reached, in a sentence for a person; empty when they can.
std::string ProblemOfName(const std::string& folder) {
  if (folder.find('\\') != std::string::npos) {
    return "the name of the folder '" + folder + "' has a backslash";  // it parts names in paths
  }
  if (folder.size() > kLongestFolder) {
    return "the name of the folder '" + folder + "' is too long (at most 220 bytes)";
  }
  return {};
}

}  // namespace

void SetUpUpdateServer(const RegistryStore& store) {
  StoreMissing(store, kUpdateServer, kDefaultUpdateServer);
}

std::string UpdateServer(const RegistryStore& store) {
  return Stored(store, kUpdateServer).value_or(kDefaultUpdateServer);
}

std::string SetUpUserData(const RegistryStore& store, const std::string& default_folder,
                          std::string& problem) {
  platform::RegistryValue value;
  std::string folder = default_folder;
  switch (store.Ask(kProgramKey, kInstallPath, value)) {
    case RegistryStore::Answer::kUnreadable:
      problem = "cannot read the settings '" + store.file_path() + "'";
      return {};
    case RegistryStore::Answer::kForeign:
      problem = "the settings '" + store.file_path() + "' are damaged, or no settings at all";
      return {};
    case RegistryStore::Answer::kDamaged:
      problem = DamagedLine(store);
      return {};
    case RegistryStore::Answer::kValue: {
      const auto text = platform::TextOf(value, kAnyText);
      if (!text) {
        problem = DamagedLine(store);
        return {};
      }
      folder = AbsoluteFolder(*text);
      break;
    }
    case RegistryStore::Answer::kNone:
      StoreMissing(store, kInstallPath, default_folder);
      break;
  }
  SetUpUpdateServer(store);
  problem = ProblemOfName(folder);
  if (value.data.size() > kInstallPathBuffer) folder.clear();
  folder.resize(std::min(folder.size(), kLongestPath));
  if (problem.empty()) problem = ProblemOfName(platform::CanonicalFolder(folder));
  if (problem.empty() && folder == default_folder) {
    // What goes wrong here, the screens report when they open their files.
    static_cast<void>(platform::CreateFolder(folder));
  }
  return folder;
}

std::string SetUpThrowAwayFolder(std::string& folder) {
  folder = platform::NativePath(folder);
  std::string problem = ProblemOfName(platform::CanonicalName(folder));
  if (!problem.empty()) return problem;  // before anything is made
  if (!platform::CreateFolder(folder)) {
    return "cannot make the folder '" + folder + "': " + std::strerror(errno);
  }
  folder = platform::CanonicalFolder(folder);
  if (!platform::IsWritableFolder(folder)) return "cannot write in the folder '" + folder + "'";
  return ProblemOfName(folder);
}

bool SeedNameLists(const std::string& folder) {
  bool complete = true;
  for (const char* const name : {kStoreFile, kCategoryFile, kUnitFile}) {
    const std::string path = folder.empty() ? name : folder + "\\" + name;
    if (platform::FileExists(path)) continue;
    if (NameList().Save(path) != 0) complete = false;
  }
  return complete;
}

}  // namespace brovanta
