#include "data/command_line.h"

#include <algorithm>

#include "util/argument_reader.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

// Every step returns false after noting the error.
class Parser : ArgumentReader {
 public:
  Parser(std::span<const std::string_view> arguments, std::span<const Command> commands,
         std::string& error)
      : ArgumentReader(arguments, error), commands_(commands) {}

  std::optional<CommandLine> Parse() {
    const bool read = ReadArguments([this](std::string_view option) { return TakeOption(option); });
    if (asked_) return line_;
    if (!read || !TakeWords()) return std::nullopt;
    return line_;
  }

 private:
  // --help and --version end the reading, whatever follows.
  bool TakeQuestion(CommandLine::Action action) {
    line_.action = action;
    asked_ = true;
    return false;
  }

  bool TakeOption(std::string_view option) {
    if (option == "--help" || option == "-h") return TakeQuestion(CommandLine::Action::kHelp);
    if (option == "--version") return TakeQuestion(CommandLine::Action::kVersion);
    line_.json = line_.json || option == "--json";
    return option == "--json" || Fail("There is no option " + Quoted(option) + ".");
  }

  bool TakeWords() {
    if (words().empty()) return Fail("A command is missing.");
    const std::string_view name = words().front();
    const auto command = std::find_if(commands_.begin(), commands_.end(),
                                      [name](const Command& one) { return one.name == name; });
    if (command == commands_.end()) return Fail("There is no command " + Quoted(name) + ".");
    const std::size_t count = words().size() - 1;
    if (count < command->least) {
      return Fail(std::string(name) + " needs " + std::string(command->arguments) + ".");
    }
    if (count > command->most) {
      return Fail(std::string(name) + " does not take " + Quoted(words().back()) + ".");
    }
    line_.action = CommandLine::Action::kRun;
    line_.command = &*command;
    line_.arguments.assign(words().begin() + 1, words().end());
    // An empty name would mean the folder in which the program was started.
    const bool has_empty = std::any_of(line_.arguments.begin(), line_.arguments.end(),
                                       [](const std::string& word) { return word.empty(); });
    return !has_empty || Fail(std::string(name) + " does not take an empty argument.");
  }

  std::span<const Command> commands_;
  CommandLine line_;
  bool asked_ = false;
};

// Every further line of a text begins below its first one.
std::string Indented(std::string_view text, std::size_t by) {
  std::string result;
  for (const char character : text) {
    result += character;
    if (character == '\n') result.append(by, ' ');
  }
  return result;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(std::span<const std::string_view> arguments,
                                            std::span<const Command> commands, std::string& error) {
  return Parser(arguments, commands, error).Parse();
}

std::string HelpText(std::span<const Command> commands) {
  std::string text = "Usage:\n";
  std::size_t longest = 0;
  for (const Command& command : commands) {
    text.append("  brovanta-data ").append(command.name).append(" ").append(command.arguments);
    text += " [--json]\n";
    longest = std::max(longest, command.name.size());
  }
  text += "\nLooks after the data folders of the Brovanta shopping planner.\n\n";
  for (const Command& command : commands) {
    std::string line = "  " + std::string(command.name);
    line.resize(longest + 4, ' ');
    text += line + Indented(command.purpose, line.size()) + "\n";
  }
  return text + R"(
  --json   writes JSON, for scripts
  --help, --version

Ends with 0 when all is well, 1 when something is wrong with the data or could not be done, 2
when the command line makes no sense, and 3 when the folder cannot be read.
)";
}

}  // namespace brovanta::data_tool
