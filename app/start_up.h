// From the arguments to the running program: whose data, whether it is free, what has to be made.
#pragma once

#include <string>

#include "app/command_line.h"

namespace brovanta {

inline constexpr int kExitWell = 0;
/// The data folder cannot be used, or its user is silent; there is no screen; nothing can be
/// printed.
inline constexpr int kExitNoData = 1;
inline constexpr int kExitArguments = 2;

/// Whether there is a screen to show windows on, as far as the environment says.
[[nodiscard]] bool HasScreen();

/// Says on standard error that there is none.
void ComplainOfNoScreen();

/// What is wrong with the language that was asked for, in a sentence for a person; nothing when the
/// program speaks it, or when none was asked for.
[[nodiscard]] std::string LanguageProblem(const std::string& asked);

/// The update server that the settings of the user, or of the throw-away folder, name. Changes
/// nothing.
[[nodiscard]] std::string ConfiguredUpdateServer(const CommandLine& line);

/// Runs the program on a screen from its arguments to its end and returns its exit status. What
/// goes wrong before there is a window is said on the standard error output. `argc` and `argv` are
/// those of main; what is in `line` has been taken from them, and nothing in them is the toolkit's.
[[nodiscard]] int RunOnScreen(const CommandLine& line, int argc, char** argv);

/// Sets the running QApplication up for this program: numbers with a point, name, icon, style, and
/// the language where one was asked for.
void PrepareToolkit(const std::string& language);

}  // namespace brovanta
