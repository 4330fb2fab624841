// The command "export", one function for each format.
#pragma once

#include <optional>
#include <string>

#include "data/command_line.h"
#include "data/data_snapshot.h"

namespace brovanta::data_tool {

[[nodiscard]] CommandEnd ExportAsJson(const CommandLine& line);
[[nodiscard]] CommandEnd ExportAsCsv(const CommandLine& line);

/// For every format: the data files of the folder, which nobody changes meanwhile. Nothing when
/// they cannot be had; `end` then says so.
[[nodiscard]] std::optional<DataSnapshot> ReadForExport(const std::string& folder, CommandEnd& end);

/// For formats of one file: to where --output says, else to standard output. A file that stands
/// there is replaced, but nothing is put into the data folder.
[[nodiscard]] CommandEnd DeliverExport(const CommandLine& line, std::string text);

}  // namespace brovanta::data_tool
