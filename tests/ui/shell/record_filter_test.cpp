#include "ui/shell/record_filter.h"

#include <gtest/gtest.h>

namespace brovanta {
namespace {

RecordFilter Sample() {
  return {.kind = 2,
          .store_id = 7,
          .category_id = 9,
          .period_start = 100,
          .period_end = 200,
          .find_text = "milk"};
}

TEST(RecordFilterTest, StartsWithTheProductsToBuyAndNoRestriction) {
  const RecordFilter filter;
  EXPECT_EQ(filter.kind, 1);
  EXPECT_EQ(filter.store_id, 0U);
  EXPECT_EQ(filter.category_id, 0U);
  EXPECT_FALSE(filter.find_text.has_value());
}

TEST(RecordFilterTest, ProductsAreQueriedByPeriodStartAndEnd) {
  const ProductFilter query = AsProductFilter(Sample());
  EXPECT_EQ(query.kind, 2);
  EXPECT_EQ(query.store_id, 7U);
  EXPECT_EQ(query.category_id, 9U);
  EXPECT_EQ(query.from, 100);
  EXPECT_EQ(query.to, 200);
  EXPECT_EQ(query.text, "milk");
}

TEST(RecordFilterTest, DiscountsAreQueriedByValidOnAndStartedSince) {
  const DiscountFilter query = AsDiscountFilter(Sample());
  EXPECT_EQ(query.kind, 2);
  EXPECT_EQ(query.store_id, 7U);
  EXPECT_EQ(query.category_id, 9U);
  EXPECT_EQ(query.valid_on, 100);
  EXPECT_EQ(query.started_since, 200);
  EXPECT_EQ(query.text, "milk");
}

TEST(RecordFilterTest, NoFindTextIsAnEmptyOne) {
  EXPECT_EQ(AsProductFilter(RecordFilter()).text, "");
  EXPECT_EQ(AsDiscountFilter(RecordFilter()).text, "");
}

}  // namespace
}  // namespace brovanta
