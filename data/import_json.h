// The files of a data folder from the JSON document that ExportJson makes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/data_snapshot.h"

namespace brovanta::data_tool {

/// Everything is checked; nothing is made up and nothing is passed over. Nothing when the document
/// is not one of ours or does not fit together; `error` then tells the line, the place and why, for
/// the first thing that is wrong.
[[nodiscard]] std::optional<DataSnapshot> ImportJson(std::string_view document, std::string& error);

}  // namespace brovanta::data_tool
