// One agent over one page: everything that the scraper saw.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/marker.h"
#include "search/page_scraper.h"
#include "search/search_result_item.h"
#include "search/web_agent.h"

namespace brovanta::agent_tool {

/// A marker and what became of it.
struct Sighting {
  enum class State {
    kFound,
    kNotFound,
    kNotLookedFor,  ///< because the marker that comes with it was not found or is not defined
    kNotDefined,
  };
  const char* marker = "";  ///< its name in the agent file
  State state = State::kNotDefined;
  MarkerMatch match;  ///< in the page, when it was found
};

enum class DropReason { kNoWord, kNoPrice };

/// One result block.
struct TriedBlock {
  std::size_t start = 0;  ///< in the page
  std::size_t length = 0;
  std::vector<Sighting> markers;  ///< from StartResult to EndPromo
  std::optional<SearchResultItem> item;
  std::vector<DropReason> reasons;  ///< why the search does not want the item; empty: it is kept
};

struct Trial {
  Sighting header;
  std::vector<TriedBlock> blocks;
  std::size_t items = 0;
  std::size_t kept = 0;

  PageEnd end = PageEnd::kNotYet;
  const char* end_marker = "";      ///< the one at which the page ended
  bool end_marker_missing = false;  ///< it was not found; else nothing stood in front of it
  std::size_t end_from =
      0;  ///< from where in the page it was looked for, or where the block begins
};

/// Runs the program's scraper. Without words the price alone decides what is kept.
[[nodiscard]] Trial TryAgent(std::string_view page, const WebAgent& agent,
                             const std::optional<std::string>& words);

}  // namespace brovanta::agent_tool
