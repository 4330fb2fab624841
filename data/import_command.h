// The command "import".
#pragma once

#include "data/command_line.h"

namespace brovanta::data_tool {

/// Makes the data files of a folder those of a JSON document.
[[nodiscard]] CommandEnd ImportFromJson(const CommandLine& line);

}  // namespace brovanta::data_tool
