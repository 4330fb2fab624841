// The program itself, run to its end.
#pragma once

#include <string>
#include <vector>

#include "tests/support/program_end.h"

namespace brovanta::test {

/// Runs brovanta-agent with the arguments; what it writes to standard error goes through a file of
/// the folder.
[[nodiscard]] inline ProgramEnd RunProgram(const TempFolder& folder,
                                           const std::vector<std::string>& arguments) {
  return RunToEnd(BROVANTA_AGENT_PROGRAM, folder, arguments);
}

}  // namespace brovanta::test
