// Stored text as it goes onto a page: UTF-8 on one line, its width known.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brovanta::data_tool {

/// Windows-1252 bytes as UTF-8, control characters and runs of blanks as one blank, none at
/// the ends.
[[nodiscard]] std::string PlainLine(std::string_view stored);

/// Columns that UTF-8 text takes on a terminal: 2 for wide characters of East Asia and pictures, 0
/// for marks that stand on the character before them and for other characters without a width.
[[nodiscard]] std::size_t DisplayWidth(std::string_view text);

}  // namespace brovanta::data_tool
