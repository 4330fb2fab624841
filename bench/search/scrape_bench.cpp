// Cutting a page into items, side by side with building the tree of the same page and with merely
// looking for the markers. Names are "measure/subject"; scripts/bench says which are compared.
#include <benchmark/benchmark.h>
#include <libxml/HTMLparser.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "bench/search/shop_page.h"
#include "search/agent_fields.h"
#include "search/page_scraper.h"

namespace brovanta::bench {
namespace {

const std::string& Page() {
  static const std::string page = ShopPage(kPageBytes, kItems);
  return page;
}

void Scrape(benchmark::State& state) {
  const WebAgent agent = ShopAgent();
  if (Page().size() != kPageBytes || ScrapePage(Page(), agent, kWord).size() != kItems) {
    state.SkipWithError("the page does not give its items");
    return;
  }
  for (auto unused : state) benchmark::DoNotOptimize(ScrapePage(Page(), agent, kWord));
}
BENCHMARK(Scrape)->Name("scrape/brovanta")->Unit(benchmark::kMicrosecond);

std::size_t CountLinks(const xmlNode* node) {
  std::size_t count = 0;
  for (; node != nullptr; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) continue;
    if (xmlStrEqual(node->name, BAD_CAST "h3") != 0) ++count;
    count += CountLinks(node->children);
  }
  return count;
}

// The tree alone: nothing is looked for in it.
void BuildTree(benchmark::State& state) {
  const auto parse = [] {
    return htmlReadMemory(Page().data(), static_cast<int>(Page().size()), nullptr, "UTF-8",
                          HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET);
  };
  htmlDocPtr tree = parse();
  if (tree == nullptr || CountLinks(xmlDocGetRootElement(tree)) != kItems) {
    state.SkipWithError("the tree does not hold the items");
    xmlFreeDoc(tree);
    return;
  }
  xmlFreeDoc(tree);
  for (auto unused : state) {
    tree = parse();
    benchmark::DoNotOptimize(tree);
    xmlFreeDoc(tree);
  }
}
BENCHMARK(BuildTree)->Name("scrape/libxml2")->Unit(benchmark::kMicrosecond);

// Each marker of the agent, wherever it stands in the page: the least that a scraper could do that
// looks for one marker after the other.
void FindMarkers(benchmark::State& state) {
  const WebAgent agent = ShopAgent();
  std::vector<std::string> markers;
  for (const AgentField& field : kAgentFields) {
    const std::string name = field.name;
    if (name.starts_with("Start") || name.starts_with("End"))
      markers.push_back(*(agent.*field.text));
  }
  std::size_t found = 0;
  for (auto unused : state) {
    for (const std::string& marker : markers) {
      const char* at = Page().data();
      const char* const end = at + Page().size();
      for (;;) {
        at = static_cast<const char*>(
            memmem(at, static_cast<std::size_t>(end - at), marker.data(), marker.size()));
        if (at == nullptr) break;
        at += marker.size();
        ++found;
      }
    }
    benchmark::DoNotOptimize(found);
  }
  state.counters["markers"] = static_cast<double>(markers.size());
}
BENCHMARK(FindMarkers)->Name("scrape/memmem")->Unit(benchmark::kMicrosecond);

void Endless(benchmark::State& state, std::size_t bytes, const char* marker) {
  const std::string page = EndlessPage(bytes);
  WebAgent agent = ShopAgent();
  agent.EndHeader.reset();
  agent.StartResult = marker;
  if (!ScrapePage(page, agent, kWord).empty()) {
    state.SkipWithError("the marker was completed");
    return;
  }
  for (auto unused : state) benchmark::DoNotOptimize(ScrapePage(page, agent, kWord));
}
// What follows the "*" stands behind each beginning, but never goes on as the marker does.
BENCHMARK_CAPTURE(Endless, whole, kPageBytes, "<td*>!")
    ->Name("wildcard/whole_page")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Endless, half, kPageBytes / 2, "<td*>!")
    ->Name("wildcard/half_page")
    ->Unit(benchmark::kMicrosecond);
// What follows the last "*" stands nowhere.
BENCHMARK_CAPTURE(Endless, absent_whole, kPageBytes, "<td*a*!")
    ->Name("absent/whole_page")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Endless, absent_half, kPageBytes / 2, "<td*a*!")
    ->Name("absent/half_page")
    ->Unit(benchmark::kMicrosecond);

// So many wildcards that looking at each of them from each beginning would take half a minute.
void ManyStars(benchmark::State& state) {
  std::string page = EndlessPage(kPageBytes);
  std::replace(page.begin(), page.end(), ' ', '*');
  WebAgent agent = ShopAgent();
  agent.EndHeader.reset();
  agent.StartResult = std::string("<td").append(160'000, '*').append(">!");
  if (!ScrapePage(page, agent, kWord).empty()) {
    state.SkipWithError("the marker was completed");
    return;
  }
  for (auto unused : state) benchmark::DoNotOptimize(ScrapePage(page, agent, kWord));
}
BENCHMARK(ManyStars)->Name("stars/whole_page")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brovanta::bench
