#include "ui/shell/tree_fillers.h"

#include <gmock/gmock.h>

#include "tests/search/raw_searches.h"
#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TreeFillersTest : public MainScreenTest {
 protected:
  void OpenMonthly(int tab) {
    Open();
    ChooseView(kMonthlyView);
    ChooseTab(tab);
  }

  const RecordRow& Row(std::size_t heading, std::size_t row) {
    return tree().rows().Under(heading)[row];
  }
};

TEST_F(TreeFillersTest, ProductsStandUnderTheirDueDatesLatestFirst) {
  AddProduct("Bread", kToday);
  AddProduct("Candles", kToday + 3 * kOneDay);
  AddProduct("Milk", kToday, "Corner Shop");
  OpenMonthly(0);
  EXPECT_THAT(Rows(), ElementsAre("[Tuesday 11/24/2026]", "Candles", "[Saturday 11/21/2026]",
                                  "Bread", "Milk@Corner Shop"));
}

TEST_F(TreeFillersTest, RowCarriesWhatCommandsNeed) {
  AddProduct("Milk", kToday);
  const std::int32_t id = AddRecurring("Coffee", kToday, kWeekly, 2, 6);
  AddProduct("R\xF6st", kToday, "M\xFCller");
  Open();
  const TreeItemInfo& info = Row(0, 1).info();
  EXPECT_EQ(info.id, id);
  EXPECT_EQ(info.reserved, 0);
  EXPECT_EQ(info.purchaseType, kWeekly);
  EXPECT_EQ(info.name.toStdString(), "Coffee");
  EXPECT_EQ(info.storeName.toStdString(), "");
  EXPECT_EQ(Row(0, 2).info().name, QStringLiteral(u"R\u00F6st"));
  EXPECT_EQ(Row(0, 2).info().storeName, QStringLiteral(u"M\u00FCller"));
  EXPECT_EQ(Row(0, 1).AccessibleText().toStdString(), "Coffee, due today, every 2 weeks");
}

TEST_F(TreeFillersTest, OverdueProductsPassInAnyPeriodAndSayHowLong) {
  AddProduct("Soap", kToday - 2 * kOneDay);
  Open();
  EXPECT_THAT(Rows(), ElementsAre("[Thursday 11/19/2026]", "Soap"));
  EXPECT_EQ(Row(0, 0).Words().text.toStdString(), "2 days overdue");
  EXPECT_TRUE(Row(0, 0).Words().overdue);
}

TEST_F(TreeFillersTest, ProductsWithoutAScheduleStandUnderUnknownDate) {
  AddRecurring("Someday", 0, kUnscheduled, 0, 0);
  AddProduct("Milk", kToday);
  AddRecurring("Some other day", 0, kUnscheduled, 0, 0);
  Open();
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk", "[Unknown date]", "Someday",
                                  "Some other day"));
  EXPECT_EQ(tree().rows().Heading(1).Text().toStdString(), "Unknown date" + std::string(22, ' '));
  EXPECT_EQ(tree().rows().Heading(0).Text().toStdString(),
            "Saturday 11/21/2026" + std::string(22, ' '));
  EXPECT_EQ(tree().RecordIndex(0, 0).data().toString().toStdString(), std::string(46, ' '));
}

TEST_F(TreeFillersTest, PurchasesAreGroupedByMomentInTheOrderOfTheFile) {
  const auto noon = static_cast<DateStamp>(kNow);
  AddPurchase("Eggs", noon - kOneDay);
  AddPurchase("Milk", noon, "Corner");
  AddPurchase("Bread", noon + 60);
  AddPurchase("Tea", noon - kOneDay);
  OpenMonthly(2);
  EXPECT_THAT(Rows(),
              ElementsAre("[Friday 11/20/2026]", "Eggs", "[Saturday 11/21/2026]", "Milk@Corner",
                          "[Saturday 11/21/2026]", "Bread", "[Friday 11/20/2026]", "Tea"));
  EXPECT_EQ(Row(2, 0).Words().text.toStdString(), "bought at 12:01");
  EXPECT_FALSE(Row(2, 0).recurring());
}

TEST_F(TreeFillersTest, CouponsAreGroupedByTheirStampAndCarryTheirSource) {
  AddCoupon("Half price", 0, 0, "Corner", "", 2);
  clock_.Set(kNow - kOneDay);
  AddCoupon("Old one", 0, kToday + 9 * kOneDay);
  clock_.Set(kNow);
  OpenMonthly(1);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Half price@Corner",
                                  "[Friday 11/20/2026]", "Old one"));
  EXPECT_EQ(Row(0, 0).info().purchaseType, 2);
  EXPECT_EQ(Row(0, 0).Words().text.toStdString(), "1.50 off");
  EXPECT_EQ(Row(1, 0).Words().text.toStdString(), "1.50 off, until 11/30/2026");
}

TEST_F(TreeFillersTest, CouponsAreFilteredByPeriodStartAgainstTheirEndAndEndAgainstTheirStart) {
  AddCoupon("Ended yesterday", 0, kToday - kOneDay);
  AddCoupon("Ends today", 0, kToday);
  AddCoupon("Started before the end", kToday, 0);
  AddCoupon("Starts tomorrow", kToday + kOneDay, 0);
  AddCoupon("Always", 0, 0);
  Open();
  ChooseTab(1);
  EXPECT_THAT(Rows(),
              ElementsAre("[Saturday 11/21/2026]", "Ends today", "Starts tomorrow", "Always"));
}

TEST_F(TreeFillersTest, WebSearchesOfThePeriodStandUnderTheirDaysInTheOrderOfTheIndex) {
  folder_.Write("websearch.dat",
                RawIndex(9, {{.number = 2, .date = kToday, .words = "soap"},
                             {.number = 3, .date = kToday - kOneDay, .words = "m\xFCsli"},
                             {.number = 4, .date = kToday - kOneDay, .words = "gone", .deleted = 1},
                             {.number = 5, .date = kToday, .words = "<b>tea</b>"},
                             {.number = 6, .date = kToday - 40 * kOneDay, .words = "old"}}));
  OpenMonthly(3);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap", "[Friday 11/20/2026]",
                                  "m\u00FCsli", "[Saturday 11/21/2026]", "<b>tea</b>"));
  EXPECT_EQ(Row(1, 0).info().id, 3);
  EXPECT_EQ(Row(1, 0).info().purchaseType, 0);
  EXPECT_EQ(tree().rows().Heading(0).Text().toStdString(),
            "Saturday 11/21/2026" + std::string(22, ' '));
  EXPECT_EQ(Row(1, 0).Words().text, QString());
  ChooseView(kDailyView);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap", "<b>tea</b>"));
}

// The period of a screen lets no such search through; the rows are made all the same.
TEST_F(TreeFillersTest, WebSearchesOfAnUnknownDateHaveTheirOwnHeadings) {
  Open();
  for (const auto& [date, blanks] : {std::pair{DateStamp{0}, 60}, std::pair{DateStamp{-1}, 62}}) {
    folder_.Write(
        "websearch.dat",
        RawIndex(9, {{.number = 2, .date = static_cast<std::uint32_t>(date), .words = "soap"}}));
    MainState state{.options = options_, .database = nullptr, .searches = nullptr, .filter = {}};
    state.searches = std::make_unique<SearchManager>();
    ASSERT_EQ(state.searches->SetSearchFolder(folder_.path()), 0);
    RecordTree rows;
    ASSERT_EQ(FillWebSearches(rows, state), 0);
    ASSERT_EQ(rows.rows().HeadingCount(), 1U) << blanks;
    EXPECT_EQ(rows.HeadingIndex(0).data().toString().toStdString(),
              "Unknown date" + std::string(static_cast<std::size_t>(blanks), ' '));
    ASSERT_EQ(rows.rows().Under(0).size(), 1U);
    EXPECT_EQ(rows.RecordIndex(0, 0).data().toString().toStdString(), std::string(46, ' '));
    const TreeItemInfo& info = rows.rows().Under(0)[0].info();
    EXPECT_EQ(info.reserved, 0);
    EXPECT_EQ(info.storeName, QString());
  }
}

TEST_F(TreeFillersTest, AnIndexThatCannotBeReadLeavesTheListEmptyAndSaysSo) {
  Bytes index = RawIndex(9, {{.number = 2, .date = kToday, .words = "soap"}});
  index.back() = std::byte{1};
  folder_.Write("websearch.dat", index);
  Open();
  ChooseTab(3);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(screen().RefreshList(true), -14);
  EXPECT_EQ(tree().empty_text().toStdString(),
            "This list could not be read\n"
            "The program brovanta-data checks files and brings copies back.");
  EXPECT_EQ(folder_.Read("websearch.dat"), index);
}

TEST_F(TreeFillersTest, StoreThatTheListDoesNotKnowHasNoName) {
  AddProduct("Milk", kToday, "Corner");
  folder_.Write("store.lst", Hex("81 38 01 00 83 38 01 00"));
  Open();
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
}

TEST_F(TreeFillersTest, EmptyListNamesWhatNarrowsIt) {
  MainState state{.options = options_,
                  .database = std::make_unique<ShoppingDatabase>(),
                  .searches = nullptr,
                  .filter = {}};
  ASSERT_EQ(state.database->Open(folder_.path()), 0);
  const auto words = [&](int code) {
    return EmptyListWords(state, kDailyView, code).toStdString();
  };
  EXPECT_EQ(words(0),
            "Nothing to buy on this day\n"
            "Add a product with +, or choose another time above.");
  EXPECT_EQ(words(-11),
            "Nothing to buy on this day\n"
            "Add a product with +, or choose another time above.");  // the file is not there yet
  state.filter.store_id = 7;
  EXPECT_EQ(words(0),
            "Nothing of this choice on this day\n"
            "All Stores and All Categories show everything again.");
  state.filter.find_text = "m\xFCsli";
  EXPECT_EQ(words(0),
            "Nothing found for \"m\u00FCsli\" on this day\n"
            "Find and Clear, All Stores and All Categories together show everything again.");
  state.filter.store_id = 0;
  EXPECT_EQ(words(0),
            "Nothing found for \"m\u00FCsli\" on this day\n"
            "Find and Clear show everything again.");
  folder_.WriteText("product.dat", "damaged");
  EXPECT_EQ(words(-14),
            "This list could not be read\n"
            "The program brovanta-data checks files and brings copies back.");
}

}  // namespace
}  // namespace brovanta::test
