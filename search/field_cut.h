// One field of a result block: what stands between two markers.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "search/marker.h"
#include "search/scrape_observer.h"

namespace brovanta {

/// The two markers of one field of an agent, prepared for all blocks of a page. One thread.
class FieldCut {
 public:
  /// The flag, if any, ends every search of it.
  FieldCut(const WebAgent& agent, AgentText start, AgentText end, CancelFlag cancel_flag = nullptr);

  /// What stands behind the first start marker, up to the first end marker behind it; nothing when
  /// either is not defined or not found, or when nothing stands between them. The observer, if any,
  /// hears of places in the page, in which the block stands at `offset`.
  [[nodiscard]] std::optional<std::string_view> Cut(std::string_view block, std::size_t offset,
                                                    ScrapeObserver* observer);

 private:
  // A marker and its search, which refers to it: neither moves.
  struct Searched {
    Searched(std::string_view text, CancelFlag cancel_flag)
        : marker(text), search(marker, cancel_flag) {}
    Marker marker;
    MarkerSearch search;
  };

  AgentText start_name_;
  AgentText end_name_;
  std::unique_ptr<Searched> start_;  // nullptr: not defined
  std::unique_ptr<Searched> end_;
};

}  // namespace brovanta
