// The commands of the program.
#pragma once

#include <span>

#include "data/command_line.h"

namespace brovanta::data_tool {

/// The table of commands, in the order of the help.
[[nodiscard]] std::span<const Command> Commands();

}  // namespace brovanta::data_tool
