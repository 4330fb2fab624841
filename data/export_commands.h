// The command "export" in the formats that take everything.
#pragma once

#include "data/command_line.h"

namespace brovanta::data_tool {

/// One document, to where --output says, else to standard output.
[[nodiscard]] CommandEnd ExportAsJson(const CommandLine& line);

/// A table for each kind of data, into the folder that --output names.
[[nodiscard]] CommandEnd ExportAsCsv(const CommandLine& line);

}  // namespace brovanta::data_tool
