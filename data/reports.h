// What the program found out, for a person and for a script. Both kinds end with a line feed.
#pragma once

#include <string>

#include "data/folder_report.h"

namespace brovanta::data_tool {

[[nodiscard]] std::string CheckAsText(const FolderReport& report, const std::string& folder);
[[nodiscard]] std::string CheckAsJson(const FolderReport& report, const std::string& folder);

}  // namespace brovanta::data_tool
