#include <QApplication>
#include <cstdio>
#include <future>
#include <optional>
#include <utility>

#include "app/command_line.h"
#include "app/start_up.h"
#include "ui/base/warm_up.h"

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
  // The arguments are all our own; the toolkit's go by its environment variables.
  int toolkit_argc = argc > 0 ? 1 : 0;
  std::optional<brovanta::ReadyData> data = brovanta::GetDataReady(line);
  if (!data) return brovanta::kExitNoData;
  const brovanta::WarmUp warm_up;
  // Not while the window system is being connected to, which needs a processor as well.
  std::promise<void> connected;
  brovanta::BeginFirstRows(*data, connected.get_future().share());
  const QApplication application(toolkit_argc, argv);
  connected.set_value();
  warm_up.Wait();
  brovanta::PrepareToolkit(line.language);
  return brovanta::RunProgram(std::move(*data));
}
