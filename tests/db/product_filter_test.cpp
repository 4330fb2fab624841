#include "db/product_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "db/schedule.h"
#include "tests/db/stored_product.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

using test::At;
using test::kDay;
using test::StoredProduct;

class ProductFilterTest : public testing::Test {
 protected:
  const DateStamp now_ = At(2024, 5, 6, 12);
  const DateStamp today_ = At(2024, 5, 6, 0);
  const DateStamp tonight_ = At(2024, 5, 6, 23, 59, 59);

  [[nodiscard]] static ProductFilter Period(int kind, DateStamp from, DateStamp to) {
    ProductFilter filter;
    filter.kind = kind;
    filter.from = from;
    filter.to = to;
    return filter;
  }
  [[nodiscard]] ProductFilter Today() const { return Period(kProductKind, today_, tonight_); }

  [[nodiscard]] static ProductBytes Image(const StoredProduct& stored) {
    ProductBytes bytes;
    const test::Bytes image = stored.Image();
    std::copy(image.begin(), image.end(), bytes.begin());
    return bytes;
  }

  [[nodiscard]] static bool MayPass(const ProductFilter& filter, const StoredProduct& stored) {
    return ProductListMatcher(filter).MayPass(Image(stored));
  }

  /// Whether the record passes; what the test computed stands in record_.
  bool Passes(const ProductFilter& filter, const StoredProduct& stored) {
    record_ = DecodeProduct(Image(stored));
    return ProductListMatcher(filter).Passes(record_);
  }

  ProductRecord record_;

 private:
  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{At(2024, 5, 6, 12)};
};

TEST_F(ProductFilterTest, TextNeedsAllWordsInTheNameInAnyOrderAndCase) {
  ProductFilter filter = Today();
  filter.text = "milk FRESH";
  EXPECT_TRUE(Passes(filter, {.name = "Fresh Buttermilk", .start = now_}));
  EXPECT_FALSE(Passes(filter, {.name = "Milk", .start = now_}));
}

TEST_F(ProductFilterTest, TextIsNotLookedForInTheNotes) {
  ProductFilter filter = Today();
  filter.text = "bread";
  EXPECT_FALSE(
      Passes(filter, {.name = "Milk", .short_text = "bread", .notes = "bread", .start = now_}));
}

TEST_F(ProductFilterTest, TextOfBlanksRestrictsNothing) {
  ProductFilter filter = Today();
  filter.text = "  ";
  EXPECT_TRUE(Passes(filter, {.name = "Milk", .start = now_}));
}

TEST_F(ProductFilterTest, ANameWithoutTerminatorEndsWithItsField) {
  const StoredProduct stored{
      .name = std::string(46, 'x') + "milk", .short_text = "fresh", .start = now_};
  ProductFilter filter = Today();
  filter.text = "milk";
  EXPECT_TRUE(MayPass(filter, stored));
  filter.text = "milkfresh";
  EXPECT_FALSE(MayPass(filter, stored));
}

TEST_F(ProductFilterTest, StoreAndCategoryMustBeEqual) {
  ProductFilter filter = Today();
  filter.store_id = 7;
  filter.category_id = 8;
  EXPECT_TRUE(Passes(filter, {.store = 7, .category = 8, .start = now_}));
  EXPECT_FALSE(Passes(filter, {.store = 6, .category = 8, .start = now_}));
  EXPECT_FALSE(Passes(filter, {.store = 7, .category = 9, .start = now_}));
}

TEST_F(ProductFilterTest, AProductWithoutStoreOrCategoryFailsSuchAFilter) {
  ProductFilter filter = Today();
  filter.store_id = 7;
  EXPECT_FALSE(Passes(filter, {.store = 0, .start = now_}));
  filter.store_id = 0;
  filter.category_id = 7;
  EXPECT_FALSE(Passes(filter, {.category = 0, .start = now_}));
}

TEST_F(ProductFilterTest, AnyStorePassesWithoutAStoreFilter) {
  EXPECT_TRUE(Passes(Today(), {.store = 4'000'000'000U, .category = 5, .start = now_}));
}

TEST_F(ProductFilterTest, DeletedRecordsFailWhateverTheirFlagHolds) {
  EXPECT_FALSE(Passes(Today(), {.start = now_, .deleted = 1}));
  EXPECT_FALSE(Passes(Today(), {.start = now_, .deleted = 255}));
}

TEST_F(ProductFilterTest, PurchasesPassFromTheFirstToTheLastMoment) {
  const ProductFilter filter = Period(kPurchaseKind, today_, tonight_);
  EXPECT_FALSE(Passes(filter, {.start = today_ - 1}));
  EXPECT_TRUE(Passes(filter, {.start = today_}));
  EXPECT_TRUE(Passes(filter, {.start = tonight_}));
  EXPECT_FALSE(Passes(filter, {.start = tonight_ + 1}));
}

TEST_F(ProductFilterTest, ABoundOfZeroDoesNotRestrictPurchases) {
  EXPECT_TRUE(Passes(Period(kPurchaseKind, today_, 0), {.start = tonight_ + kDay}));
  EXPECT_TRUE(Passes(Period(kPurchaseKind, 0, tonight_), {.start = 5}));
  EXPECT_TRUE(Passes(Period(kPurchaseKind, 0, 0), {.start = 0}));
}

TEST_F(ProductFilterTest, PurchasesKeepTheComputedFieldsTheyWereWrittenWith) {
  ASSERT_TRUE(Passes(Period(kPurchaseKind, 0, 0),
                     {.kind = 2, .day_value = 3, .start = now_, .last_purchased = now_}));
  EXPECT_EQ(record_.NextDate, 0);
  ASSERT_TRUE(
      Passes(Period(kPurchaseKind, 0, 0), {.start = now_, .next_date = 77, .days_overdue = 5}));
  EXPECT_EQ(record_.NextDate, 77);
  EXPECT_EQ(record_.DaysOverdue, 5);
}

TEST_F(ProductFilterTest, AnUnscheduledProductPassesAnyPeriodUntilItIsBought) {
  ASSERT_TRUE(
      Passes(Today(), {.kind = 0, .start = tonight_ + kDay, .next_date = 9, .days_overdue = 9}));
  EXPECT_EQ(record_.NextDate, 0);
  EXPECT_EQ(record_.DaysOverdue, 0);
  EXPECT_FALSE(Passes(Today(), {.kind = 0, .last_purchased = 1}));
}

TEST_F(ProductFilterTest, AnUnknownPurchaseKindFails) {
  EXPECT_FALSE(Passes(Today(), {.kind = 5, .start = now_}));
  EXPECT_FALSE(Passes(Today(), {.kind = 65535, .start = now_}));
}

TEST_F(ProductFilterTest, AOneTimeProductThatWasBoughtNeverPassesAgain) {
  EXPECT_FALSE(Passes(Today(), {.start = now_, .last_purchased = today_}));
  EXPECT_FALSE(Passes(Period(kProductKind, now_ + kDay, now_ + 2 * kDay),
                      {.start = now_, .last_purchased = today_}));
}

TEST_F(ProductFilterTest, AProductWithoutADateFails) {
  EXPECT_FALSE(Passes(Today(), {.start = 0}));
}

TEST_F(ProductFilterTest, TheComputedDateDecidesAndNotTheStoredOne) {
  ASSERT_TRUE(Passes(Today(), {.start = now_, .next_date = now_ + 50 * kDay, .days_overdue = 3}));
  EXPECT_EQ(record_.NextDate, now_);
  EXPECT_EQ(record_.DaysOverdue, 0);
}

TEST_F(ProductFilterTest, AnOverdueProductPassesWithItsWholeDays) {
  ASSERT_TRUE(Passes(Today(), {.start = now_ - 2 * kDay}));
  EXPECT_EQ(record_.NextDate, now_ - 2 * kDay);
  EXPECT_EQ(record_.DaysOverdue, 2);
}

TEST_F(ProductFilterTest, AnOverdueProductPassesInAnyPeriod) {
  const ProductFilter next_month = Period(kProductKind, now_ + 30 * kDay, now_ + 60 * kDay);
  ASSERT_TRUE(Passes(next_month, {.start = now_ + kDay}));
  EXPECT_EQ(record_.DaysOverdue, 49709);
  EXPECT_TRUE(Passes(Period(kProductKind, today_, 0), {.start = today_ - 1}));
}

TEST_F(ProductFilterTest, AProductPassesFromTheFirstToTheLastMomentOfThePeriod) {
  EXPECT_TRUE(Passes(Today(), {.start = today_}));
  EXPECT_TRUE(Passes(Today(), {.start = tonight_}));
  EXPECT_FALSE(Passes(Today(), {.start = tonight_ + 1}));
}

TEST_F(ProductFilterTest, APeriodWithoutAnEndLetsNoLaterProductPass) {
  EXPECT_FALSE(Passes(Period(kProductKind, today_, 0), {.start = today_}));
  EXPECT_FALSE(Passes(Period(kProductKind, 0, 0), {.start = now_}));
}

TEST_F(ProductFilterTest, AProductDueExactlyNowIsNotOverdue) {
  ASSERT_TRUE(Passes(Today(), {.start = now_}));
  EXPECT_EQ(record_.DaysOverdue, 0);
}

TEST_F(ProductFilterTest, AProductDueInOneDayGets49709DaysOverdue) {
  ASSERT_TRUE(Passes(Period(kProductKind, today_, now_ + kDay), {.start = now_ + kDay}));
  EXPECT_EQ(record_.DaysOverdue, 49709);
}

TEST_F(ProductFilterTest, AProductDueInOneSecondGets49710DaysOverdue) {
  ASSERT_TRUE(Passes(Today(), {.start = now_ + 1}));
  EXPECT_EQ(record_.DaysOverdue, 49710);
}

TEST_F(ProductFilterTest, DatesBefore1970AreTheEarliest) {
  constexpr DateStamp kEarliest = std::numeric_limits<DateStamp>::min();
  ASSERT_TRUE(Passes(Period(kProductKind, -5, 5), {.start = kEarliest}));
  EXPECT_EQ(record_.NextDate, kEarliest);
  EXPECT_FALSE(Passes(Period(kProductKind, kEarliest, -5), {.start = 5}));
}

TEST_F(ProductFilterTest, ARecurringProductPassesByItsNextDate) {
  // Due on the 1st and every 3 days; bought on the 4th: due on the 7th.
  const StoredProduct stored{
      .kind = kDaily, .day_value = 3, .start = At(2024, 5, 1), .last_purchased = At(2024, 5, 4)};
  EXPECT_FALSE(Passes(Today(), stored));
  ASSERT_TRUE(Passes(Period(kProductKind, today_, At(2024, 5, 7)), stored));
  EXPECT_EQ(record_.NextDate, At(2024, 5, 7));
}

TEST_F(ProductFilterTest, AnyOtherFilterKindLetsNothingPass) {
  EXPECT_FALSE(Passes(Period(0, today_, tonight_), {.start = now_}));
  EXPECT_FALSE(Passes(Period(3, today_, tonight_), {.start = now_}));
}

}  // namespace
}  // namespace brovanta
