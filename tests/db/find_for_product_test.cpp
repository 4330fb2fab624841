#include <gtest/gtest.h>

#include <string>

#include "db/discount_list.h"
#include "db/error_codes.h"
#include "tests/db/database_test.h"
#include "tests/db/raw_files.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::RawDiscount;
using test::RawDiscountFile;

class FindForProductTest : public test::DatabaseTest {
 protected:
  int Find(std::initializer_list<RawDiscount> discounts) {
    folder_.Write("discount.dat", RawDiscountFile(100, discounts));
    return database_.discounts().FindForProduct(product_);
  }
  void SetUp() override {
    test::DatabaseTest::SetUp();
    product_.Name.Assign("oat milk");
  }

  ProductRecord product_;
};

TEST_F(FindForProductTest, FillsTheSlotsInFileOrder) {
  EXPECT_EQ(Find({{.id = 9, .source = 2, .name = "Oat milk", .type = 3, .stamp = 1},
                  {.id = 4, .name = "Soap"},
                  {.id = 5, .name = "x", .product = "milk, oat", .type = 1, .stamp = 2}}),
            2);
  EXPECT_EQ(product_.Discounts[0], (AppliedDiscount{9, 0, 103}));
  EXPECT_EQ(product_.Discounts[1], (AppliedDiscount{5, 0, 101}));
  EXPECT_EQ(product_.Discounts[2], AppliedDiscount{});
}

TEST_F(FindForProductTest, FillsFreeSlotsOnlyAndLeavesTheSourceAlone) {
  product_.Discounts[0] = {77, 1, 2};
  product_.Discounts[1] = {0, 5, 9};
  product_.Discounts[2] = {78, 2, 3};
  EXPECT_EQ(Find({{.id = 9, .source = 2, .name = "Oat milk", .type = 3},
                  {.id = 10, .name = "Oat milk", .type = 1}}),
            2);
  EXPECT_EQ(product_.Discounts[0], (AppliedDiscount{77, 1, 2}));
  EXPECT_EQ(product_.Discounts[1], (AppliedDiscount{9, 5, 103}));
  EXPECT_EQ(product_.Discounts[2], (AppliedDiscount{78, 2, 3}));
  EXPECT_EQ(product_.Discounts[3], (AppliedDiscount{10, 0, 101}));
}

TEST_F(FindForProductTest, AProductWithFiveFullSlotsGivesZero) {
  for (AppliedDiscount& slot : product_.Discounts) slot = {1, 1, 1};
  const DiscountSlots before = product_.Discounts;
  EXPECT_EQ(Find({{.name = "Oat milk"}}), 0);
  EXPECT_EQ(product_.Discounts, before);
}

TEST_F(FindForProductTest, AtMostFiveAreTaken) {
  const RawDiscount fits{.name = "Oat milk"};
  EXPECT_EQ(Find({fits, fits, fits, fits, fits, fits, fits}), 5);
}

TEST_F(FindForProductTest, ADiscountThatTheProductHoldsIsEnteredTwice) {
  product_.Discounts[0] = {9, 2, 1};
  EXPECT_EQ(Find({{.id = 9, .source = 2, .name = "Oat milk"}}), 1);
  EXPECT_EQ(product_.Discounts[1].Id, 9u);
}

TEST_F(FindForProductTest, TheTypeWrapsInSixteenBits) {
  EXPECT_EQ(Find({{.id = 1, .name = "oat milk", .type = 32767},
                  {.id = 2, .name = "oat milk", .type = -50}}),
            2);
  EXPECT_EQ(product_.Discounts[0].Type, -32669);  // 32867 - 65536
  EXPECT_EQ(product_.Discounts[1].Type, 50);
}

TEST_F(FindForProductTest, TodayDecidesAboutExpiry) {
  EXPECT_EQ(Find({{.id = 1, .name = "oat milk", .end_date = kToday},
                  {.id = 2, .name = "oat milk", .end_date = kToday - 1},
                  {.id = 3, .name = "oat milk", .start_date = kToday + kDay},
                  {.id = 4, .name = "oat milk", .end_date = -1}}),
            2);
  EXPECT_EQ(product_.Discounts[0].Id, 1u);
  EXPECT_EQ(product_.Discounts[1].Id, 3u);
}

TEST_F(FindForProductTest, DeletedDiscountsAreSkippedAndContradictionsToo) {
  product_.StoreId = 5;
  product_.CategoryId = 6;
  EXPECT_EQ(Find({{.id = 1, .name = "oat milk", .deleted = 1},
                  {.id = 2, .name = "oat milk", .store_id = 4},
                  {.id = 3, .name = "oat milk", .category_id = 5},
                  {.id = 4, .name = "oat milk", .store_id = 5, .category_id = 6}}),
            1);
  EXPECT_EQ(product_.Discounts[0].Id, 4u);
}

TEST_F(FindForProductTest, ReadsTheFileAndNotTheFilteredList) {
  folder_.Write("discount.dat", RawDiscountFile(1, {{.name = "oat milk", .store_id = 4}}));
  const DiscountFilter filter{.store_id = 5};
  ASSERT_EQ(database_.discounts().Load(&filter), 0);
  ASSERT_EQ(database_.discounts().size(), 0u);
  EXPECT_EQ(database_.discounts().FindForProduct(product_), 1);
}

TEST_F(FindForProductTest, ANameOfBlanksMatchesEveryDiscount) {
  product_.Name.Assign("  ");
  EXPECT_EQ(Find({{.name = "Soap"}, {.name = "Bread"}}), 2);
}

TEST_F(FindForProductTest, ANameThatFillsItsFieldIsUsedToItsLastByte) {
  product_.Name.AssignWhole(std::string(49, 'x') + "y");
  EXPECT_EQ(Find({{.id = 1, .name = std::string_view("xy")}}), 0);
  const std::string full = std::string(49, 'X') + "Y";
  EXPECT_EQ(Find({{.id = 2, .name = full}}), 1);
}

TEST_F(FindForProductTest, DamageBehindTheFifthMatchStillSurfaces) {
  const RawDiscount fits{.name = "Oat milk"};
  Bytes file = RawDiscountFile(100, {fits, fits, fits, fits, fits, fits});
  file.resize(file.size() - 100);
  folder_.Write("discount.dat", file);
  EXPECT_EQ(database_.discounts().FindForProduct(product_), ERR_IO);
  file = RawDiscountFile(100, {fits, fits, fits, fits, fits, fits});
  file[12 + 400 + 5 * 404] = std::byte{0};
  folder_.Write("discount.dat", file);
  EXPECT_EQ(database_.discounts().FindForProduct(product_), ERR_FORMAT);
}

}  // namespace
}  // namespace brovanta
