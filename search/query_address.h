// The address that asks a shop for the search words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "util/text.h"

namespace brovanta {

/// What stands in a FormatString for the search words; its blanks go with it.
inline constexpr char kKeyword[] = " KEYWORD ";

/// A search is for the first so many bytes of its words.
inline constexpr std::size_t kMaxWordsLength = 100;

/// A query address is cut behind this many bytes.
inline constexpr std::size_t kMaxAddressLength = 249;

/// UrlEncode, or what takes its place in a test.
using WordsEncoder = std::optional<std::string> (*)(const char* words);

/// Puts the words, form-encoded, in the place of the first keyword. 0, AGENT_NO_WORDS for no or
/// empty words, AGENT_NO_KEYWORD, or AGENT_NO_ENCODING when memory runs out.
[[nodiscard]] std::int32_t BuildQueryAddress(const std::string& format_string,
                                             const std::string& words, std::string& address,
                                             WordsEncoder encode = &UrlEncode);

}  // namespace brovanta
