#include "server/demo_shop.h"

#include <gmock/gmock.h>

#include "server/demo_shops.h"

namespace brovanta::server {
namespace {

using std::chrono::milliseconds;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr milliseconds kSlowness{77};

std::optional<HttpAnswer> Ask(const std::string& target) {
  return DemoShopAnswer(ParseTarget(target).value_or(Target{}), "shop:1", kSlowness);
}

HttpAnswer Get(const std::string& target) {
  const auto answer = Ask(target);
  EXPECT_TRUE(answer) << target;
  return answer.value_or(HttpAnswer{});
}

TEST(DemoShop, ListsWhatItHas) {
  const HttpAnswer answer = Get("/demo/millstream/search?dept=1&q=MILK+whole");
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.content_type, "text/html; charset=utf-8");
  EXPECT_EQ(answer.delay, milliseconds(0));
  EXPECT_THAT(answer.body, AllOf(HasSubstr("Whole Milk 1&nbsp;l"), Not(HasSubstr("Low Fat"))));
}

TEST(DemoShop, StaysInTheDepartment) {
  EXPECT_THAT(Get("/demo/hilltop/search?dept=3&q=coffee").body,
              AllOf(HasSubstr("Coffee Grinder 100 g</span>"), Not(HasSubstr("Coffee Beans</span>")),
                    HasSubstr(" in Electronics</p>")));
  EXPECT_FALSE(Ask("/demo/golden-acre/search?dept=2&q=soap"));
}

TEST(DemoShop, OneSpeaksWindows1252) {
  const HttpAnswer answer = Get("/demo/golden-acre/search?q=cr%ffme+fra%FFche");
  EXPECT_EQ(answer.content_type, "text/html; charset=windows-1252");
  EXPECT_THAT(answer.body, HasSubstr(" Cr\xE8me Fra\xEE"
                                     "che "));
  EXPECT_THAT(answer.body, HasSubstr("<h1>cr?me fra?che</h1>"));
}

TEST(DemoShop, OneSendsElsewhereFirst) {
  const HttpAnswer moved = Get("/demo/lighthouse/search?dept=1&q=whole+milk%0D%0A%26%ff");
  EXPECT_EQ(moved.status, 302);
  EXPECT_EQ(moved.location,
            "http://shop:1/demo/lighthouse/results?q=whole%20milk%20%20%26%FF&dept=1");
  EXPECT_THAT(Get("/demo/lighthouse/results?q=milk&dept=1").body,
              HasSubstr("<a href=\"http://shop:1/demo/lighthouse/item?no="));
  EXPECT_FALSE(Ask("/demo/millstream/results?q=milk"));
}

TEST(DemoShop, OneIsSlow) {
  const HttpAnswer answer = Get("/demo/slow-boat/search?q=milk");
  EXPECT_EQ(answer.delay, kSlowness);
  EXPECT_THAT(answer.body, HasSubstr("Whole Milk"));
}

TEST(DemoShop, OneIsBrokenInEveryDepartmentInItsOwnWay) {
  EXPECT_EQ(Get("/demo/creaky-gate/search?dept=1&q=milk").status, 500);
  EXPECT_EQ(Get("/demo/creaky-gate/search?q=milk").status, 500);
  const std::string garbage = Get("/demo/creaky-gate/search?dept=2&q=soap").body;
  EXPECT_GT(garbage.size(), 10'000u);
  EXPECT_NE(garbage.find('\0'), std::string::npos);
  const std::string cut = Get("/demo/creaky-gate/search?dept=3&q=cable").body;
  EXPECT_THAT(cut, AllOf(HasSubstr("<table class=\"results\">"), HasSubstr("Cable"),
                         Not(HasSubstr("</table>"))));
}

TEST(DemoShop, ShowsEachArticleThatItSells) {
  for (const DemoShop& shop : DemoShops()) {
    for (const Article& article : Articles()) {
      const auto answer =
          Ask("/demo/" + std::string(shop.folder) + "/item?no=" + std::to_string(article.number));
      ASSERT_EQ(answer.has_value(), shop.Sells(article)) << shop.name << ": " << article.name;
    }
  }
  EXPECT_THAT(Get("/demo/pinecrest/item?no=6").body, HasSubstr("Lactose Free Milk 2 l</h1>"));
}

TEST(DemoShop, TheLargePagesLinksAreQueriesToItself) {
  const std::string no =
      std::to_string(FindInShop(DemoShops()[3], Department::kGroceries, "milk").at(0)->number);
  EXPECT_EQ(Get("/demo/hilltop/search?no=" + no).body, Get("/demo/hilltop/item?no=" + no).body);
}

TEST(DemoShop, LooksAtAHundredBytesOfTheWords) {
  EXPECT_THAT(Get("/demo/juniper/search?q=" + std::string(97, 'x') + "%3Cyz12345").body,
              HasSubstr("<h1>" + std::string(97, 'x') + "&lt;yz</h1>"));
  EXPECT_EQ(kMaxSearchBytes, 100u);
}

TEST(DemoShop, ListsItsNeighbours) {
  EXPECT_THAT(Get("/demo/").body, HasSubstr(">Slow Boat Traders</a>"));
}

TEST(DemoShop, KnowsNoOtherAddresses) {
  for (const char* target :
       {"/demo", "/demo/millstream", "/demo/millstream/", "/demo/millstream/Search?q=x",
        "/demo/nowhere/search?q=x", "/demo/millstream/item", "/demo/millstream/item?no=0",
        "/demo/millstream/item?no=100000", "/demo/millstream/item?no=x", "/demo//search?q=x",
        "/demo/millstream/search?dept=0&q=x", "/demo/millstream/search?dept=3&q=x",
        "/demo/millstream/search?dept=x&q=x", "/demo/millstream/search?dept=4&q=x",
        "/demo/millstream/search/?q=x", "/demo/hilltop/search?no=x"}) {
    EXPECT_FALSE(Ask(target).has_value()) << target;
  }
}

}  // namespace
}  // namespace brovanta::server
