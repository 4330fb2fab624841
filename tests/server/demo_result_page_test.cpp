// The pages as the program's own scraper reads them.
#include "server/demo_result_page.h"

#include <gmock/gmock.h>

#include "search/page_scraper.h"
#include "server/agent_file.h"
#include "server/narrow_text.h"

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char kHost[] = "shop:1";
// A handheld reads this much of a page; in whole pieces of this size.
constexpr std::size_t kReadBytes = 319'999;
constexpr std::size_t kPieceBytes = 1'024;

std::optional<std::string> Given(std::string_view marker) {
  return marker.empty() ? std::nullopt : std::optional<std::string>(marker);
}

WebAgent AgentOf(const DemoShop& shop) {
  const ResultMarkers& markers = MarkersOf(shop.style);
  WebAgent agent;
  agent.SiteName = std::string(shop.name);
  agent.SiteAddress = WithServerAddress(SiteAddressOf(shop), kHost);
  agent.EndHeader = Given(markers.end_header);
  agent.StartResult = Given(markers.start_result);
  agent.EndResult = Given(markers.end_result);
  agent.StartItem = Given(markers.start_item);
  agent.EndItem = Given(markers.end_item);
  agent.StartText = Given(markers.start_text);
  agent.EndText = Given(markers.end_text);
  agent.StartURL = Given(markers.start_url);
  agent.EndURL = Given(markers.end_url);
  agent.StartPrice = Given(markers.start_price);
  agent.EndPrice = Given(markers.end_price);
  agent.StartPromo = Given(markers.start_promo);
  agent.EndPromo = Given(markers.end_promo);
  return agent;
}

std::string PageFor(const DemoShop& shop, std::optional<Department> department,
                    const std::string& words) {
  return ResultPage(shop, {department, words, FindInShop(shop, department, words), kHost});
}

// What the scraper gets out of the part of a page that a handheld reads.
std::vector<SearchResultItem> Items(const DemoShop& shop, const std::string& page) {
  const WebAgent agent = AgentOf(shop);
  const std::string read = page.substr(0, kReadBytes - kReadBytes % kPieceBytes);
  PageScraper scraper(read, agent);
  std::vector<SearchResultItem> items;
  for (auto item = scraper.FirstItem(); item; item = scraper.NextItem()) items.push_back(*item);
  return items;
}

class ResultPageTest : public testing::TestWithParam<DemoShop> {};

TEST_P(ResultPageTest, GivesEveryArticleOfTheShopWithPriceLinkAndStock) {
  const DemoShop& shop = GetParam();
  const auto articles = FindInShop(shop, std::nullopt, "");
  const auto items = Items(shop, PageFor(shop, std::nullopt, ""));
  ASSERT_EQ(items.size(), articles.size());
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].Title, articles[i]->name);
    EXPECT_EQ(items[i].Text, StockOf(shop, *articles[i]));
    EXPECT_DOUBLE_EQ(items[i].Price, PriceIn(shop, *articles[i]).ToPay() / 100.0);
    EXPECT_THAT(items[i].Url.value_or(""),
                testing::StartsWith("http://shop:1/demo/" + std::string(shop.folder) + "/"));
    EXPECT_THAT(items[i].Url.value_or(""), HasSubstr("?no=" + std::to_string(articles[i]->number)));
  }
}

TEST_P(ResultPageTest, MayHaveNothing) {
  const std::string page = PageFor(GetParam(), std::nullopt, "submarine");
  EXPECT_THAT(page, HasSubstr(std::string(GetParam().name) + " has nothing like it."));
  EXPECT_TRUE(Items(GetParam(), page).empty());
}

TEST_P(ResultPageTest, WordsStayWordsAndMakeNoResults) {
  const DemoShop& shop = GetParam();
  const ResultMarkers& markers = MarkersOf(shop.style);
  const std::string words = std::string(markers.end_header) + std::string(markers.start_result) +
                            "</h1><script>alert(1)</script>\"'&";
  const std::string page = ResultPage(shop, {std::nullopt, words, {FindArticle(1)}, kHost});
  EXPECT_THAT(page, Not(HasSubstr("<script")));
  EXPECT_THAT(page, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;&amp;"));
  ASSERT_EQ(Items(shop, page).size(), 1u);
  EXPECT_EQ(Items(shop, page)[0].Title, FindArticle(1)->name);
}

INSTANTIATE_TEST_SUITE_P(DemoShops, ResultPageTest,
                         testing::ValuesIn(DemoShops().begin(), DemoShops().end()),
                         [](const auto& shop) {
                           std::string name(shop.param.folder);
                           std::erase(name, '-');
                           return name;
                         });

TEST(ResultPage, TheLargePageIsAlwaysLongerThanAHandheldReads) {
  for (const DemoShop& shop : DemoShops()) {
    const std::string page = PageFor(shop, Department::kElectronics, "submarine");
    if (shop.manner == ShopManner::kLarge) {
      EXPECT_GT(page.size(), 340'000u);
    } else {
      EXPECT_LT(PageFor(shop, std::nullopt, "").size(), kReadBytes) << shop.name;
    }
  }
}

TEST(ResultPage, TellsHowManyThereAre) {
  const DemoShop& shop = DemoShops()[0];
  EXPECT_THAT(ResultPage(shop, {Department::kGroceries, "x", {FindArticle(1)}, kHost}),
              HasSubstr("<h1>x</h1>\n<p class=\"count\">1 article in Groceries</p>"));
  EXPECT_THAT(ResultPage(shop, {std::nullopt, "", {FindArticle(1), FindArticle(2)}, kHost}),
              HasSubstr("<h1>Everything</h1>\n<p class=\"count\">2 articles</p>"));
}

}  // namespace

void PrintTo(const DemoShop& shop, std::ostream* out) { *out << shop.name; }

}  // namespace brovanta::server
