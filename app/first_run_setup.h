// Plays the installer: whatever the program expects to find at its start is there afterwards.
#pragma once

#include <string>

#include "platform/registry.h"

namespace brovanta {

inline constexpr const char* kProgramKey = "Software\\Brovanta";
inline constexpr const char* kDefaultUpdateServer = "http://localhost:8427";

/// Writes "InstallPath" (the default folder) and "UpdateServer" where they are missing, and makes
/// the default folder when it is the one in use: a folder chosen by hand that is gone, on a card
/// that is not in its slot, is not made anew. Returns the data folder, native and absolute (or ""
/// where the settings say so); the default one where there is no place for settings.
///
/// `problem` says in a sentence for a person why the program cannot start, and is empty when it
/// can: there are settings, but they cannot be read, so that nobody knows where the data are - then
/// nothing is made or written; or the folder has a name that no file in it could be reached by.
[[nodiscard]] std::string SetUpUserData(const platform::RegistryStore& store,
                                        const std::string& default_folder, std::string& problem);

/// Makes a throw-away folder, whose settings lie in it, and gives `folder` its absolute name.
/// Returns what is wrong with it in a sentence for a person, nothing when it can be used.
[[nodiscard]] std::string SetUpThrowAwayFolder(std::string& folder);

/// Writes "UpdateServer" where it is missing.
void SetUpUpdateServer(const platform::RegistryStore& store);

/// The stored "UpdateServer", the default one where it is missing or cannot be read.
[[nodiscard]] std::string UpdateServer(const platform::RegistryStore& store);

/// Puts an empty list in the place of every name list that is missing; never touches one that is
/// there. False when one could not be written.
[[nodiscard]] bool SeedNameLists(const std::string& folder);

}  // namespace brovanta
