#include "server/demo_renewal.h"

#include <gmock/gmock.h>

#include <map>

#include "server/coupon_words.h"
#include "server/demo_agents.h"
#include "server/demo_world.h"
#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using std::chrono::sys_days;
using testing::IsEmpty;
using testing::SizeIs;

const Day kMade(std::chrono::year(2025), std::chrono::May, std::chrono::day(15));
const Day kLater(std::chrono::year(2025), std::chrono::December, std::chrono::day(1));

std::vector<Coupon> MadeOffers() {
  std::vector<Coupon> coupons;
  const Import world = DemoWorld(kMade);
  for (const auto& row : *world.coupons) coupons.push_back(row.entry);
  return coupons;
}

bool IsOver(const Coupon& coupon, Day today) {
  return coupon.end_date && sys_days(*coupon.end_date) < sys_days(today);
}

TEST(DemoRenewal, OffersThatAreOverRunAgainUnderNewIds) {
  const auto made = MadeOffers();
  std::map<CouponSource, std::int32_t> next = {{CouponSource::kCoupon, kDemoCouponCount},
                                               {CouponSource::kDeal, kDemoDealCount}};
  const Import renewal = DemoRenewal(made, DemoAgentFile(), kLater);
  std::size_t at = 0;
  for (const Coupon& old : made) {
    if (!IsOver(old, kLater)) continue;
    ASSERT_LT(at, renewal.coupons->size());
    EXPECT_EQ(renewal.withdrawn[at].source, old.source);
    EXPECT_EQ(renewal.withdrawn[at].id, old.id);
    const Coupon& fresh = (*renewal.coupons)[at].entry;
    Coupon expected = old;
    expected.id = ++next[old.source];
    expected.start_date = fresh.start_date;
    expected.end_date = fresh.end_date;
    EXPECT_EQ(fresh, expected);
    EXPECT_LE(sys_days(*fresh.start_date), sys_days(kLater));
    EXPECT_GE(sys_days(*fresh.start_date), sys_days(DaysLater(kLater, -7)));
    EXPECT_GE(sys_days(*fresh.end_date), sys_days(DaysLater(kLater, 7)));
    EXPECT_LE(sys_days(*fresh.end_date), sys_days(DaysLater(kLater, 42)));
    ++at;
  }
  EXPECT_GT(at, 200u);  // half a year later all are over but those without an end
  EXPECT_EQ(renewal.coupons->size(), at);
  EXPECT_EQ(renewal.withdrawn.size(), at);
  EXPECT_EQ(renewal.agents, std::nullopt);
}

TEST(DemoRenewal, AnOfferRunsThroughItsLastDay) {
  Coupon offer = MadeOffers()[0];
  offer.end_date = kLater;
  EXPECT_THAT(*DemoRenewal({offer}, "", kLater).coupons, IsEmpty());
  EXPECT_THAT(*DemoRenewal({offer}, "", DaysLater(kLater, 1)).coupons, SizeIs(1));
  offer.end_date.reset();
  EXPECT_THAT(*DemoRenewal({offer}, "", kLater).coupons, IsEmpty());
}

TEST(DemoRenewal, WhatSomebodyWroteStays) {
  const auto made = MadeOffers();
  for (const Coupon& offer : made) {
    std::vector<Coupon> own(7, offer);
    own[0].name += "!";
    own[1].product += "s";
    own[2].description += " Mine.";
    own[3].value = "77";
    own[4].store_id = own[4].store_id % 30 + 1;
    own[5].category_id = own[5].category_id % 20 + 1;
    own[6].store_id = 31;
    for (Coupon& coupon : own) {
      coupon.end_date = kMade;
      EXPECT_FALSE(IsDemoOffer(coupon)) << coupon.name << coupon.description;
    }
    EXPECT_THAT(DemoRenewal(own, "", kLater).withdrawn, IsEmpty());
    EXPECT_TRUE(IsDemoOffer(offer)) << offer.name;
  }
  EXPECT_FALSE(IsDemoOffer({}));
}

TEST(DemoRenewal, NewIdsAreAboveThoseOfOthers) {
  Coupon offer = MadeOffers()[0];
  offer.end_date = kMade;
  Coupon own = SimpleCoupon(offer.source, 4711);
  EXPECT_EQ((*DemoRenewal({offer, own}, "", kLater).coupons)[0].entry.id, 4712);
  own.id = kMaxCouponId;
  const Import none = DemoRenewal({offer, own}, "", kLater);
  EXPECT_THAT(*none.coupons, IsEmpty());
  EXPECT_THAT(none.withdrawn, IsEmpty());
}

TEST(DemoRenewal, BringsThePresentAgentsButOnlyForThoseOfTheDemonstration) {
  const std::string earlier =
      "<WebAgent><FormatString>http://{server}/demo/market?words= KEYWORD </FormatString>";
  EXPECT_EQ(DemoRenewal({}, earlier, kLater).agents, DemoAgentFile());
  EXPECT_EQ(DemoRenewal({}, DemoAgentFile(), kLater).agents, std::nullopt);
  EXPECT_EQ(DemoRenewal({}, "", kLater).agents, std::nullopt);
  EXPECT_EQ(
      DemoRenewal({}, DemoAgentFile() + "<FormatString>http://shop.example/</FormatString>", kLater)
          .agents,
      std::nullopt);
}

// In a real database, with an entry of somebody's own among them.
TEST_F(StoreTest, ARenewedDemonstrationHasNoOfferThatIsOver) {
  ASSERT_THAT(store_->Apply(DemoWorld(kMade)), IsEmpty());
  Coupon own = SimpleCoupon(CouponSource::kCoupon, 5);
  own.end_date = kMade;
  PutCoupons({own});
  const auto renew = [](const std::vector<Coupon>& coupons, const std::string& agents) {
    return DemoRenewal(coupons, agents, kLater);
  };
  ASSERT_THAT(store_->Amend(renew), IsEmpty());
  const auto renewed = Coupons();
  EXPECT_THAT(renewed, SizeIs(300));
  for (const Coupon& coupon : renewed) {
    if (coupon.id == 5 && coupon.source == CouponSource::kCoupon) {
      EXPECT_EQ(coupon, own);
    } else {
      EXPECT_FALSE(IsOver(coupon, kLater)) << coupon.name;
    }
  }
  EXPECT_THAT(Coupons(200, 100), SizeIs(testing::Gt(200u)));  // what handhelds then ask for
  ASSERT_THAT(store_->Amend(renew), IsEmpty());               // nothing is over any more
  EXPECT_EQ(Coupons(), renewed);
}

}  // namespace
}  // namespace brovanta::server
