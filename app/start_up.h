// From the arguments to the running program: whose data, whether it is free, what has to be made.
#pragma once

#include <future>
#include <memory>
#include <optional>
#include <string>

#include "app/command_line.h"
#include "platform/folder.h"
#include "platform/registry.h"
#include "ui/shell/first_rows.h"

namespace brovanta {

inline constexpr int kExitWell = 0;
inline constexpr int kExitNoData = 1;  ///< the data folder cannot be used, or its user is silent
inline constexpr int kExitArguments = 2;

/// Whether there is a screen to show windows on, as far as the environment says.
[[nodiscard]] bool HasScreen();

/// What is wrong with the language that was asked for, in a sentence for a person; nothing when the
/// program speaks it, or when none was asked for.
[[nodiscard]] std::string LanguageProblem(const std::string& asked);

/// Sets the running QApplication up for this program: numbers with a point, name, icon, style, and
/// the language where one was asked for.
void PrepareToolkit(const std::string& language);

/// The update server that the settings of the user, or of the throw-away folder, name. Changes
/// nothing.
[[nodiscard]] std::string ConfiguredUpdateServer(const CommandLine& line);

/// The data that the program runs on.
struct ReadyData {
  platform::RegistryStore store;
  std::string folder;                     ///< native, "" the working folder
  platform::FolderLock lock;              ///< the folder's, unless someone else has it
  bool is_free = false;                   ///< nobody else has it
  std::unique_ptr<FirstRows> first_rows;  ///< nullptr until somebody begins to read them
};

/// Sets the user's data or the throw-away folder up, as far as it needs no toolkit: it may be
/// called before there is an application. Where nobody else has the folder, what a broken change
/// has left is undone. What goes wrong is said on the standard error output; nothing when the
/// program cannot run.
[[nodiscard]] std::optional<ReadyData> GetDataReady(const CommandLine& line);

/// Reads today's products on a thread, once `begin` is there; not while somebody else has the
/// folder.
void BeginFirstRows(ReadyData& data, std::shared_future<void> begin);

/// Runs the program on the data and returns its exit status. What goes wrong before there is a
/// window is said on the standard error output.
[[nodiscard]] int RunProgram(ReadyData data);

}  // namespace brovanta
