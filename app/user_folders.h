// Where this user's files live, by the desktop's conventions, and folders made for one user alone.
#pragma once

#include <string>

namespace brovanta {

/// "brovanta/registry.reg" in the configuration folder ($XDG_CONFIG_HOME, else ~/.config).
[[nodiscard]] std::string UserRegistryFile();

/// "brovanta" in the data folder ($XDG_DATA_HOME, else ~/.local/share).
[[nodiscard]] std::string UserDataFolder();

/// Makes the folder and what is missing above it, for this user alone (0700). True when it is there
/// afterwards; otherwise errno says why.
[[nodiscard]] bool MakeFolder(const std::string& path);

/// The folder's one absolute name, without links and dots; empty when there is no such folder.
[[nodiscard]] std::string CanonicalFolder(const std::string& path);

/// Whether files can be made in the folder.
[[nodiscard]] bool IsWritableFolder(const std::string& path);

}  // namespace brovanta
