#include "data/run_data_tool.h"

#include <string>

#include "data/command_line.h"
#include "data/commands.h"
#include "data/exit_status.h"
#include "data/help_text.h"
#include "util/console.h"

namespace brovanta::data_tool {
namespace {

void Tell(const std::string& text) { Complain("brovanta-data: " + text); }

int Report(std::string_view text, int status) {
  if (Print(text)) return status;
  Tell("standard output cannot be written");
  return kBad;
}

}  // namespace

int RunDataTool(std::span<const std::string_view> arguments, std::string_view version) {
  std::string error;
  const auto line = ParseCommandLine(arguments, Commands(), error);
  if (!line) {
    Tell(error + " See brovanta-data --help.");
    return kMisused;
  }
  switch (line->action) {
    case CommandLine::Action::kHelp:
      return Report(HelpText(Commands()), kGood);
    case CommandLine::Action::kVersion:
      return Report("brovanta-data " + std::string(version) + "\n", kGood);
    case CommandLine::Action::kRun:
      break;
  }
  const CommandEnd end = line->command->run(*line);
  for (const std::string& complaint : end.complaints) Tell(complaint);
  return Report(end.output, end.status);
}

}  // namespace brovanta::data_tool
