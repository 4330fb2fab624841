#include "server/demo_world.h"

#include <gmock/gmock.h>

#include <set>

#include "server/agent_file.h"
#include "server/coupon_table.h"
#include "server/demo_catalog.h"
#include "server/list_table.h"
#include "tests/server/test_store.h"

namespace brovanta::server {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

const Day kToday(std::chrono::year(2025), std::chrono::May, std::chrono::day(15));

template <typename Entry>
std::vector<Entry> EntriesOf(const std::optional<std::vector<Row<Entry>>>& rows) {
  std::vector<Entry> entries;
  if (!rows) return entries;
  for (const auto& row : *rows) entries.push_back(row.entry);
  return entries;
}

TEST(DemoWorld, HasTheSizeOfAHouseholdsWorld) {
  const Import world = DemoWorld(kToday);
  EXPECT_THAT(EntriesOf(world.stores), SizeIs(30));
  EXPECT_THAT(EntriesOf(world.categories), SizeIs(20));
  EXPECT_THAT(EntriesOf(world.coupons), SizeIs(300));
}

TEST(DemoWorld, PassesTheRulesOfAnyImport) {
  const Import world = DemoWorld(kToday);
  EXPECT_THAT(ReadListTable(WriteListTable(EntriesOf(world.stores))).problems, IsEmpty());
  EXPECT_THAT(ReadListTable(WriteListTable(EntriesOf(world.categories))).problems, IsEmpty());
  const auto coupons = EntriesOf(world.coupons);
  const auto again = ReadCouponTable(WriteCouponTable(coupons));
  EXPECT_THAT(again.problems, IsEmpty());
  EXPECT_EQ(EntriesOf(std::optional(again.rows)), coupons);
  EXPECT_THAT(AgentFileProblems(world.agents.value_or("")), IsEmpty());
}

TEST_F(StoreTest, TheDemoWorldFillsAnEmptyDatabase) {
  EXPECT_THAT(store_->Apply(DemoWorld(kToday)), IsEmpty());
  EXPECT_THAT(Coupons(), SizeIs(300));
  EXPECT_FALSE(store_->IsEmpty());
}

TEST(DemoWorld, EveryCouponIsFromAStoreThatSellsItsCategory) {
  for (const Coupon& coupon : EntriesOf(DemoWorld(kToday).coupons)) {
    ASSERT_GE(coupon.store_id, 1);
    ASSERT_LE(coupon.store_id, 30);
    const DemoStore& store = DemoStores()[static_cast<std::size_t>(coupon.store_id) - 1];
    EXPECT_TRUE(store.Sells(coupon.category_id)) << store.name << ": " << coupon.product;
    EXPECT_GE(coupon.category_id, 1);
    EXPECT_LE(coupon.category_id, 20);
  }
}

TEST(DemoWorld, CouponsAndDealsCountFromOne) {
  std::set<std::int32_t> coupons;
  std::set<std::int32_t> deals;
  for (const Coupon& coupon : EntriesOf(DemoWorld(kToday).coupons)) {
    (coupon.source == CouponSource::kCoupon ? coupons : deals).insert(coupon.id);
  }
  EXPECT_THAT(coupons, SizeIs(200));
  EXPECT_EQ(*coupons.begin(), 1);
  EXPECT_EQ(*coupons.rbegin(), 200);
  EXPECT_THAT(deals, SizeIs(100));
  EXPECT_EQ(*deals.begin(), 1);
  EXPECT_EQ(*deals.rbegin(), 100);
}

TEST(DemoWorld, DatesLieAroundToday) {
  int valid = 0;
  int over = 0;
  int coming = 0;
  for (const Coupon& coupon : EntriesOf(DemoWorld(kToday).coupons)) {
    if (coupon.start_date) {
      EXPECT_GE(*coupon.start_date, DaysLater(kToday, -25));
      EXPECT_LE(*coupon.start_date, DaysLater(kToday, 10));
    }
    if (coupon.end_date && *coupon.end_date < kToday) {
      ++over;
    } else if (coupon.start_date && *coupon.start_date > kToday) {
      ++coming;
    } else {
      ++valid;
    }
  }
  EXPECT_GT(valid, 100);
  EXPECT_GT(over, 10);
  EXPECT_GT(coming, 10);
}

TEST(DemoWorld, HoldsEveryKindOfOffer) {
  std::set<CouponType> types;
  std::set<ValueType> values;
  for (const Coupon& coupon : EntriesOf(DemoWorld(kToday).coupons)) {
    types.insert(coupon.type);
    values.insert(coupon.value_type);
  }
  EXPECT_THAT(types, SizeIs(3));
  EXPECT_THAT(values, SizeIs(2));
}

TEST(DemoWorld, IsTheSameForTheSameDay) {
  EXPECT_EQ(EntriesOf(DemoWorld(kToday).coupons), EntriesOf(DemoWorld(kToday).coupons));
  EXPECT_NE(EntriesOf(DemoWorld(kToday).coupons),
            EntriesOf(DemoWorld(DaysLater(kToday, 1)).coupons));
}

}  // namespace
}  // namespace brovanta::server
