#include "server/store.h"

#include <gmock/gmock.h>

#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::vector<std::pair<int, int>> Keys(const std::vector<Coupon>& coupons) {
  std::vector<std::pair<int, int>> keys;
  for (const Coupon& coupon : coupons) {
    keys.emplace_back(static_cast<int>(coupon.source), coupon.id);
  }
  return keys;
}

TEST_F(StoreTest, IsEmptyAtFirst) {
  EXPECT_TRUE(store_->IsEmpty());
  EXPECT_THAT(Entries(ListKind::kStores), IsEmpty());
  EXPECT_THAT(Coupons(), IsEmpty());
  std::optional<std::string> bytes;
  EXPECT_TRUE(store_->ReadAgentFile(bytes));
  EXPECT_EQ(bytes, std::nullopt);
}

TEST_F(StoreTest, IsNotEmptyWithAnythingInIt) {
  Import import;
  import.agents = "x";
  ASSERT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_FALSE(store_->IsEmpty());
}

TEST_F(StoreTest, GivesTheEntriesAboveAnIdInOrder) {
  Import import;
  import.stores = RowsOf<ListEntry>({{40, "Forty"}, {12, "Twelve"}, { 4998, "Last" }});
  ASSERT_THAT(store_->Apply(import), IsEmpty());
  EXPECT_THAT(
      Entries(ListKind::kStores),
      ElementsAre(ListEntry{12, "Twelve"}, ListEntry{40, "Forty"}, ListEntry{4998, "Last"}));
  EXPECT_THAT(Entries(ListKind::kStores, 12),
              ElementsAre(ListEntry{40, "Forty"}, ListEntry{4998, "Last"}));
  EXPECT_THAT(Entries(ListKind::kStores, 4998), IsEmpty());
  EXPECT_THAT(Entries(ListKind::kCategories), IsEmpty());
}

TEST_F(StoreTest, StopsWhenNoMoreIsWanted) {
  PutLists();
  int seen = 0;
  EXPECT_TRUE(
      store_->ForEachEntry(ListKind::kStores, 0, [&seen](const ListEntry&) { return ++seen < 2; }));
  EXPECT_EQ(seen, 2);
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1), SimpleCoupon(CouponSource::kCoupon, 2)});
  seen = 0;
  EXPECT_TRUE(store_->ForEachCoupon(0, 0, [&seen](const Coupon&) {
    ++seen;
    return false;
  }));
  EXPECT_EQ(seen, 1);
}

TEST_F(StoreTest, GivesCouponsAndDealsAboveTheirOwnIds) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kDeal, 1), SimpleCoupon(CouponSource::kDeal, 2),
              SimpleCoupon(CouponSource::kCoupon, 2), SimpleCoupon(CouponSource::kCoupon, 1),
              SimpleCoupon(CouponSource::kCoupon, 10),
              SimpleCoupon(CouponSource::kDeal, 2147483647)});
  EXPECT_THAT(Keys(Coupons()), ElementsAre(Pair(1, 1), Pair(2, 1), Pair(1, 2), Pair(2, 2),
                                           Pair(1, 10), Pair(2, 2147483647)));
  EXPECT_THAT(Keys(Coupons(2, 1)), ElementsAre(Pair(2, 2), Pair(1, 10), Pair(2, 2147483647)));
  EXPECT_THAT(Keys(Coupons(1, 2147483647)), ElementsAre(Pair(1, 2), Pair(1, 10)));
  EXPECT_THAT(Coupons(10, 2147483647), IsEmpty());
}

TEST_F(StoreTest, KeepsEveryFieldOfACoupon) {
  PutLists();
  Coupon coupon = SimpleCoupon(CouponSource::kDeal, 7, 2, 3);
  coupon.name = "Caf\xC3\xA9 'quoted'; --";
  coupon.product = "Espresso";
  coupon.description = "Twice";
  coupon.type = CouponType::kMailInRebate;
  coupon.value_type = ValueType::kPercent;
  coupon.value = "5.50";
  coupon.start_date = ParseDay("2025-05-01");
  PutCoupons({coupon});
  EXPECT_THAT(Coupons(), ElementsAre(coupon));
}

TEST_F(StoreTest, FindsACouponWithItsNames) {
  PutLists();
  const Coupon coupon = SimpleCoupon(CouponSource::kDeal, 7, 2, 3);
  PutCoupons({coupon});
  std::optional<CouponView> found;
  ASSERT_TRUE(store_->FindCoupon(CouponSource::kDeal, 7, found));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->coupon, coupon);
  EXPECT_EQ(found->store, "Two");
  EXPECT_EQ(found->category, "Drei");
  found.reset();
  EXPECT_TRUE(store_->FindCoupon(CouponSource::kCoupon, 7, found));
  EXPECT_FALSE(found);
}

TEST_F(StoreTest, SaysWhenItCannotBeRead) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1)});
  std::string error;
  const auto raw = sqlite::Connection::Open(path(), sqlite::OpenMode::kMustExist, error);
  ASSERT_TRUE(raw->Run("DROP TABLE coupon; DROP TABLE store; DROP TABLE agent_file"));
  EXPECT_FALSE(store_->ForEachEntry(ListKind::kStores, 0, [](const ListEntry&) { return true; }));
  EXPECT_FALSE(store_->ForEachCoupon(0, 0, [](const Coupon&) { return true; }));
  std::optional<CouponView> found;
  EXPECT_FALSE(store_->FindCoupon(CouponSource::kCoupon, 1, found));
  std::optional<std::string> bytes;
  EXPECT_FALSE(store_->ReadAgentFile(bytes));
  EXPECT_FALSE(store_->IsEmpty());
}

TEST_F(StoreTest, SaysWhenACouponMakesNoSense) {
  PutLists();
  PutCoupons({SimpleCoupon(CouponSource::kCoupon, 1)});
  std::string error;
  const auto raw = sqlite::Connection::Open(path(), sqlite::OpenMode::kMustExist, error);
  ASSERT_TRUE(raw->Run("PRAGMA ignore_check_constraints = 1; UPDATE coupon SET type = 9"));
  EXPECT_FALSE(store_->ForEachCoupon(0, 0, [](const Coupon&) { return true; }));
  std::optional<CouponView> found;
  EXPECT_FALSE(store_->FindCoupon(CouponSource::kCoupon, 1, found));
}

TEST_F(StoreTest, AnotherConnectionSeesAnImportAtOnce) {
  const auto other = Open();
  ASSERT_NE(other, nullptr);
  PutLists();
  int seen = 0;
  EXPECT_TRUE(other->ForEachEntry(ListKind::kStores, 0, [&seen](const ListEntry&) {
    ++seen;
    return true;
  }));
  EXPECT_EQ(seen, 3);
}

}  // namespace
}  // namespace brovanta::server
