// The server and the program's own client and importers, over loopback.
#include <gmock/gmock.h>

#include <atomic>

#include "db/feed_import.h"
#include "db/shopping_database.h"
#include "net/http/http_client.h"
#include "server/demo_world.h"
#include "server/feed.h"
#include "server/http_server.h"
#include "server/responder.h"
#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

class HandheldTest : public StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      data_.Write(list, test::Hex("81 38 01 00 83 38 01 00"));
    }
    ASSERT_EQ(database_.Open(data_.path()), 0);
    auto responder =
        std::make_shared<Responder>(Open(), Responder::Settings{.address = "", .demo_shops = true});
    const HttpHandler handler = [responder](const HttpRequest& request) {
      return responder->Answer(request);
    };
    auto listener = Listen({"127.0.0.1", 0}, error_);
    ASSERT_TRUE(listener) << error_;
    server_ = HttpServer::Start(
        *std::move(listener), {handler}, [](const std::string&) {}, {}, error_);
    ASSERT_NE(server_, nullptr) << error_;
  }

  // The feed of a request, which then stands in the scratch file.
  std::string Download(const std::string& target) {
    EXPECT_EQ(DownloadUrlToFile("http://" + server_->address() + target, data_.File("update.dat"),
                                0, cancel_),
              0);
    return data_.ReadText("update.dat").value_or("");
  }

  void UpdateList(const std::string& page, NameList& names) {
    const std::int32_t idx = names.LargestId();
    static_cast<void>(Download("/" + page + ".aspx?idx=" + std::to_string(idx) + "&user=Ohio-1"));
    EXPECT_EQ(ImportList(names, data_.File("update.dat")), 0);
  }

  void UpdateCoupons() {
    const auto ids = database_.discounts().MaxIds();
    static_cast<void>(Download("/coupons.aspx?idx=" + std::to_string(ids.source_1) +
                               "&edx=" + std::to_string(ids.source_2) + "&user=Ohio-1"));
    EXPECT_EQ(ImportCoupons(database_.discounts(), data_.File("update.dat")), 0);
    EXPECT_EQ(database_.discounts().Load(nullptr), 0);
  }

  void UpdateAll() {
    UpdateList("stores", database_.stores());
    UpdateList("categories", database_.categories());
    UpdateCoupons();
  }

  test::TempFolder data_;
  ShoppingDatabase database_;
  std::atomic<std::int32_t> cancel_ = 0;
  std::unique_ptr<HttpServer> server_;
};

TEST_F(HandheldTest, AnUpdateBringsTheDemonstrationAndNoNamesBesides) {
  ASSERT_EQ(store_->Apply(DemoWorld(Today())), std::vector<Problem>{});
  for (int round = 0; round < 2; ++round) {  // the second update brings nothing new
    UpdateAll();
    EXPECT_EQ(database_.stores().size(), 30u);
    EXPECT_EQ(database_.categories().size(), 20u);
    EXPECT_EQ(database_.discounts().size(), 300u);
  }
  EXPECT_EQ(database_.stores().Find(5)->Name.view(), "Caf\xE9 Boh\xE8me");
}

TEST_F(HandheldTest, ACouponArrivesAsItWasWritten) {
  PutLists();
  Coupon coupon = SimpleCoupon(CouponSource::kDeal, 12, 2, 3);
  coupon.name = "Caf\xC3\xA9 & more <b>";
  coupon.product = "Espresso";
  coupon.description = "Only \xE2\x82\xAC 1";
  coupon.type = CouponType::kMailInRebate;
  coupon.value_type = ValueType::kPercent;
  coupon.value = "12.5";
  coupon.start_date = ParseDay("2025-05-01");
  PutCoupons({coupon});
  UpdateAll();
  const auto record = database_.discounts().Read(12, 2);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->Name.view(), "Caf\xE9 & more <b>");
  EXPECT_EQ(record->Product.view(), "Espresso");
  EXPECT_EQ(record->Description.view(), "Only \x80 1");
  EXPECT_EQ(record->Type, 3);
  EXPECT_EQ(record->ValueType, 1);
  EXPECT_EQ(record->Value, 12.5);
  EXPECT_EQ(record->StartDate, 1746100800);
  EXPECT_EQ(record->EndDate, 0);
  EXPECT_EQ(record->StoreId, 2u);
  EXPECT_EQ(record->CategoryId, 3u);
}

TEST_F(HandheldTest, LaterUpdatesBringWhatIsNewAndWhatDidNotFit) {
  PutLists();
  std::vector<Coupon> coupons;
  for (int id = 1; id <= 3000; ++id) {
    coupons.push_back(SimpleCoupon(id % 2 == 0 ? CouponSource::kDeal : CouponSource::kCoupon, id));
    coupons.back().description = std::string(249, 'd');
  }
  PutCoupons(coupons);
  UpdateAll();
  const std::size_t first = database_.discounts().size();
  EXPECT_GT(first, 1000u);
  EXPECT_LT(first, 3000u);
  UpdateCoupons();
  EXPECT_EQ(database_.discounts().size(), 3000u);
  PutCoupons({SimpleCoupon(CouponSource::kDeal, 3001)});
  UpdateCoupons();
  EXPECT_EQ(database_.discounts().size(), 3001u);
}

// Of a body that is too long for it the client keeps no more than this.
TEST_F(HandheldTest, TheLargestFeedArrivesWhole) {
  std::string agents(kMaxFeedBytes, ' ');
  agents[kMaxFeedBytes - 1] = '!';
  Import import;
  import.agents = agents;
  ASSERT_EQ(store_->Apply(import), std::vector<Problem>{});
  EXPECT_EQ(Download("/webspider.xml"), agents);
}

}  // namespace
}  // namespace brovanta::server
