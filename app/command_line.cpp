#include "app/command_line.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace brovanta {

namespace {

/// An option that has a value, behind an equals sign or as the next argument.
struct ValueOption {
  std::string_view name;
  std::string CommandLine::*value;
  const char* needs;
};

constexpr std::array kValueOptions{
    ValueOption{"--data-folder", &CommandLine::data_folder, "the name of a folder"},
    ValueOption{"--language", &CommandLine::language, "a language, such as de, or system"}};

CommandLine Refused(std::string problem) {
  CommandLine line;
  line.action = CommandLine::Action::kRefuse;
  line.problem = std::move(problem);
  return line;
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

/// The option that the argument begins with, nullptr when it is none of them.
const ValueOption* OptionOf(std::string_view argument) {
  for (const ValueOption& option : kValueOptions) {
    const std::string_view rest = argument.substr(std::min(option.name.size(), argument.size()));
    if (StartsWith(argument, option.name) && (rest.empty() || rest.front() == '=')) return &option;
  }
  return nullptr;
}

/// Takes the value of the option at `i`, which moves on with it; returns what is wrong.
std::string TakeValue(const ValueOption& option, const std::vector<std::string>& arguments,
                      std::size_t& i, CommandLine& line) {
  std::string& value = line.*option.value;
  const std::string name(option.name);
  if (!value.empty()) return name + " is given twice";
  if (arguments[i].size() > name.size()) {
    value = arguments[i].substr(name.size() + 1);
  } else if (i + 1 < arguments.size()) {
    value = arguments[++i];
  }
  return value.empty() ? name + " needs " + option.needs : std::string();
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--version") {
      line.action = CommandLine::Action::kShowVersion;
    } else if (argument == "--show-update-server") {
      line.action = CommandLine::Action::kShowServer;
    } else if (argument == "--help" || argument == "-h") {
      line.action = CommandLine::Action::kShowHelp;
    } else if (const ValueOption* const option = OptionOf(argument)) {
      if (std::string problem = TakeValue(*option, arguments, i, line); !problem.empty()) {
        return Refused(std::move(problem));
      }
    } else if (StartsWith(argument, "-")) {
      return Refused("unknown option '" + argument + "'");
    } else {
      return Refused("unexpected argument '" + argument + "'");
    }
  }
  return line;
}

const char* HelpText() {
  return "Usage: brovanta [OPTION]\n"
         "A shopping planner: lists, purchases and coupons.\n"
         "\n"
         "  --data-folder DIR     work in the folder DIR, with settings of its own; the folder is\n"
         "                        made when it is missing, copies of it go into DIR.backups,\n"
         "                        and nothing else is touched\n"
         "  --language LANGUAGE   speak this language: de or en, or system for that of the user's\n"
         "                        locale; without it, English\n"
         "  --show-update-server  print the address that Update asks, and end\n"
         "  --version             print the version and end\n"
         "  -h, --help            print this help and end\n"
         "\n"
         "A second start on the same data shows the window that is open and ends.\n"
         "Exit status: 0 all went well, 1 there is no screen, the data folder cannot be used, the\n"
         "running program does not answer or nothing can be printed, 2 wrong arguments.\n";
}

}  // namespace brovanta
