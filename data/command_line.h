// What the program is told on its command line.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::data_tool {

struct CommandLine;

/// How a command ends and what it says.
struct CommandEnd {
  int status = 0;                       ///< of exit_status.h
  std::string output;                   ///< for standard output
  std::vector<std::string> complaints;  ///< for standard error, a line each
};

/// One command: a row of the table in commands.cpp.
struct Command {
  std::string_view name;
  std::string_view arguments;  ///< for the help; optional ones in brackets
  std::string_view purpose;    ///< one or more lines
  std::size_t least = 1;       ///< so many arguments at least
  std::size_t most = 1;
  CommandEnd (*run)(const CommandLine& line) = nullptr;
};

struct CommandLine {
  enum class Action { kRun, kHelp, kVersion };
  Action action = Action::kHelp;
  const Command* command = nullptr;    ///< for kRun
  std::vector<std::string> arguments;  ///< of the command, as many as it takes
  bool json = false;
};

/// The arguments without the program's name. Nothing when they make no sense, `error` then says
/// why in one sentence.
[[nodiscard]] std::optional<CommandLine> ParseCommandLine(
    std::span<const std::string_view> arguments, std::span<const Command> commands,
    std::string& error);

/// The text of --help.
[[nodiscard]] std::string HelpText(std::span<const Command> commands);

}  // namespace brovanta::data_tool
