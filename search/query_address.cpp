#include "search/query_address.h"

#include <algorithm>
#include <new>

#include "search/agent_status.h"

namespace brovanta {
namespace {

std::optional<std::string> Encoded(const std::string& words, WordsEncoder encode) {
  try {
    return encode(words.c_str());
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace

std::int32_t BuildQueryAddress(const std::string& format_string, const std::string& words,
                               std::string& address, WordsEncoder encode) {
  if (words.empty()) return AGENT_NO_WORDS;
  const std::size_t keyword = format_string.find(kKeyword);
  if (keyword == std::string::npos || keyword == 0) return AGENT_NO_KEYWORD;
  const auto encoded = Encoded(words, encode);
  if (!encoded) return AGENT_NO_ENCODING;
  address = format_string;
  address.replace(keyword, sizeof(kKeyword) - 1, *encoded);
  address.resize(std::min(address.size(), kMaxAddressLength));
  return 0;
}

}  // namespace brovanta
