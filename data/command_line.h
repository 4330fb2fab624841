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

/// One option of a command. One name means the same in every command that has it: with a value or
/// without, with the same short name.
struct Option {
  std::string_view name;     ///< "--store"
  std::string_view value;    ///< what the help calls its value; empty: it has none
  std::string_view purpose;  ///< one or more lines
  int group = 0;             ///< of several options with the same number above 0 only one goes
  std::string_view short_name = {};  ///< "-o"; empty: none
};

/// One command: a row of the table in commands.cpp.
struct Command {
  std::string_view name;
  std::string_view arguments;  ///< for the help; optional ones in brackets
  std::string_view purpose;    ///< one or more lines
  std::size_t least = 1;       ///< so many arguments at least
  std::size_t most = 1;
  CommandEnd (*run)(const CommandLine& line) = nullptr;
  std::span<const Option> options = {};  ///< in the order of the help, those of a group in a row
  int needed_group = 0;                  ///< one option of this group must be given
};

struct CommandLine {
  enum class Action { kRun, kHelp, kVersion };
  struct GivenOption {
    std::string_view name;  ///< the long one
    std::string value;
  };
  Action action = Action::kHelp;
  const Command* command = nullptr;    ///< for kRun
  std::vector<std::string> arguments;  ///< of the command, as many as it takes
  std::vector<GivenOption> options;    ///< of the command, each at most once

  /// By the long name.
  [[nodiscard]] bool Has(std::string_view option) const;
  /// The value of an option, which is never empty; nothing when it was not given.
  [[nodiscard]] std::optional<std::string> ValueOf(std::string_view option) const;
};

/// The arguments without the program's name. The value of an option is the next argument, or
/// stands behind "=". Nothing when the arguments make no sense, `error` then says why in one
/// sentence.
[[nodiscard]] std::optional<CommandLine> ParseCommandLine(
    std::span<const std::string_view> arguments, std::span<const Command> commands,
    std::string& error);

}  // namespace brovanta::data_tool
