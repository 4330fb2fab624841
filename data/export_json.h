// All data of a folder as one JSON document; docs/formats/export.md describes it.
#pragma once

#include <string>

#include "data/data_snapshot.h"

namespace brovanta::data_tool {

inline constexpr char kExportFormat[] = "brovanta-data";
inline constexpr std::int32_t kExportVersion = 1;

/// Ends with a line feed. ImportJson makes the same files of it, bit for bit.
[[nodiscard]] std::string ExportJson(const DataSnapshot& files);

}  // namespace brovanta::data_tool
