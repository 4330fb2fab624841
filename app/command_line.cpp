#include "app/command_line.h"

#include <string_view>

namespace brovanta {

namespace {

constexpr std::string_view kDataFolder = "--data-folder";
constexpr std::string_view kDataFolderWithValue = "--data-folder=";

CommandLine Refused(std::string problem) {
  return {CommandLine::Action::kRefuse, {}, std::move(problem)};
}

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  bool folder_given = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--version") {
      line.action = CommandLine::Action::kShowVersion;
    } else if (argument == "--show-update-server") {
      line.action = CommandLine::Action::kShowServer;
    } else if (argument == "--help" || argument == "-h") {
      line.action = CommandLine::Action::kShowHelp;
    } else if (argument == kDataFolder || StartsWith(argument, kDataFolderWithValue)) {
      if (folder_given) return Refused("--data-folder is given twice");
      folder_given = true;
      if (argument != kDataFolder) {
        line.data_folder = argument.substr(kDataFolderWithValue.size());
      } else if (i + 1 < arguments.size()) {
        line.data_folder = arguments[++i];
      }
      if (line.data_folder.empty()) return Refused("--data-folder needs the name of a folder");
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
         "                        made when it is missing, and nothing else is touched\n"
         "  --show-update-server  print the address that Update asks, and end\n"
         "  --version             print the version and end\n"
         "  --help                print this help and end\n"
         "\n"
         "A second start on the same data shows the window that is open and ends.\n"
         "Exit status: 0 all went well, 1 the data folder cannot be used or the running program\n"
         "does not answer, 2 wrong arguments.\n";
}

}  // namespace brovanta
