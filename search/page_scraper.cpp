#include "search/page_scraper.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "search/text_cleaning.h"

namespace brovanta {
namespace {

std::string_view TextOf(const std::optional<std::string>& text) {
  return text ? std::string_view(*text) : std::string_view();
}

std::optional<MarkerMatch> FindPlain(std::string_view text, std::string_view what) {
  const void* found = memmem(text.data(), text.size(), what.data(), what.size());
  if (found == nullptr) return std::nullopt;
  return MarkerMatch{static_cast<std::size_t>(static_cast<const char*>(found) - text.data()),
                     what.size()};
}

}  // namespace

PageScraper::PageScraper(std::string_view page, const WebAgent& agent, ScrapeObserver* observer,
                         CancelFlag cancel_flag)
    : page_(page.substr(0, page.find('\0'))),
      agent_(agent),
      observer_(observer),
      cancel_flag_(cancel_flag),
      start_marker_(TextOf(agent.StartResult)),
      end_marker_(TextOf(agent.EndResult)),
      start_search_(start_marker_, cancel_flag),
      end_search_(end_marker_, cancel_flag),
      title_(agent, &WebAgent::StartItem, &WebAgent::EndItem, cancel_flag),
      text_(agent, &WebAgent::StartText, &WebAgent::EndText, cancel_flag),
      url_(agent, &WebAgent::StartURL, &WebAgent::EndURL, cancel_flag),
      price_(agent, &WebAgent::StartPrice, &WebAgent::EndPrice, cancel_flag),
      promo_(agent, &WebAgent::StartPromo, &WebAgent::EndPromo, cancel_flag) {}

std::optional<SearchResultItem> PageScraper::FirstItem() {
  cursor_ = 0;
  end_ = PageEnd::kNotYet;
  start_search_.Reset(page_);
  end_search_.Reset(page_);
  if (agent_.EndHeader) {
    const auto match = FindPlain(page_, *agent_.EndHeader);
    if (observer_ != nullptr) observer_->OnMarker(&WebAgent::EndHeader, match);
    if (!match) return End(PageEnd::kNoHeader);
    cursor_ = match->start + match->length;
  }
  return NextItem();
}

std::optional<SearchResultItem> PageScraper::NextItem() {
  if (end_ != PageEnd::kNotYet) return std::nullopt;
  const auto block = NextBlock();
  if (start_search_.gave_up() || end_search_.gave_up()) return End(PageEnd::kNotYet);
  if (!block) return std::nullopt;
  const auto offset = static_cast<std::size_t>(block->data() - page_.data());
  const auto title = title_.Cut(*block, offset, observer_);
  const auto text = text_.Cut(*block, offset, observer_);
  const auto url = url_.Cut(*block, offset, observer_);
  const auto price = price_.Cut(*block, offset, observer_);
  const auto promo = promo_.Cut(*block, offset, observer_);
  if (IsCancelled()) return End(PageEnd::kNotYet);  // what is missing may be in the block

  SearchResultItem item;
  if (promo) item.Price = PriceOf(*promo);
  if (price && item.Price == 0.0) item.Price = PriceOf(*price);
  if (!title) return End(PageEnd::kNoTitle);
  if (!url) return End(PageEnd::kNoUrl);
  item.SiteName = agent_.SiteName;
  item.Title = CleanText(*title);
  item.Url = CompleteUrl(CleanText(*url), TextOf(agent_.SiteAddress));
  if (text) item.Text = CleanText(*text);
  return item;
}

// From the start of the one marker to behind the other as it is written: what its wildcards have
// swallowed does not belong to the block, and where they swallowed nothing the page's end bounds
// it.
std::optional<std::string_view> PageScraper::NextBlock() {
  if (!agent_.StartResult || !agent_.EndResult) {
    end_ = PageEnd::kMarkersMissing;
    return std::nullopt;
  }
  const auto start = Look(&WebAgent::StartResult, start_search_, cursor_);
  if (!start) {
    end_ = PageEnd::kNoStart;
    return std::nullopt;
  }
  const auto finish = Look(&WebAgent::EndResult, end_search_, start->start);
  if (!finish) {
    end_ = PageEnd::kNoEnd;
    return std::nullopt;
  }
  cursor_ = std::min(finish->start + end_marker_.size(), page_.size());
  const std::size_t length = cursor_ - start->start;
  if (observer_ != nullptr) observer_->OnBlock(start->start, length);
  if (length <= 1) {
    end_ = PageEnd::kShortBlock;
    return std::nullopt;
  }
  return page_.substr(start->start, length);
}

std::optional<MarkerMatch> PageScraper::Look(AgentText name, MarkerSearch& search,
                                             std::size_t from) {
  const auto match = search.Find(from);
  if (observer_ != nullptr) observer_->OnMarker(name, match);
  return match;
}

std::optional<SearchResultItem> PageScraper::End(PageEnd why) {
  end_ = why;
  return std::nullopt;
}

bool IsWanted(const SearchResultItem& item, const WordSearch& words) {
  return item.Title && words.AnyIn(*item.Title) && item.Price > 0.0;
}

std::vector<SearchResultItem> ScrapePage(std::string_view page, const WebAgent& agent,
                                         const std::string& words, CancelFlag cancel_flag,
                                         bool* cut_short) {
  std::vector<SearchResultItem> wanted;
  if (cut_short != nullptr) *cut_short = false;
  if (!agent.SiteName || !agent.StartResult || !agent.EndResult) return wanted;
  const WordSearch search(words);
  PageScraper scraper(page, agent, nullptr, cancel_flag);
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) {
    if (IsWanted(*item, search)) wanted.push_back(std::move(*item));
  }
  if (cut_short != nullptr) *cut_short = scraper.end() == PageEnd::kNotYet;
  return wanted;
}

}  // namespace brovanta
