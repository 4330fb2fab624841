#include "data/commands.h"

#include <array>

#include "data/check_folder.h"
#include "data/exit_status.h"
#include "data/reports.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {
namespace {

CommandEnd NoFolder(const std::string& folder, const std::string& error) {
  return {kNoFolder, {}, {Quoted(folder) + ": " + error}};
}

CommandEnd Check(const CommandLine& line) {
  const std::string& folder = line.arguments.front();
  std::string error;
  const auto report = CheckFolder(folder, error);
  if (!report) return NoFolder(folder, error);
  return {report->IsWhole() ? kGood : kBad,
          line.json ? CheckAsJson(*report, folder) : CheckAsText(*report, folder),
          {}};
}

constexpr std::array kCommands{
    Command{"check", "DIR",
            "looks at every file of a data folder and tells what is wrong where;\n"
            "changes nothing",
            1, 1, &Check},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

}  // namespace brovanta::data_tool
