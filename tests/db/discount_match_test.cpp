#include "db/discount_match.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/db/raw_files.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Raw;
using test::RawDiscount;

constexpr DateStamp kDay = 1112749200;

bool Passes(const DiscountFilter& filter, const RawDiscount& discount) {
  const Bytes bytes = Raw(discount);
  return DiscountMatcher(filter).Passes(RecordSpan<DiscountFormat>(bytes));
}

bool Fits(const ProductRecord& product, const RawDiscount& discount, DateStamp today = kDay) {
  const Bytes bytes = Raw(discount);
  return ProductMatcher(product, today).Fits(RecordSpan<DiscountFormat>(bytes));
}

ProductRecord Product(std::string_view name) {
  ProductRecord product;
  product.Name.Assign(name);
  return product;
}

TEST(DiscountMatcherTest, AnEmptyFilterPassesEverything) {
  EXPECT_TRUE(Passes({}, {}));
  EXPECT_TRUE(Passes({}, {.start_date = kDay, .end_date = 1, .store_id = 9, .category_id = 8}));
}

TEST(DiscountMatcherTest, TheKindIsNotTested) { EXPECT_TRUE(Passes({.kind = 77}, {})); }

TEST(DiscountMatcherTest, TheEndDayItselfIsStillValid) {
  const DiscountFilter filter{.valid_on = kDay};
  EXPECT_TRUE(Passes(filter, {.end_date = kDay}));
  EXPECT_TRUE(Passes(filter, {.end_date = kDay + 1}));
  EXPECT_FALSE(Passes(filter, {.end_date = kDay - 1}));
}

TEST(DiscountMatcherTest, ARecordWithoutEndDateIsAlwaysValid) {
  EXPECT_TRUE(Passes({.valid_on = kDay}, {.end_date = 0}));
  EXPECT_TRUE(Passes({.valid_on = kDay}, {.end_date = -1}));
  EXPECT_TRUE(Passes({.valid_on = kDay}, {.end_date = std::numeric_limits<DateStamp>::min()}));
}

TEST(DiscountMatcherTest, TheStartMustNotLieBeforeStartedSince) {
  const DiscountFilter filter{.started_since = kDay};
  EXPECT_TRUE(Passes(filter, {.start_date = kDay}));
  EXPECT_TRUE(Passes(filter, {.start_date = kDay + 1}));
  EXPECT_FALSE(Passes(filter, {.start_date = kDay - 1}));
  EXPECT_TRUE(Passes(filter, {.start_date = 0}));
  EXPECT_TRUE(Passes(filter, {.start_date = -1}));
}

TEST(DiscountMatcherTest, FilterDatesAreComparedSigned) {
  EXPECT_TRUE(Passes({.valid_on = -5, .started_since = -5}, {.start_date = 1, .end_date = 1}));
}

TEST(DiscountMatcherTest, ADiscountWithoutStorePassesAStoreFilter) {
  const DiscountFilter filter{.store_id = 5};
  EXPECT_TRUE(Passes(filter, {.store_id = 5}));
  EXPECT_TRUE(Passes(filter, {.store_id = 0}));
  EXPECT_FALSE(Passes(filter, {.store_id = 6}));
}

TEST(DiscountMatcherTest, ADiscountWithoutCategoryPassesACategoryFilter) {
  const DiscountFilter filter{.category_id = 0x80000005};
  EXPECT_TRUE(Passes(filter, {.category_id = 0x80000005}));
  EXPECT_TRUE(Passes(filter, {.category_id = 0}));
  EXPECT_FALSE(Passes(filter, {.category_id = 5}));
}

TEST(DiscountMatcherTest, AllWordsMustOccurInTheNameOrAllInTheProduct) {
  const DiscountFilter filter{.text = "milk oat"};
  EXPECT_TRUE(Passes(filter, {.name = "Oat MILK drink", .product = ""}));
  EXPECT_TRUE(Passes(filter, {.name = "Deal", .product = "milk of oats"}));
  EXPECT_FALSE(Passes(filter, {.name = "Oat drink", .product = "milk"}));
}

TEST(DiscountMatcherTest, ABlankTextHasNoWordsAndPasses) {
  EXPECT_TRUE(Passes({.text = "  "}, {.name = "x"}));
}

TEST(DiscountMatcherTest, TheDescriptionIsNotSearched) {
  EXPECT_FALSE(Passes({.text = "about"}, {.name = "Soap"}));
}

TEST(DiscountMatcherTest, AFieldWithoutTerminatorEndsAtItsBorder) {
  const std::string name(49, 'n');
  const std::string full = name + "A";
  EXPECT_TRUE(Passes({.text = "nA"}, {.name = full, .product = "B"}));
  EXPECT_FALSE(Passes({.text = "AB"}, {.name = full, .product = "B"}));
}

TEST(DiscountMatcherTest, TheDeletedFlagIsNotItsBusiness) {
  EXPECT_TRUE(Passes({}, {.deleted = 1}));
}

TEST(ProductMatcherTest, AllWordsOfTheNameMustOccurInTheDiscount) {
  EXPECT_TRUE(Fits(Product("oat milk"), {.name = "Milk from oats"}));
  EXPECT_TRUE(Fits(Product("oat milk"), {.name = "Deal", .product = "oat milk 1l"}));
  EXPECT_FALSE(Fits(Product("oat milk"), {.name = "oat", .product = "milk"}));
  EXPECT_FALSE(Fits(Product("oat milk 1l"), {.name = "oat milk"}));
}

TEST(ProductMatcherTest, ANameOfBlanksFitsEveryDiscount) {
  EXPECT_TRUE(Fits(Product("   "), {.name = "anything"}));
  EXPECT_TRUE(Fits(Product(""), {.name = ""}));
}

TEST(ProductMatcherTest, DeletedDiscountsDoNotFit) {
  EXPECT_FALSE(Fits(Product("soap"), {.deleted = 1}));
  EXPECT_FALSE(Fits(Product("soap"), {.deleted = 255}));
}

TEST(ProductMatcherTest, TheEndDayItselfIsStillValid) {
  EXPECT_TRUE(Fits(Product("soap"), {.end_date = kDay}));
  EXPECT_FALSE(Fits(Product("soap"), {.end_date = kDay - 1}));
  EXPECT_TRUE(Fits(Product("soap"), {.end_date = 0}));
}

TEST(ProductMatcherTest, ANegativeEndDateIsADate) {
  EXPECT_FALSE(Fits(Product("soap"), {.end_date = -1}));
  EXPECT_TRUE(Fits(Product("soap"), {.end_date = -1}, -1));
}

TEST(ProductMatcherTest, TheStartDateAndTheFlagAreNotTested) {
  EXPECT_TRUE(Fits(Product("soap"), {.start_date = kDay + 1, .flagged = 1}));
}

TEST(ProductMatcherTest, StoreAndCategoryMustNotContradict) {
  ProductRecord product = Product("soap");
  EXPECT_TRUE(Fits(product, {.store_id = 5, .category_id = 6}));
  product.StoreId = 5;
  product.CategoryId = 6;
  EXPECT_TRUE(Fits(product, {.store_id = 5, .category_id = 6}));
  EXPECT_TRUE(Fits(product, {}));
  EXPECT_FALSE(Fits(product, {.store_id = 6, .category_id = 6}));
  EXPECT_FALSE(Fits(product, {.store_id = 5, .category_id = 5}));
}

}  // namespace
}  // namespace brovanta
