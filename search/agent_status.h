// Why an agent ended without a page.
#pragma once

#include <cstdint>

namespace brovanta {

inline constexpr std::int32_t AGENT_NO_WORDS = -62;        ///< there are no search words
inline constexpr std::int32_t AGENT_NO_KEYWORD = -63;      ///< no " KEYWORD ", or nothing before it
inline constexpr std::int32_t AGENT_NO_ENCODING = -64;     ///< the words could not be encoded
inline constexpr std::int32_t AGENT_NO_PAGE = 0x10000010;  ///< download failed or was cancelled

}  // namespace brovanta
