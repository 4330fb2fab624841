// Where the result of a command goes.
#pragma once

#include <string>

#include "data/command_line.h"

namespace brovanta::data_tool {

/// "-o FILE", for the commands whose result is a document.
inline constexpr Option kOutputOption{"--output", "FILE", "writes into a file", 0, "-o"};

/// The end of a command that has a document for standard output, or, with -o, for that file. What
/// stands in the file is replaced; a file of the data folder itself is refused.
[[nodiscard]] CommandEnd DeliverDocument(const CommandLine& line, const std::string& folder,
                                         std::string document);

}  // namespace brovanta::data_tool
