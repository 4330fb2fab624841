// A web search of the program in the demonstration's shops: update, search, follow a link.
#include <gmock/gmock.h>
#include <httplib.h>

#include <algorithm>
#include <atomic>

#include "net/http/http_client.h"
#include "search/agent_status.h"
#include "search/search_manager.h"
#include "server/demo_shops.h"
#include "server/narrow_text.h"
#include "tests/search/recording_window.h"
#include "tests/server/running_server.h"

namespace brovanta::server {
namespace {

using std::chrono::milliseconds;
using test::RecordingWindow;
using testing::HasSubstr;

constexpr milliseconds kHour{3'600'000};

// What the tests compare.
struct Offered {
  std::string title;
  std::string url;
  int cents = 0;

  friend bool operator==(const Offered&, const Offered&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Offered& offered) {
    return out << offered.title << ", " << offered.url << ", " << offered.cents;
  }
};

class ShopSearchTest : public testing::Test {
 protected:
  void Serve(milliseconds slowness) {
    server_ = std::make_unique<test::RunningServer>(slowness);
    server_->FillWithDemo(Today());
    const std::string file = folder_.File("webspider.xml");
    ASSERT_EQ(DownloadUrlToFile(server_->url() + "/webspider.xml", file, 0, cancel_), 0);
    ASSERT_EQ(manager_.LoadAgentConfiguration(file), 0);
  }

  // Agents of the category that have ended in so many results, by shop; -1 for a failure.
  std::map<std::string, int> Outcomes() {
    std::map<std::int32_t, std::string> names;
    for (auto agent = manager_.FirstAgent(); agent; agent = manager_.NextAgent()) {
      names[agent->SiteId] = agent->SiteName.value_or("");
    }
    std::map<std::string, int> outcomes;
    for (const test::Seen& seen : window_->seen()) {
      if (seen.message == WM_SEARCH_AGENT_RESULTS) {
        outcomes[names[seen.site]] = static_cast<int>(seen.value);
      }
      if (seen.message == WM_SEARCH_AGENT_FAILED) {
        EXPECT_EQ(seen.value, AGENT_NO_PAGE);
        outcomes[names[seen.site]] = -1;
      }
    }
    return outcomes;
  }

  // What the search has brought from a shop.
  std::vector<Offered> FoundIn(const DemoShop& shop) {
    std::vector<Offered> found;
    const SearchResultList results = manager_.engine().Results();
    for (const SearchResultItem& item : results.items()) {
      if (item.SiteName != shop.name) continue;
      found.push_back({item.Title.value_or(""), item.Url.value_or(""),
                       static_cast<int>(item.Price * 100 + 0.5)});
    }
    return found;
  }

  // What the catalogue says that it should.
  std::vector<Offered> Expected(const DemoShop& shop, Department department,
                                const std::string& words) {
    std::vector<Offered> expected;
    for (const Article* article : FindInShop(shop, department, words)) {
      expected.push_back({shop.narrow ? NarrowText(article->name) : article->name,
                          LinkTo(shop, *article), PriceIn(shop, *article).ToPay()});
    }
    return expected;
  }

  std::string LinkTo(const DemoShop& shop, const Article& article) {
    const std::string folder = server_->url() + "/demo/" + std::string(shop.folder) + "/";
    const std::string no = "?no=" + std::to_string(article.number);
    if (shop.style == PageStyle::kParagraphs) return folder + "search" + no;
    return folder + "item" + no + (shop.style == PageStyle::kDefinitions ? "&from=finds" : "");
  }

  void SearchAndCompare(Department department, const std::string& words) {
    const auto category = static_cast<std::int32_t>(department);
    window_ = std::make_shared<RecordingWindow>();
    ASSERT_GE(manager_.StartSearch(category, words, window_), 6);
    ASSERT_TRUE(window_->WaitUntilFinished());
    const auto outcomes = Outcomes();
    for (const DemoShop& shop : DemoShops()) {
      if (!shop.Has(department) || shop.manner == ShopManner::kBroken) continue;
      // The slow shop searches all its departments; the words are in one of them only.
      const auto expected = Expected(shop, department, words);
      EXPECT_GE(expected.size(), 2u) << shop.name;
      EXPECT_EQ(FoundIn(shop), expected) << shop.name;
      EXPECT_EQ(outcomes.at(std::string(shop.name)), static_cast<int>(expected.size()));
    }
  }

  test::TempFolder folder_;
  std::atomic<std::int32_t> cancel_ = 0;
  std::shared_ptr<RecordingWindow> window_ = std::make_shared<RecordingWindow>();
  std::unique_ptr<test::RunningServer> server_;
  SearchManager manager_;
};

const DemoShop& BrokenShop() { return DemoShops()[7]; }

TEST_F(ShopSearchTest, GroceriesComeExactlyAndTheBrokenShopFails) {
  Serve(milliseconds(200));
  SearchAndCompare(Department::kGroceries, "sourdough bread");
  EXPECT_EQ(Outcomes().at(std::string(BrokenShop().name)), -1);
}

TEST_F(ShopSearchTest, HouseholdGoodsComeExactlyAndTheBrokenShopsGarbageIsNothing) {
  Serve(milliseconds(200));
  SearchAndCompare(Department::kHousehold, "trash");
  EXPECT_EQ(Outcomes().at(std::string(BrokenShop().name)), 0);
}

TEST_F(ShopSearchTest, ElectronicsComeExactlyAndTheBrokenShopsPageIsReadUpToItsEnd) {
  Serve(milliseconds(200));
  SearchAndCompare(Department::kElectronics, "Laptop");
  const auto expected = Expected(BrokenShop(), Department::kElectronics, "Laptop");
  const auto found = FoundIn(BrokenShop());
  ASSERT_GE(found.size(), 2u);
  ASSERT_LT(found.size(), expected.size());
  EXPECT_TRUE(std::equal(found.begin(), found.end(), expected.begin()));
}

// "%ff" is what a handheld sends for any accented letter; where the titles are in its own
// character set it finds them again.
TEST_F(ShopSearchTest, AccentedWordsFindTheTitlesInTheHandheldsCharacterSet) {
  Serve(milliseconds(1));
  ASSERT_GT(manager_.StartSearch(1,
                                 "fra\xEE"
                                 "che",
                                 window_),
            0);
  ASSERT_TRUE(window_->WaitUntilFinished());
  const DemoShop& narrow = DemoShops()[1];
  ASSERT_TRUE(narrow.narrow);
  EXPECT_FALSE(FoundIn(narrow).empty());
  EXPECT_EQ(FoundIn(narrow), Expected(narrow, Department::kGroceries,
                                      "fra\xEE"
                                      "che"));
}

TEST_F(ShopSearchTest, TheSlowShopHoldsUpNobodyAndCanBeStopped) {
  Serve(kHour);
  const std::int32_t agents = manager_.StartSearch(2, "soap", window_);
  ASSERT_GE(agents, 6);
  const auto others = static_cast<std::size_t>(agents) - 1;
  ASSERT_TRUE(window_->WaitFor(WM_SEARCH_AGENT_RESULTS, others));
  EXPECT_EQ(window_->Count(WM_SEARCH_FINISHED), 0u);
  EXPECT_EQ(manager_.StopSearch(), 0);
  ASSERT_TRUE(window_->WaitFor(WM_SEARCH_AGENT_FAILED));
  EXPECT_EQ(Outcomes().at("Slow Boat Traders"), -1);
}

TEST_F(ShopSearchTest, EveryLinkOpensThePageOfItsArticle) {
  Serve(milliseconds(1));
  ASSERT_GT(manager_.StartSearch(3, "lamp", window_), 0);
  ASSERT_TRUE(window_->WaitUntilFinished());
  const SearchResultList results = manager_.engine().Results();
  ASSERT_GE(results.size(), 40u);
  httplib::Client browser(server_->url());
  for (const SearchResultItem& item : results.items()) {
    const std::string path = item.Url.value_or("").substr(server_->url().size());
    const auto page = browser.Get(path);
    ASSERT_TRUE(page) << path;
    EXPECT_EQ(page->status, 200) << path;
    EXPECT_THAT(page->body, HasSubstr("<h1>" + item.Title.value_or("") + "</h1>"));
    EXPECT_THAT(page->body, HasSubstr("name=\"viewport\""));
  }
}

TEST_F(ShopSearchTest, HostileWordsAreAnsweredAndFindNothing) {
  Serve(milliseconds(1));
  for (const std::string& words :
       {std::string("\"><script>alert(1)</script>"), std::string("<tr class=\"odd\">"),
        std::string(100, '%'), std::string("../../etc/passwd?no=1&dept=9#"),
        std::string("\x01\x1F\x7F"), std::string("\xFF{server}\x7F")}) {
    window_ = std::make_shared<RecordingWindow>();
    ASSERT_GT(manager_.StartSearch(1, words, window_), 0);
    ASSERT_TRUE(window_->WaitUntilFinished());
    EXPECT_EQ(manager_.engine().ResultCount(), 0u) << words;
    const auto outcomes = Outcomes();
    EXPECT_EQ(std::count_if(outcomes.begin(), outcomes.end(),
                            [](const auto& outcome) { return outcome.second < 0; }),
              1)
        << words;
  }
}

}  // namespace
}  // namespace brovanta::server
