// Bytes of files and command lines as text for a person or a script.
#pragma once

#include <string>
#include <string_view>

namespace brovanta {

/// The bytes as UTF-8: as they are if they are that already, else as Windows-1252.
[[nodiscard]] std::string Utf8Text(std::string_view bytes);

/// That in quotation marks and on one line, with no character that a terminal would obey: control
/// characters as \n, \r, \t or \x1B, a quotation mark as \" and a backslash as two.
[[nodiscard]] std::string Quoted(std::string_view bytes);

}  // namespace brovanta
