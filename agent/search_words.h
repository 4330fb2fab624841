// Words of the command line as the web search has them.
#pragma once

#include <string>
#include <string_view>

namespace brovanta::agent_tool {

/// What the program makes of words that are typed as UTF-8: Windows-1252, with "?" for what that
/// does not have. Bytes that are no UTF-8 stay as they are. The first
/// kMaxWordsLength bytes of it.
[[nodiscard]] std::string SearchWordsOf(std::string_view typed);

}  // namespace brovanta::agent_tool
