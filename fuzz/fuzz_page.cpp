// Any bytes as markers and page: the scraper stays within the page, comes to an end, and finds each
// marker where the documented steps find it.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "search/agent_fields.h"
#include "search/page_scraper.h"
#include "tests/search/marker_model.h"

namespace brovanta {
namespace {

using fuzz::Require;

// The documented steps take their time.
constexpr std::size_t kModelLimit = 800;

// Each line is a text of the agent, in the order of its record; "-" stands for one that is missing.
// The page is what follows.
WebAgent TakeAgent(std::string_view& input) {
  WebAgent agent;
  for (const AgentField& field : kAgentFields) {
    const std::size_t end = input.find('\n');
    const std::string_view line = input.substr(0, end);
    if (line != "-") agent.*field.text = std::string(line.substr(0, line.find('\0')));
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  }
  return agent;
}

class Watcher : public ScrapeObserver {
 public:
  Watcher(std::string_view page, const WebAgent& agent) : page_(page), agent_(agent) {}

  void OnMarker(AgentText marker, const std::optional<MarkerMatch>& match) override {
    if (!match) return;
    Require(match->start + match->length <= page_.size() || marker == &WebAgent::EndResult,
            "markers are found within the page");
    Require((agent_.*marker).has_value(), "only markers that there are");
  }
  void OnBlock(std::size_t start, std::size_t length) override {
    Require(start >= end_ && length <= page_.size() - start, "blocks follow one another");
    end_ = start + length;
  }

 private:
  std::string_view page_;
  const WebAgent& agent_;
  std::size_t end_ = 0;
};

void CheckItem(const SearchResultItem& item, const WebAgent& agent) {
  Require(item.Title && item.Url && item.SiteName == agent.SiteName, "items are complete");
  Require(item.Title->empty() || item.Title->front() != ' ', "no leading blanks");
  for (const char character : *item.Title) {
    Require(static_cast<unsigned char>(character) >= ' ', "no control characters");
  }
  Require(item.Price >= 0.0 && item.Id == 0 && item.Status == 0, "a newly scraped item");
}

void Run(std::string_view input) {
  const WebAgent agent = TakeAgent(input);
  const std::string_view page = input.substr(0, input.find('\0'));
  Watcher watcher(page, agent);
  PageScraper scraper(input, agent, &watcher);
  std::size_t count = 0;
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem(), ++count) {
    CheckItem(*item, agent);
  }
  Require(scraper.end() != PageEnd::kNotYet && count <= page.size() / 2, "the page ends");
  Require(ScrapePage(input, agent, "a").size() <= count, "wanted items are items");
  if (page.size() > kModelLimit) return;
  for (const AgentField& field : kAgentFields) {
    const auto& marker = agent.*field.text;
    if (!marker || marker->size() > kModelLimit) continue;
    Require(MatchMarker(page, *marker) == test::ModelMatch(page, *marker), "the documented match");
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // On the heap and no longer than that, so that a look beyond it is noticed.
  const std::string input(reinterpret_cast<const char*>(data), size);
  brovanta::Run(input);
  return 0;
}
