#include <cstdio>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/start_up.h"
#include "util/console.h"

namespace {

int Say(const std::string& text) {
  if (brovanta::Print(text)) return brovanta::kExitWell;
  std::fputs("brovanta: standard output cannot be written\n", stderr);
  return brovanta::kExitNoData;
}

}  // namespace

int main(int argc, char** argv) {
  using brovanta::CommandLine;
  const CommandLine line =
      brovanta::ParseCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  switch (line.action) {
    case CommandLine::Action::kShowVersion:
      return Say("brovanta " BROVANTA_VERSION "\n");
    case CommandLine::Action::kShowHelp:
      return Say(brovanta::HelpText());
    case CommandLine::Action::kShowServer:
      return Say(brovanta::ConfiguredUpdateServer(line) + "\n");
    case CommandLine::Action::kRefuse:
      std::fprintf(stderr, "brovanta: %s\nTry 'brovanta --help'.\n", line.problem.c_str());
      return brovanta::kExitArguments;
    case CommandLine::Action::kRun:
      break;
  }
  if (const std::string problem = brovanta::LanguageProblem(line.language); !problem.empty()) {
    std::fprintf(stderr, "brovanta: %s\n", problem.c_str());
    return brovanta::kExitArguments;
  }
  if (!brovanta::HasScreen()) {
    brovanta::ComplainOfNoScreen();
    return brovanta::kExitNoData;
  }
  return brovanta::RunOnScreen(line, argc, argv);
}
