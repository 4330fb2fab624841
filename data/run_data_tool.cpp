#include "data/run_data_tool.h"

#include <cstdio>
#include <string>

#include "data/command_line.h"
#include "data/commands.h"
#include "data/exit_status.h"

namespace brovanta::data_tool {
namespace {

void Complain(const std::string& text) {
  const std::string line = "brovanta-data: " + text + "\n";
  static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

// The status, unless the report does not arrive whole, on a full disk for example.
int Print(std::string_view text, int status) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0) {
    return status;
  }
  Complain("standard output cannot be written");
  return kBad;
}

}  // namespace

int RunDataTool(std::span<const std::string_view> arguments, std::string_view version) {
  std::string error;
  const auto line = ParseCommandLine(arguments, Commands(), error);
  if (!line) {
    Complain(error + " See brovanta-data --help.");
    return kMisused;
  }
  switch (line->action) {
    case CommandLine::Action::kHelp:
      return Print(HelpText(Commands()), kGood);
    case CommandLine::Action::kVersion:
      return Print("brovanta-data " + std::string(version) + "\n", kGood);
    case CommandLine::Action::kRun:
      break;
  }
  const CommandEnd end = line->command->run(*line);
  for (const std::string& complaint : end.complaints) Complain(complaint);
  return Print(end.output, end.status);
}

}  // namespace brovanta::data_tool
