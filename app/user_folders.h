// Where this user's files live, by the desktop's conventions.
#pragma once

#include <string>

namespace brovanta {

/// "brovanta/registry.reg" in the configuration folder ($XDG_CONFIG_HOME, else ~/.config).
[[nodiscard]] std::string UserRegistryFile();

/// "brovanta" in the data folder ($XDG_DATA_HOME, else ~/.local/share).
[[nodiscard]] std::string UserDataFolder();

}  // namespace brovanta
