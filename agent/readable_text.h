// Bytes of agent files, pages and command lines as text for a person or a script.
#pragma once

#include <string>
#include <string_view>

namespace brovanta::agent_tool {

/// The bytes as UTF-8: as they are if they are that already, else as Windows-1252.
[[nodiscard]] std::string Utf8Text(std::string_view bytes);

/// That in quotation marks and on one line, with no character that a terminal would obey: control
/// characters as \n, \r, \t or \x1B, a quotation mark as \" and a backslash as two.
[[nodiscard]] std::string Quoted(std::string_view bytes);

/// What the program makes of words that are typed as UTF-8: Windows-1252, with "?" for what that
/// does not have. Bytes that are no UTF-8 stay as they are. The first
/// kMaxWordsLength bytes of it.
[[nodiscard]] std::string SearchWordsOf(std::string_view typed);

}  // namespace brovanta::agent_tool
