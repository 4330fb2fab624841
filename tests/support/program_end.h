// A program, run to its end.
#pragma once

#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

struct ProgramEnd {
  int status = -1;
  std::string output;
  std::string errors;
};

/// Runs the program with the arguments; what it writes to standard error goes through the file
/// "errors" of the folder.
[[nodiscard]] ProgramEnd RunToEnd(const std::string& program, const TempFolder& folder,
                                  const std::vector<std::string>& arguments);

}  // namespace brovanta::test
