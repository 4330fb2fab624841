#include "agent/command_line.h"

#include <charconv>
#include <utility>
#include <vector>

#include "agent/readable_text.h"

namespace brovanta::agent_tool {
namespace {

std::optional<Action> ActionOf(std::string_view word) {
  if (word == "check") return Action::kCheck;
  if (word == "try") return Action::kTry;
  if (word == "address") return Action::kAddress;
  return std::nullopt;
}

// Takes options and words apart, in any order. Every step returns false after noting the error.
class Parser {
 public:
  Parser(std::span<const std::string_view> arguments, std::string& error)
      : arguments_(arguments), error_(error) {}

  std::optional<CommandLine> Parse() {
    bool options_end = false;
    while (!arguments_.empty()) {
      const std::string_view argument = Take();
      if (!options_end && argument == "--") {
        options_end = true;
      } else if (options_end || argument.size() < 2 || !argument.starts_with('-')) {
        words_.push_back(argument);
      } else if (argument == "--help" || argument == "-h") {
        line_.action = Action::kHelp;
        return line_;
      } else if (argument == "--version") {
        line_.action = Action::kVersion;
        return line_;
      } else if (!TakeOption(argument)) {
        return std::nullopt;
      }
    }
    if (!TakeWords() || !CheckTogether()) return std::nullopt;
    return line_;
  }

 private:
  bool Fail(std::string message) {
    error_ = std::move(message);
    return false;
  }

  std::string_view Take() {
    const std::string_view argument = arguments_.front();
    arguments_ = arguments_.subspan(1);
    return argument;
  }

  bool TakeOption(std::string_view option) {
    if (option == "--json") {
      line_.json = true;
      return true;
    }
    if (option != "--site" && option != "--words") {
      return Fail("There is no option " + Quoted(option) + ".");
    }
    if (arguments_.empty()) return Fail(std::string(option) + " needs a value.");
    return option == "--site" ? TakeSite(Take()) : TakeSearchWords(Take());
  }

  bool TakeSite(std::string_view text) {
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), line_.site);
    if (code == std::errc() && end == text.data() + text.size() && line_.site >= 1) return true;
    return Fail(Quoted(text) + " is no number of an agent; such numbers are 1 or more.");
  }

  bool TakeSearchWords(std::string_view text) {
    line_.words = text;
    return !text.empty() || Fail("--words needs at least one word.");
  }

  bool TakeWords() {
    if (words_.empty()) return Fail("check, try or address is missing.");
    const auto action = ActionOf(words_[0]);
    if (!action) return Fail("There is no command " + Quoted(words_[0]) + ".");
    line_.action = *action;
    const std::string command(words_[0]);
    const std::size_t files = line_.action == Action::kTry ? 2 : 1;
    if (words_.size() < 2) return Fail(command + " needs an agent file.");
    if (words_.size() < files + 1) return Fail(command + " needs a page.");
    if (words_.size() > files + 1)
      return Fail(command + " does not take " + Quoted(words_.back()) + ".");
    line_.file = words_[1];
    if (files == 2) line_.page = words_[2];
    return true;
  }

  bool CheckTogether() {
    if (line_.action == Action::kCheck) {
      return (line_.site == 0 && !line_.words) ||
             Fail("check looks at all agents and takes neither --site nor --words.");
    }
    if (line_.site == 0) return Fail("--site is missing, the number of an agent.");
    if (line_.action == Action::kAddress && !line_.words) return Fail("--words is missing.");
    return true;
  }

  std::span<const std::string_view> arguments_;
  std::string& error_;
  CommandLine line_;
  std::vector<std::string_view> words_;
};

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<const std::string_view> arguments,
                                            std::string& error) {
  return Parser(arguments, error).Parse();
}

std::string_view HelpText() {
  return R"(Usage:
  brovanta-agent check FILE [--json]
  brovanta-agent try FILE --site N PAGE.html [--words "WORDS"] [--json]
  brovanta-agent address FILE --site N --words "WORDS" [--json]

Helps to write the agent file of the Brovanta shopping planner's web search.

  check    lists every category and every agent with what it lacks, and tells what the
           program makes of the file
  try      runs the agent with the number N over a stored page: where each marker was found,
           each item, which items are dropped and why, and where the page ended
  address  prints the address that the agent asks for the words

  --site N         the agent's <SiteId>
  --words "WORDS"  what the user searches for; without it, try keeps all that has a price
  --json           writes JSON, for scripts
  --help, --version

Ends with 0 when all is well, 1 when the file, the agent or the page is not as it should be,
2 when the command line makes no sense, and 3 when a file cannot be read or no agent of the
file has the number.
)";
}

}  // namespace brovanta::agent_tool
