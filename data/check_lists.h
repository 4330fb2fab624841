// A look at a name list.
#pragma once

#include <cstdint>
#include <optional>
#include <set>

#include "data/folder_report.h"
#include "data/frame.h"

namespace brovanta::data_tool {

/// The ids of a list; nothing when it cannot be said which there are.
using KnownIds = std::optional<std::set<std::uint32_t>>;

/// Checks the bytes of a list file, counts its items in `report` and returns its ids.
[[nodiscard]] KnownIds CheckNameList(FileBytes bytes, FileReport& report, FileNotes& notes);

}  // namespace brovanta::data_tool
