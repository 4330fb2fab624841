#include "data/command_line.h"

#include <algorithm>

#include "util/argument_reader.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

const Option* OptionOf(const Command& command, std::string_view name) {
  const auto found =
      std::find_if(command.options.begin(), command.options.end(), [name](const Option& one) {
        return one.name == name || (!one.short_name.empty() && one.short_name == name);
      });
  return found != command.options.end() ? &*found : nullptr;
}

// "--html, --text or --pdf"
std::string NamesOfGroup(const Command& command, int group) {
  std::vector<std::string_view> names;
  for (const Option& option : command.options) {
    if (option.group == group) names.push_back(option.name);
  }
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " or " : ", ";
    text += names[i];
  }
  return text;
}

// Every step returns false after noting the error.
class Parser : ArgumentReader {
 public:
  Parser(std::span<const std::string_view> arguments, std::span<const Command> commands,
         std::string& error)
      : ArgumentReader(arguments, error), commands_(commands) {}

  std::optional<CommandLine> Parse() {
    const bool read = ReadArguments([this](std::string_view option) { return TakeOption(option); });
    if (asked_) return line_;
    if (!read || !TakeWords() || !CheckOptions()) return std::nullopt;
    return line_;
  }

 private:
  // --help and --version end the reading, whatever follows.
  bool TakeQuestion(CommandLine::Action action) {
    line_.action = action;
    asked_ = true;
    return false;
  }

  // Options may stand in front of the command: whether one has a value tells any command with it.
  bool TakeOption(std::string_view argument) {
    if (argument == "--help" || argument == "-h") return TakeQuestion(CommandLine::Action::kHelp);
    if (argument == "--version") return TakeQuestion(CommandLine::Action::kVersion);
    const std::size_t equals = argument.find('=');
    const std::string_view name = argument.substr(0, equals);
    const Option* option = nullptr;
    for (const Command& command : commands_) {
      if (option == nullptr) option = OptionOf(command, name);
    }
    if (option == nullptr) return Fail("There is no option " + Quoted(name) + ".");
    const std::string long_name(option->name);
    if (line_.Has(option->name)) return Fail(long_name + " stands there twice.");
    if (option->value.empty()) {
      if (equals != std::string_view::npos) return Fail(long_name + " does not take a value.");
      line_.options.push_back({option->name, {}});
      return true;
    }
    std::string_view value;
    if (equals != std::string_view::npos) {
      value = argument.substr(equals + 1);
    } else if (HasMore()) {
      value = Take();
      // An option where a value should be is one that was forgotten.
      if (value.starts_with("--")) value = {};
    }
    if (value.empty()) return Fail(long_name + " needs " + std::string(option->value) + ".");
    line_.options.push_back({option->name, std::string(value)});
    return true;
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

  bool CheckOptions() {
    const Command& command = *line_.command;
    const std::string name(command.name);
    std::vector<const Option*> chosen;
    for (const CommandLine::GivenOption& given : line_.options) {
      const Option* const option = OptionOf(command, given.name);
      if (option == nullptr) {
        return Fail(name + " does not take " + std::string(given.name) + ".");
      }
      if (option->group == 0) continue;
      for (const Option* const other : chosen) {
        if (other->group != option->group) continue;
        return Fail(std::string(other->name) + " and " + std::string(option->name) +
                    " exclude each other.");
      }
      chosen.push_back(option);
    }
    const int needed = command.needed_group;
    const bool has_needed =
        needed == 0 || std::any_of(chosen.begin(), chosen.end(),
                                   [needed](const Option* one) { return one->group == needed; });
    return has_needed || Fail(name + " needs " + NamesOfGroup(command, needed) + ".");
  }

  std::span<const Command> commands_;
  CommandLine line_;
  bool asked_ = false;
};

}  // namespace

bool CommandLine::Has(std::string_view option) const {
  return std::any_of(options.begin(), options.end(),
                     [option](const GivenOption& given) { return given.name == option; });
}

std::optional<std::string> CommandLine::ValueOf(std::string_view option) const {
  for (const GivenOption& given : options) {
    if (given.name == option) return given.value;
  }
  return std::nullopt;
}

std::optional<CommandLine> ParseCommandLine(std::span<const std::string_view> arguments,
                                            std::span<const Command> commands, std::string& error) {
  return Parser(arguments, commands, error).Parse();
}

}  // namespace brovanta::data_tool
