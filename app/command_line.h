// What the program was asked to do when it was started.
#pragma once

#include <string>
#include <vector>

namespace brovanta {

struct CommandLine {
  enum class Action {
    kRun,          ///< run on the user's data, or on `data_folder` where it is not empty
    kShowVersion,  ///< print the version and end
    kShowHelp,     ///< print the help and end
    kShowServer,   ///< print the address of the update server and end
    kRefuse,       ///< the arguments make no sense; `problem` says why
  };
  Action action = Action::kRun;
  std::string data_folder;
  std::string language;  ///< as it was asked for, "" = not at all
  std::string problem;
};

/// Reads the arguments (without the program's name). The first thing that is wrong decides.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// The text of --help.
[[nodiscard]] const char* HelpText();

}  // namespace brovanta
