// The text of --help.
#pragma once

#include <span>
#include <string>

#include "data/command_line.h"

namespace brovanta::data_tool {

/// Made of the table of commands; no line is longer than 80 characters unless one of its words is.
[[nodiscard]] std::string HelpText(std::span<const Command> commands);

}  // namespace brovanta::data_tool
