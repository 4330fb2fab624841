// A look at a whole data folder.
#pragma once

#include <optional>
#include <string>

#include "data/folder_report.h"

namespace brovanta::data_tool {

/// Looks at every file and changes nothing: files are opened for reading only, nothing is made or
/// rolled back, and who works with the folder meanwhile is not disturbed. Nothing when the folder
/// cannot be looked into or holds no data file; `error` then says why.
[[nodiscard]] std::optional<FolderReport> CheckFolder(const std::string& folder,
                                                      std::string& error);

}  // namespace brovanta::data_tool
