// What the command-line programs say: reports to standard output, complaints to standard error.
#pragma once

#include <string_view>

namespace brovanta {

/// Writes the text to standard output at once. False when it does not arrive whole, on a full disk
/// for example.
[[nodiscard]] bool Print(std::string_view text);

/// Writes the text as a line of its own to standard error, in one call, so that lines of several
/// threads do not mix. Where nobody takes it there is nobody to tell.
void Complain(std::string_view text);

}  // namespace brovanta
