// The export of due dates for a calendar.
#pragma once

#include "data/command_line.h"

namespace brovanta::data_tool {

/// A calendar file of the products of a data folder: standard output, or the file of -o.
[[nodiscard]] CommandEnd ExportAsIcs(const CommandLine& line);

}  // namespace brovanta::data_tool
