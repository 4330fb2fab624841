// The command that prints the shopping list.
#pragma once

#include <span>

#include "data/command_line.h"

namespace brovanta::data_tool {

[[nodiscard]] std::span<const Option> ListOptions();

/// The shopping list of a data folder for a period, as text, page or document.
[[nodiscard]] CommandEnd List(const CommandLine& line);

}  // namespace brovanta::data_tool
