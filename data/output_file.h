// Where the result of a command goes.
#pragma once

#include <string>
#include <string_view>

#include "data/command_line.h"

namespace brovanta::data_tool {

/// "-o FILE", for the commands whose result is a document.
inline constexpr Option kOutputOption{"--output", "FILE", "writes into a file", 0, "-o"};

/// The end of a command that has a document for standard output, or, with -o, for that file. What
/// stands in the file is replaced; a file in the data folder or below it is refused.
[[nodiscard]] CommandEnd DeliverDocument(const CommandLine& line, const std::string& folder,
                                         std::string document);

/// Whether the path is the data folder or leads to something in it; the command then ends with
/// NoPlaceForIt. Links are followed.
[[nodiscard]] bool LiesIn(const std::string& path, const std::string& folder);
[[nodiscard]] CommandEnd NoPlaceForIt(const std::string& path);

/// Writes the file: a new one stands there whole before it takes the place of the old one; a
/// device or a pipe is written to. What went wrong in words, empty when nothing did.
[[nodiscard]] std::string WriteOutput(const std::string& path, std::string_view bytes);

}  // namespace brovanta::data_tool
