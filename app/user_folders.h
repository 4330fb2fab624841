// Where this user's files live, by the desktop's conventions.
#pragma once

#include <string>

namespace brovanta {

/// "brovanta/registry.reg" in the configuration folder ($XDG_CONFIG_HOME, else ~/.config).
[[nodiscard]] std::string UserRegistryFile();

/// "brovanta" in the data folder ($XDG_DATA_HOME, else ~/.local/share).
[[nodiscard]] std::string UserDataFolder();

/// The folder's one absolute name, without links and dots; empty when there is no such folder.
[[nodiscard]] std::string CanonicalFolder(const std::string& path);

/// Whether files can be made in the folder.
[[nodiscard]] bool IsWritableFolder(const std::string& path);

}  // namespace brovanta
