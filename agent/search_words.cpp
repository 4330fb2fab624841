#include "agent/search_words.h"

#include "search/query_address.h"
#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::agent_tool {

std::string SearchWordsOf(std::string_view typed) {
  const auto wide = Utf8ToUtf16(typed);
  return (wide ? NarrowToWindows1252(*wide) : std::string(typed)).substr(0, kMaxWordsLength);
}

}  // namespace brovanta::agent_tool
