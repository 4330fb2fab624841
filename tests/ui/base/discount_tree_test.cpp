#include "ui/base/discount_tree.h"

#include <gtest/gtest.h>

#include "db/error_codes.h"
#include "tests/db/raw_files.h"
#include "tests/support/zone_guard.h"
#include "tests/ui/base/shown_rows.h"

namespace brovanta {
namespace {

constexpr std::int32_t kDay = 20778 * 86400 + 3600;  // Saturday 2026-11-21

class DiscountTreeTest : public testing::Test {
 protected:
  DiscountTreeTest() {
    folder_.Write("store.lst", test::RawListFile({test::RawItem(7, "Corner")}));
    folder_.Write("category.lst", test::RawListFile({}));
    folder_.Write("unit.lst", test::RawListFile({}));
    EXPECT_EQ(database_.Open(folder_.path()), 0);
  }
  void Store(std::initializer_list<test::RawDiscount> discounts) const {
    folder_.Write("discount.dat", test::RawDiscountFile(100, discounts));
  }
  std::string Rows() const {
    const auto words = [](const TreeItemInfo& info) {
      return QStringLiteral("%1/%2 %3@%4")
          .arg(info.id)
          .arg(info.purchaseType)
          .arg(info.name, info.storeName);
    };
    return test::ShownRows(tree_, words).join(QLatin1Char('\n')).toStdString();
  }

  test::ZoneGuard zone_{"UTC"};
  test::TempFolder folder_;
  ShoppingDatabase database_;
  RecordTree tree_;
};

TEST_F(DiscountTreeTest, ShowsTheDiscountsUnderTheDaysOfTheirStamps) {
  Store({{.id = 2, .source = 0, .name = "Soap", .stamp = kDay, .store_id = 7},
         {.id = 2, .source = 1, .name = "Tea", .stamp = kDay, .store_id = 8},
         {.id = 3, .source = 2, .name = "Old"}});
  EXPECT_EQ(FillDiscountTree(tree_, database_, {}), 0);
  EXPECT_EQ(Rows(), "[Saturday 11/21/2026]\n2/0 Soap@Corner\n2/1 Tea@\n[Unknown date]\n3/2 Old@");
}

TEST_F(DiscountTreeTest, TheFilterIsTheDatabases) {
  Store({{.id = 2, .name = "Soap", .store_id = 7}, {.id = 3, .name = "Tea", .store_id = 8}});
  DiscountFilter filter;
  filter.store_id = 7;
  EXPECT_EQ(FillDiscountTree(tree_, database_, filter), 0);
  EXPECT_EQ(Rows(), "[Unknown date]\n2/0 Soap@Corner");
  EXPECT_EQ(database_.discounts().filter().store_id, 7U);
}

TEST_F(DiscountTreeTest, AScreenHasItsOwnLook) {
  Store({{.id = 2, .name = "Soap", .store_id = 7}});
  const DiscountTreeLook look{
      .blanks = {.unknown_date = 60, .without_change = 60},
      .coupon_name = [](std::string_view name) { return std::string(name.substr(0, 2)); },
      .store_name = [](const QString& name) { return name.left(3); }};
  EXPECT_EQ(FillDiscountTree(tree_, database_, {}, look), 0);
  EXPECT_EQ(Rows(), "[Unknown date]\n2/0 So@Cor");
  EXPECT_EQ(tree_.rows().Under(0)[0].AccessibleText().toStdString().substr(0, 14),
            "Soap, Corner, ");
  EXPECT_EQ(tree_.rows().Heading(0).Text(),
            QStringLiteral("Unknown date") + QString(60, QLatin1Char(' ')));
}

TEST_F(DiscountTreeTest, AFailedQueryEmptiesTheTreeAndGivesItsCode) {
  Store({{.id = 2}});
  EXPECT_EQ(FillDiscountTree(tree_, database_, {}), 0);
  folder_.Write("discount.dat", test::Hex("00 00 00 00"));
  EXPECT_EQ(FillDiscountTree(tree_, database_, {}), ERR_FORMAT);
  EXPECT_TRUE(tree_.rows().empty());
}

}  // namespace
}  // namespace brovanta
