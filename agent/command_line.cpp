#include "agent/command_line.h"

#include <charconv>

#include "util/argument_reader.h"
#include "util/readable_text.h"

namespace brovanta::agent_tool {
namespace {

std::optional<Action> ActionOf(std::string_view word) {
  if (word == "check") return Action::kCheck;
  if (word == "try") return Action::kTry;
  if (word == "address") return Action::kAddress;
  return std::nullopt;
}

// Every step returns false after noting the error.
class Parser : ArgumentReader {
 public:
  using ArgumentReader::ArgumentReader;

  std::optional<CommandLine> Parse() {
    const bool read = ReadArguments([this](std::string_view option) { return TakeOption(option); });
    if (asked_) return line_;
    if (!read || !TakeWords() || !CheckTogether()) return std::nullopt;
    return line_;
  }

 private:
  // --help and --version end the reading, whatever follows.
  bool TakeQuestion(Action action) {
    line_.action = action;
    asked_ = true;
    return false;
  }

  bool TakeOption(std::string_view option) {
    if (option == "--help" || option == "-h") return TakeQuestion(Action::kHelp);
    if (option == "--version") return TakeQuestion(Action::kVersion);
    if (option == "--json") {
      line_.json = true;
      return true;
    }
    if (option != "--site" && option != "--words") {
      return Fail("There is no option " + Quoted(option) + ".");
    }
    if (!HasMore()) return Fail(std::string(option) + " needs a value.");
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
    if (words().empty()) return Fail("check, try or address is missing.");
    const auto action = ActionOf(words()[0]);
    if (!action) return Fail("There is no command " + Quoted(words()[0]) + ".");
    line_.action = *action;
    const std::string command(words()[0]);
    const std::size_t files = line_.action == Action::kTry ? 2 : 1;
    if (words().size() < 2) return Fail(command + " needs an agent file.");
    if (words().size() < files + 1) return Fail(command + " needs a page.");
    if (words().size() > files + 1)
      return Fail(command + " does not take " + Quoted(words().back()) + ".");
    line_.file = words()[1];
    if (files == 2) line_.page = words()[2];
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

  CommandLine line_;
  bool asked_ = false;
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
