#include <cstdio>
#include <string>
#include <vector>

#include "app/command_line.h"
#include "app/start_up.h"

int main(int argc, char** argv) {
  using brovanta::CommandLine;
  const CommandLine line =
      brovanta::ParseCommandLine(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  switch (line.action) {
    case CommandLine::Action::kShowVersion:
      std::puts("brovanta " BROVANTA_VERSION);
      return brovanta::kExitWell;
    case CommandLine::Action::kShowHelp:
      std::fputs(brovanta::HelpText(), stdout);
      return brovanta::kExitWell;
    case CommandLine::Action::kShowServer:
      std::puts(brovanta::ConfiguredUpdateServer(line).c_str());
      return brovanta::kExitWell;
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
    std::fputs("brovanta: there is no screen to show a window on\n", stderr);
    return brovanta::kExitNoData;
  }
  return brovanta::RunOnScreen(line, argc, argv);
}
