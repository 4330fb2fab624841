// What kind of file stands under a name.
#pragma once

#include <optional>
#include <string>

#include "data/framed_file.h"

namespace brovanta::data_tool {

enum class FileKind { kList, kDiscounts, kProducts, kSearches, kResults, kAgents };

/// Nothing for a name that no data file has: "../x" for example.
[[nodiscard]] std::optional<FileKind> KindOfFile(const std::string& name);

/// Nothing for the agents, whose file is a text.
[[nodiscard]] std::optional<FrameKind> FrameOf(FileKind kind);

}  // namespace brovanta::data_tool
