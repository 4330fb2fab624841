// The coupon row inside the product dialog: finding the coupons that fit.
#include <QTest>

#include "tests/ui/product/product_coupons_fixture.h"

namespace brovanta {
namespace {

using test::RawDiscount;

const char* const kFound = "\n\nPlease review and validate each discount applied.";

class ProductCouponsSearchTest : public test::ProductCouponsFixture {};

TEST_F(ProductCouponsSearchTest, TheSearchReplacesAllFiveSlots) {
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2},
           {.id = 6, .source = 2, .name = "x", .product = "Oat MILK", .type = 3},
           {.id = 7, .source = 1, .name = "Soap", .type = 1}});
  EXPECT_EQ(Edit({{{7, 1, 1}, {7, 1, 1}, {7, 1, 1}, {7, 1, 1}, {7, 1, 1}}},
                 [&] {
                   Press("findDiscountsButton");
                   EXPECT_EQ(Picture(1), 150);
                   EXPECT_EQ(Picture(2), 150);
                   for (const int slot : {3, 4, 5}) EXPECT_EQ(Picture(slot), 146) << slot;
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Messages(),
            std::string("Brovanta found 2 discounts for the current product.") + kFound);
  EXPECT_EQ(Links(), "5/0/102 6/0/103 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsSearchTest, ASearchWithoutAResultLeavesTheLinks) {
  Coupons({{.id = 7, .source = 1, .name = "Soap", .type = 1}});
  Edit({{{7, 1, 1}}}, [&] {
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Messages(), "Brovanta could not find any discounts for the current product.");
  EXPECT_EQ(Links(), "7/1/1 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsSearchTest, ASearchThatFailsOnTheWayLeavesTheLinks) {
  test::Bytes bytes = test::RawDiscountFile(9, {{.id = 7, .source = 1, .name = "Milk week"}});
  bytes.resize(bytes.size() - 4);  // the match is read before the error
  folder_.Write("discount.dat", bytes);
  Edit({{{9, 2, 1}}}, [&] {
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Messages(), "Brovanta could not find any discounts for the current product.");
  EXPECT_EQ(Links(), "9/2/1 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsSearchTest, TheSearchChecksTheFormInItsOrder) {
  const QString longer(51, QLatin1Char('x'));
  Add([&] {
    Type("unitTypeBox", longer);
    Type("storeBox", longer);
    Type("categoryBox", longer);
    Press("findDiscountsButton");
    Type("productNameEdit", longer);  // no message for this one
    Press("findDiscountsButton");
    Type("unitTypeBox", QString());
    Press("findDiscountsButton");
    Type("storeBox", QString());
    Press("findDiscountsButton");
    Type("categoryBox", QString());
    Press("findDiscountsButton");
    EXPECT_EQ(Line("productNameEdit")->text(), longer);
  });
  EXPECT_EQ(Messages(),
            "The product name can not be empty.\n"
            "The unit type has more than 50 characters.\n"
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.\n"
            "Brovanta could not find any discounts for the current product.");
}

TEST_F(ProductCouponsSearchTest, TheSearchMakesNoNamesAndSavesNothing) {
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Type("storeBox", QStringLiteral("Brand new"));
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(1), 150);
  });
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
}

TEST_F(ProductCouponsSearchTest, TheSearchGoesByStoreAndCategory) {
  folder_.Write("store.lst", test::RawListFile({test::RawItem(7, "Corner")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Coupons({{.id = 5, .source = 1, .name = "Milk week", .type = 2, .store_id = 8}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Type("storeBox", QStringLiteral("CORNER"));
    Press("findDiscountsButton");
    Type("storeBox", QString());
    Press("findDiscountsButton");
  });
  EXPECT_EQ(Messages(),
            std::string("Brovanta could not find any discounts for the current product.\n"
                        "Brovanta found 1 discounts for the current product.") +
                kFound);
}

TEST_F(ProductCouponsSearchTest, ANameOfBlanksMatchesEveryDiscount) {
  Coupons({{.id = 5, .source = 1, .name = "Tea"}, {.id = 6, .source = 1, .name = "Soap"}});
  Add([&] {
    Type("productNameEdit", QStringLiteral("  "));
    Press("findDiscountsButton");
    EXPECT_EQ(Picture(2), 150);
  });
  EXPECT_EQ(Messages(),
            std::string("Brovanta found 2 discounts for the current product.") + kFound);
}

}  // namespace
}  // namespace brovanta
