#include "server/responder.h"

#include <gmock/gmock.h>

#include "server/demo_world.h"
#include "server/feed.h"
#include "tests/server/test_store.h"
#include "tests/support/fixed_clock.h"
#include "util/text.h"

namespace brovanta::server {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char kFeedType[] = "text/plain; charset=windows-1252";
constexpr char kPageType[] = "text/html; charset=utf-8";

class ResponderTest : public StoreTest {
 protected:
  HttpAnswer Get(const std::string& target, const std::string& host = "shop:1") {
    return Ask({"GET", target, host});
  }

  HttpAnswer Ask(const HttpRequest& request) {
    if (!responder_) {
      responder_ = std::make_unique<Responder>(
          Open(), Responder::Settings{.address = "127.0.0.1:9", .demo_shops = demo_});
    }
    return responder_->Answer(request);
  }

  void PutAgents(const std::string& text) {
    Import import;
    import.agents = text;
    ASSERT_EQ(store_->Apply(import), std::vector<Problem>{});
  }

  bool demo_ = false;
  std::unique_ptr<Responder> responder_;
};

TEST_F(ResponderTest, ListsTheStoresAboveAnId) {
  PutLists();
  const HttpAnswer answer = Get("/stores.aspx?idx=1&user=Ohio-43004");
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.content_type, kFeedType);
  EXPECT_EQ(answer.body,
            "<IT><ID>2</ID><NM>Two</NM></IT>\n"
            "<IT><ID>3</ID><NM>Three</NM></IT>\n");
}

TEST_F(ResponderTest, ListsTheCategoriesAboveAnId) {
  PutLists();
  EXPECT_EQ(Get("/categories.aspx?idx=2&user=").body, "<IT><ID>3</ID><NM>Drei</NM></IT>\n");
}

TEST_F(ResponderTest, AnswersNothingNewWithAnEmptyFeed) {
  PutLists();
  for (const char* target :
       {"/stores.aspx?idx=3&user=x", "/stores.aspx?idx=2147483647", "/coupons.aspx?idx=0&edx=0"}) {
    const HttpAnswer answer = Get(target);
    EXPECT_EQ(answer.status, 200) << target;
    EXPECT_EQ(answer.body, "") << target;
  }
}

TEST_F(ResponderTest, SendsCouponsAndDealsAboveTheirIds) {
  PutLists();
  Coupon deal = SimpleCoupon(CouponSource::kDeal, 5, 2, 3);
  deal.end_date = ParseDay("2025-05-01");
  PutCoupons(
      {SimpleCoupon(CouponSource::kCoupon, 5), SimpleCoupon(CouponSource::kCoupon, 6), deal});
  EXPECT_EQ(Get("/coupons.aspx?idx=5&edx=4&user=x").body,
            "<CP><ID>5</ID><SR>2</SR><NM>Offer</NM><PR></PR><DS></DS><TP>2</TP><VT>2</VT>"
            "<VL>1.50</VL><SD>0</SD><ED>1746100800</ED><SI>2</SI><CI>3</CI></CP>\n"
            "<CP><ID>6</ID><SR>1</SR><NM>Offer</NM><PR></PR><DS></DS><TP>2</TP><VT>2</VT>"
            "<VL>1.50</VL><SD>0</SD><ED>0</ED><SI>1</SI><CI>1</CI></CP>\n");
}

// What a handheld does: it asks above the highest ids of the feed before, until nothing is new.
TEST_F(ResponderTest, SendsALargeFeedInPartsThatFitAHandheld) {
  PutLists();
  std::vector<Coupon> coupons;
  for (int id = 1; id <= 3000; ++id) {
    coupons.push_back(SimpleCoupon(id % 3 == 0 ? CouponSource::kDeal : CouponSource::kCoupon, id));
    coupons.back().description = std::string(249, 'd');
  }
  PutCoupons(coupons);
  std::vector<int> seen;
  int parts = 0;
  std::int32_t idx = 0;
  std::int32_t edx = 0;
  for (;; ++parts) {
    const std::string feed =
        Get("/coupons.aspx?idx=" + std::to_string(idx) + "&edx=" + std::to_string(edx)).body;
    ASSERT_LE(feed.size(), kMaxFeedBytes);
    if (feed.empty()) break;
    ASSERT_TRUE(feed.starts_with("<CP>") && feed.ends_with("</CP>\n"));
    for (std::size_t at = feed.find("<CP>"); at != std::string::npos;
         at = feed.find("<CP>", at + 1)) {
      const std::string span = feed.substr(at, feed.find("</CP>", at) - at);
      const std::int32_t id = TagInt(span.c_str(), "<ID>", "</ID>");
      const std::int32_t source = TagInt(span.c_str(), "<SR>", "</SR>");
      (source == 1 ? idx : edx) = id;
      seen.push_back(id);
    }
  }
  // 3,000 spans of roughly 390 bytes each are more than one part and less than three.
  EXPECT_EQ(parts, 2);
  ASSERT_EQ(seen.size(), 3000u);
  for (std::size_t i = 0; i < seen.size(); ++i) ASSERT_EQ(seen[i], static_cast<int>(i) + 1);
}

TEST_F(ResponderTest, FillsTheLimitAsFarAsWholeEntriesGo) {
  PutLists();
  std::vector<Coupon> coupons;
  for (int id = 1; id <= 3000; ++id) {
    coupons.push_back(SimpleCoupon(CouponSource::kCoupon, 100'000 + id));
    coupons.back().description = std::string(249, 'd');
  }
  PutCoupons(coupons);
  const std::string feed = Get("/coupons.aspx?idx=0&edx=0").body;
  const std::size_t span = feed.find('\n') + 1;
  EXPECT_EQ(feed.size(), kMaxFeedBytes / span * span);
}

TEST_F(ResponderTest, SendsTheAgentFileByteForByte) {
  PutAgents("a\r\nb \xFF");
  const HttpAnswer answer = Get("/webspider.xml");
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.content_type, "text/xml");
  EXPECT_EQ(answer.body, "a\r\nb \xFF");
}

TEST_F(ResponderTest, PutsTheAddressThatWasAskedIntoTheAgentFile) {
  PutAgents("<{server}>");
  EXPECT_EQ(Get("/webspider.xml", "home.example:8427").body, "<home.example:8427>");
  EXPECT_EQ(Get("/webspider.xml", "").body, "<127.0.0.1:9>");
  EXPECT_EQ(Get("/webspider.xml", "a</SiteName>").body, "<127.0.0.1:9>");
}

TEST_F(ResponderTest, HasNoAgentFileAtFirst) {
  const HttpAnswer answer = Get("/webspider.xml");
  EXPECT_EQ(answer.status, 404);
  EXPECT_THAT(answer.body, Not(HasSubstr("<WebAgent>")));
}

TEST_F(ResponderTest, ShowsACouponAndADealByNumber) {
  const test::FixedClock clock(1746100800);
  PutLists();
  Coupon deal = SimpleCoupon(CouponSource::kDeal, 5);
  deal.name = "The deal";
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 5), deal});
  const HttpAnswer answer = Get("/coupons/coupon.aspx?srcId=5");
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.content_type, kPageType);
  EXPECT_THAT(answer.body, HasSubstr("<h1>Offer</h1>"));
  EXPECT_THAT(Get("/coupons/deal.aspx?srcId=5").body, HasSubstr("<h1>The deal</h1>"));
}

TEST_F(ResponderTest, SaysSoWhenThereIsNoSuchOffer) {
  const HttpAnswer answer = Get("/coupons/deal.aspx?srcId=5");
  EXPECT_EQ(answer.status, 404);
  EXPECT_EQ(answer.content_type, kPageType);
  EXPECT_THAT(answer.body, HasSubstr("There is no offer of this number."));
}

TEST_F(ResponderTest, RefusesBadQueries) {
  for (const char* target :
       {"/stores.aspx", "/stores.aspx?user=x", "/stores.aspx?idx=", "/stores.aspx?idx=-1",
        "/stores.aspx?idx=x", "/stores.aspx?idx=4294967296", "/stores.aspx?idx=1&idx=2",
        "/categories.aspx?edx=1", "/coupons.aspx?idx=1", "/coupons.aspx?edx=1",
        "/coupons.aspx?idx=1&edx=", "/coupons/coupon.aspx", "/coupons/coupon.aspx?srcId=abc",
        "/coupons/deal.aspx?srcid=1", "/stores.aspx?idx=%zz", "stores.aspx?idx=1"}) {
    EXPECT_EQ(Get(target).status, 400) << target;
  }
}

TEST_F(ResponderTest, KnowsNoOtherAddresses) {
  for (const char* target :
       {"/", "/stores", "/Stores.aspx?idx=0", "/stores.aspx/?idx=0", "/coupons/", "/webspider.xml/",
        "/../etc/passwd", "/demo/", "/demo/millstream/search?q=milk"}) {
    EXPECT_EQ(Get(target).status, 404) << target;
  }
}

TEST_F(ResponderTest, RefusesOtherMethods) {
  for (const char* method : {"POST", "PUT", "DELETE", "OPTIONS", "TRACE", "PATCH", "get"}) {
    EXPECT_EQ(Ask({method, "/stores.aspx?idx=0", ""}).status, 405) << method;
  }
  EXPECT_EQ(Ask({"HEAD", "/stores.aspx?idx=0", ""}).status, 200);
}

TEST_F(ResponderTest, SaysSoWhenTheDatabaseCannotBeRead) {
  ASSERT_EQ(Get("/stores.aspx?idx=0").status, 200);
  const auto raw = sqlite::Connection::Open(path(), sqlite::OpenMode::kMustExist, error_);
  ASSERT_TRUE(raw->Run("DROP TABLE store; DROP TABLE coupon; DROP TABLE agent_file"));
  for (const char* target : {"/stores.aspx?idx=0", "/coupons.aspx?idx=0&edx=0", "/webspider.xml",
                             "/coupons/deal.aspx?srcId=1"}) {
    EXPECT_EQ(Get(target).status, 500) << target;
  }
}

TEST_F(ResponderTest, OpensTheDemonstrationShopsOnlyWhenAsked) {
  demo_ = true;
  EXPECT_EQ(Get("/demo/millstream/search?q=milk").status, 200);
  EXPECT_EQ(Get("/demo/millstream/item?no=1000").status, 404);
}

TEST_F(ResponderTest, ShopsLeadToTheServerThatWasAsked) {
  demo_ = true;
  EXPECT_EQ(Get("/demo/lighthouse/search?q=milk", "shop:1").location,
            "http://shop:1/demo/lighthouse/results?q=milk");
  EXPECT_EQ(Get("/demo/lighthouse/search?q=milk", "a\r\nb").location,
            "http://127.0.0.1:9/demo/lighthouse/results?q=milk");
}

TEST_F(ResponderTest, AnUpdateFromTheDemonstrationBringsEverything) {
  const auto today = ParseDay("2025-05-01");
  ASSERT_EQ(store_->Apply(DemoWorld(today.value_or(kFirstDay))), std::vector<Problem>{});
  const auto count = [](const std::string& text, const std::string& part) {
    int found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
      ++found;
    }
    return found;
  };
  EXPECT_EQ(count(Get("/webspider.xml").body, "<WebAgent>"), 17);
  EXPECT_EQ(count(Get("/stores.aspx?idx=0&user=x").body, "<IT>"), 30);
  EXPECT_EQ(count(Get("/categories.aspx?idx=0&user=x").body, "<IT>"), 20);
  EXPECT_EQ(count(Get("/coupons.aspx?idx=0&edx=0&user=x").body, "<CP>"), 300);
  EXPECT_EQ(Get("/coupons.aspx?idx=200&edx=100&user=x").body, "");
}

}  // namespace
}  // namespace brovanta::server
