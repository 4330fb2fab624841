// The query address of an agent, or why there is none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "search/web_agent.h"

namespace brovanta::agent_tool {

struct AddressReport {
  std::int32_t status = 0;    ///< of BuildQueryAddress
  std::string address;        ///< empty when the status is not 0
  bool cut = false;           ///< it would be longer
  bool downloadable = false;  ///< the program's downloader takes it
};

/// `words` as the search has them.
[[nodiscard]] AddressReport AddressOf(const WebAgent& agent, const std::string& words);

/// A status of BuildQueryAddress in words.
[[nodiscard]] std::string StatusText(std::int32_t status);

}  // namespace brovanta::agent_tool
