#include "server/demo_shop.h"

#include <cstddef>
#include <string_view>

#include "server/demo_catalog.h"
#include "server/html.h"
#include "server/narrow_text.h"
#include "util/number.h"
#include "util/word_search.h"

namespace brovanta::server {
namespace {

constexpr std::string_view kShopName = "Millstream Market";
constexpr std::string_view kSearchPath = "/demo/market";
constexpr std::string_view kItemPath = "/demo/market/item";

std::string Price(const DemoProduct& product) {
  return std::string("$").append(FormatTwoDecimals(product.cents / 100.0));
}

// The markers of the agent file stand in these lines; both change together.
void AppendResult(std::string& body, std::size_t number, const DemoProduct& product) {
  body += "<tr class=\"item\"><td><a href=\"" + std::string(kItemPath) +
          "?no=" + std::to_string(number) + "\">" + Escaped(product.name) +
          "</a></td><td class=\"price\">" + Price(product) + "</td></tr>\n";
}

std::string SearchPage(const std::string& words) {
  const WordSearch search(words);
  std::string body = "<h1>" + std::string(kShopName) + "</h1>\n<table class=\"results\">\n";
  std::size_t number = 0;
  for (const DemoProduct& product : DemoProducts()) {
    ++number;
    if (search.empty() || search.AnyIn(NarrowText(product.name))) {
      AppendResult(body, number, product);
    }
  }
  return HtmlPage(kShopName, body + "</table>\n");
}

std::optional<std::string> ItemPage(const Target& target) {
  const auto number = IdParameter(target, "no");
  const auto products = DemoProducts();
  if (!number || *number < 1 || static_cast<std::size_t>(*number) > products.size()) {
    return std::nullopt;
  }
  const DemoProduct& product = products[static_cast<std::size_t>(*number) - 1];
  const std::string_view category =
      DemoCategories()[static_cast<std::size_t>(product.category) - 1];
  return HtmlPage(product.name, "<h1>" + Escaped(product.name) + "</h1>\n<div class=\"value\">" +
                                    Price(product) + "</div>\n<dl>\n<dt>Shop</dt><dd>" +
                                    Escaped(kShopName) + "</dd>\n<dt>Department</dt><dd>" +
                                    Escaped(category) + "</dd>\n</dl>\n");
}

}  // namespace

std::string DemoAgentFile() {
  return R"(<?xml version="1.0"?>
<WebSpider>
<AgentType>
<TypeId>1</TypeId>
<TypeName>Groceries</TypeName>
</AgentType>
<WebAgent>
<SiteId>1</SiteId>
<SiteType>1</SiteType>
<SiteName>Millstream Market</SiteName>
<SiteAddress>http://{server}</SiteAddress>
<FormatString>http://{server}/demo/market?words= KEYWORD </FormatString>
<EndHeader><table class="results"></EndHeader>
<StartResult><tr class="item"></StartResult>
<EndResult></tr></EndResult>
<StartItem><a href="*"></StartItem>
<EndItem></a></EndItem>
<StartURL><a href="</StartURL>
<EndURL>"</EndURL>
<StartPrice><td class="price"></StartPrice>
<EndPrice></td></EndPrice>
</WebAgent>
</WebSpider>
)";
}

std::optional<std::string> DemoShopPage(const Target& target) {
  if (target.path == kItemPath) return ItemPage(target);
  if (target.path != kSearchPath) return std::nullopt;
  const auto words = target.parameters.find("words");
  return SearchPage(words == target.parameters.end() ? std::string() : words->second);
}

}  // namespace brovanta::server
