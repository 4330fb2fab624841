// What the program is told on its command line.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brovanta::agent_tool {

enum class Action { kCheck, kTry, kAddress, kHelp, kVersion };

struct CommandLine {
  Action action = Action::kHelp;
  std::string file;                  ///< the agent file
  std::int32_t site = 0;             ///< number of the agent, at least 1; not for check
  std::string page;                  ///< the stored page; for try only
  std::optional<std::string> words;  ///< as they were typed, never empty; always there for address
  bool json = false;
};

/// The arguments without the program's name. Nothing when they make no sense, `error` then says
/// why in one sentence.
[[nodiscard]] std::optional<CommandLine> ParseCommandLine(
    std::span<const std::string_view> arguments, std::string& error);

/// The text of --help.
[[nodiscard]] std::string_view HelpText();

}  // namespace brovanta::agent_tool
