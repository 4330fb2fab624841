#include "data/list/list_rows.h"

#include <gmock/gmock.h>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::ElementsAre;
using Kind = ListRow::Kind;

class ListRowsTest : public testing::Test {
 protected:
  static std::vector<std::string> FirstCells(const std::vector<ListRow>& rows, Kind kind) {
    std::vector<std::string> cells;
    for (const ListRow& row : rows) {
      if (row.kind == kind) cells.push_back(row.cells[0]);
    }
    return cells;
  }

 private:
  AtNoon noon_;
};

TEST_F(ListRowsTest, GroupsHaveHeadingsAndSeveralHaveSums) {
  const std::vector<ListRow> rows = RowsOf(Sample());
  EXPECT_THAT(FirstCells(rows, Kind::kStore), ElementsAre("Björn & Co <Hardware>", "Corner Shop"));
  EXPECT_THAT(FirstCells(rows, Kind::kCategory), ElementsAre("No category", "Dairy", "Household"));
  EXPECT_THAT(FirstCells(rows, Kind::kSum),
              ElementsAre("Björn & Co <Hardware>, sum", "Dairy, sum", "Corner Shop, sum"));
  EXPECT_THAT(FirstCells(rows, Kind::kProduct),
              ElementsAre("Lamp", "Nails", "Käse", "Milk", "Soap \"Rose\""));
}

TEST_F(ListRowsTest, AProductHasItsNumbersInTheirColumns) {
  for (const ListRow& row : RowsOf(Sample())) {
    if (row.kind == Kind::kProduct && row.cells[0] == "Milk") {
      EXPECT_THAT(row.cells, ElementsAre("Milk", "Nov 21, 2026", "2 bottle", "1.50", "3.00",
                                         "-0.50", "0.18", "2.68"));
    }
    if (row.kind == Kind::kProduct && row.cells[0] == "Nails") {
      EXPECT_THAT(row.cells, ElementsAre("Nails", "Unknown date", "1", "", "", "", "", ""));
    }
  }
}

TEST_F(ListRowsTest, TotalsAreWithAndWithoutCoupons) {
  std::vector<ListRow> rows = RowsOf(Sample());
  EXPECT_EQ(rows.back().cells[0], "1 product without a price is in no sum.");
  // 20.00 + 3.00 + 4.17 (0.35 x 11.90 = 4.165) + 2.97; tax 3.80 and 0.21, or 0.18 of 2.50.
  const std::size_t last = rows.size() - 2;
  EXPECT_THAT(rows[last - 2].cells,
              ElementsAre("Without coupons", "", "", "", "30.14", "", "4.01", "34.15"));
  EXPECT_THAT(rows[last - 1].cells,
              ElementsAre("With coupons", "", "", "", "30.14", "-0.50", "3.98", "33.62"));
  EXPECT_THAT(rows[last].cells,
              ElementsAre("After mail-in rebates", "", "", "", "", "-4.00", "", "29.62"));
}

TEST_F(ListRowsTest, OneStoreWithOneCategoryHasNoSumBesideTheTotals) {
  ShoppingData data;
  data.products = {Product("Milk", 1, 1)};
  const std::vector<ListRow> rows = RowsOf(BuildShoppingList(data, Today()).value());
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(rows[0].cells[0], "No store");
  EXPECT_EQ(rows[1].cells[0], "No category");
  EXPECT_EQ(rows[3].cells[0], "Without coupons");
  EXPECT_EQ(rows[4].cells[0], "With coupons");
}

TEST_F(ListRowsTest, AnEmptyListSaysSo) {
  const std::vector<ListRow> rows = RowsOf(BuildShoppingList({}, Today()).value());
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].cells[0], "Nothing to buy.");
}

}  // namespace
}  // namespace brovanta::data_tool
