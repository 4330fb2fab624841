// From a shop's page to the things on it. Pure work on bytes: no network, no files, no clock.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/field_cut.h"
#include "search/marker.h"
#include "search/scrape_observer.h"
#include "search/search_result_item.h"
#include "search/web_agent.h"
#include "util/word_search.h"

namespace brovanta {

/// Why a page gave no further item.
enum class PageEnd {
  kNotYet,          ///< nothing has ended it, or the flag was set
  kNoHeader,        ///< EndHeader is not in the page
  kNoStart,         ///< no further StartResult
  kNoEnd,           ///< no EndResult behind it
  kShortBlock,      ///< a block of one byte or none
  kNoTitle,         ///< a block without a title; what follows is not looked at
  kNoUrl,           ///< a block with a title but no link, likewise
  kMarkersMissing,  ///< the agent has no StartResult or no EndResult
};

/// Walks over one page with the markers of one agent. Takes time in proportion to the page, also
/// for pages that were made to prevent that; to the page and the number of "*" in a marker where an
/// agent was made to. Borrows page, agent, observer and flag. One thread.
class PageScraper {
 public:
  /// A page ends at its first zero byte.
  PageScraper(std::string_view page, const WebAgent& agent, ScrapeObserver* observer = nullptr,
              CancelFlag cancel_flag = nullptr);
  PageScraper(const PageScraper&) = delete;
  PageScraper& operator=(const PageScraper&) = delete;

  /// Skips the page's header, up to and with EndHeader (a plain text, no wildcards), and gives the
  /// first item. An agent without EndHeader starts at the page's beginning.
  [[nodiscard]] std::optional<SearchResultItem> FirstItem();

  /// The next item; nothing ends the page. Kept: one block without title or link ends it as well.
  [[nodiscard]] std::optional<SearchResultItem> NextItem();

  /// Why there was nothing.
  [[nodiscard]] PageEnd end() const { return end_; }

 private:
  [[nodiscard]] std::optional<MarkerMatch> Look(AgentText name, MarkerSearch& search,
                                                std::size_t from);
  [[nodiscard]] std::optional<std::string_view> NextBlock();
  [[nodiscard]] std::optional<SearchResultItem> End(PageEnd why);
  [[nodiscard]] bool IsCancelled() const { return cancel_flag_ != nullptr && *cancel_flag_ != 0; }

  std::string_view page_;
  const WebAgent& agent_;
  ScrapeObserver* observer_;
  const CancelFlag cancel_flag_;
  Marker start_marker_;
  Marker end_marker_;
  MarkerSearch start_search_;
  MarkerSearch end_search_;
  FieldCut title_;
  FieldCut text_;
  FieldCut url_;
  FieldCut price_;
  FieldCut promo_;
  std::size_t cursor_ = 0;
  PageEnd end_ = PageEnd::kNotYet;
};

/// Whether a search wants the item: a word of the search in its title, and a price above 0.0.
[[nodiscard]] bool IsWanted(const SearchResultItem& item, const WordSearch& words);

/// The items of a page that the search wants, in the order of the page. Nothing for an agent
/// without SiteName, StartResult or EndResult. A flag that is set ends it soon; `cut_short`, where
/// given, says whether the rest of the page was left out for that. It was not where there was
/// nothing left to look at.
[[nodiscard]] std::vector<SearchResultItem> ScrapePage(std::string_view page, const WebAgent& agent,
                                                       const std::string& words,
                                                       CancelFlag cancel_flag = nullptr,
                                                       bool* cut_short = nullptr);

}  // namespace brovanta
