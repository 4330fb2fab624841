#include "ui/shell/list_filters.h"

#include <gmock/gmock.h>

#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kReadError[] = "There was an error while reading the database.";

class ListFiltersTest : public MainScreenTest {
 protected:
  void AddGroceries() {
    AddProduct("Milk", kToday, "Corner", "Dairy");
    AddProduct("Cheese", kToday, "Fresh & Co", "Dairy");
    AddProduct("Soap", kToday, "Corner", "Household");
    AddProduct("String", kToday);
  }
};

TEST_F(ListFiltersTest, MenusListWhatTheShownRecordsUse) {
  AddGroceries();
  AddProduct("Next month", kToday + 30 * kOneDay, "Far away", "Rare");
  Open();
  EXPECT_THAT(MenuTexts("storeFilterButton"), ElementsAre("All Stores", "Corner", "Fresh && Co"));
  EXPECT_THAT(MenuTexts("categoryFilterButton"),
              ElementsAre("All Categories", "Dairy", "Household"));
  const QList<QAction*> stores = button("storeFilterButton").menu()->actions();
  EXPECT_EQ(stores[0]->data().toInt(), 10000);
  EXPECT_EQ(stores[1]->data().toInt(), 15000);
  EXPECT_EQ(stores[2]->data().toInt(), 15001);
  EXPECT_EQ(button("categoryFilterButton").menu()->actions().at(2)->data().toInt(), 25001);
}

TEST_F(ListFiltersTest, ListWithoutRecordsHasMenusWithOnlyAll) {
  Open();
  EXPECT_THAT(MenuTexts("storeFilterButton"), ElementsAre("All Stores"));
  EXPECT_THAT(MenuTexts("categoryFilterButton"), ElementsAre("All Categories"));
}

TEST_F(ListFiltersTest, PurchasesAndCouponsListTheirOwnStores) {
  AddProduct("Milk", kToday, "Corner");
  AddPurchase("Eggs", static_cast<DateStamp>(kNow), "Farm");
  AddCoupon("Half price", 0, 0, "Mall", "Toys");
  Open();
  ChooseTab(1);
  EXPECT_THAT(MenuTexts("storeFilterButton"), ElementsAre("All Stores", "Mall"));
  EXPECT_THAT(MenuTexts("categoryFilterButton"), ElementsAre("All Categories", "Toys"));
  ChooseTab(2);
  EXPECT_THAT(MenuTexts("storeFilterButton"), ElementsAre("All Stores", "Farm"));
}

TEST_F(ListFiltersTest, ChosenStoreNarrowsTheListAndNamesTheButton) {
  AddGroceries();
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  EXPECT_EQ(screen().filter().store_id, 5000U);
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner", "Soap@Corner"));
  ChooseFilter("storeFilterButton", "All Stores");
  EXPECT_EQ(screen().filter().store_id, 0U);
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_EQ(Rows().size(), 5U);
}

TEST_F(ListFiltersTest, StoreAndCategoryTogetherShowWhatMatchesBoth) {
  AddGroceries();
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  ChooseFilter("categoryFilterButton", "Dairy");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner"));
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
  EXPECT_EQ(Text("categoryFilterButton"), "Dairy");
}

TEST_F(ListFiltersTest, MenusStayThoseOfTheUnfilteredListAfterAChoice) {
  AddGroceries();
  Open();
  ChooseFilter("storeFilterButton", "Fresh && Co");
  EXPECT_EQ(Text("storeFilterButton"), "Fresh & Co");
  EXPECT_EQ(MenuTexts("storeFilterButton").size(), 3U);
  EXPECT_EQ(MenuTexts("categoryFilterButton").size(), 3U);
  EXPECT_EQ(screen().RefreshList(false), 0);
  EXPECT_EQ(MenuTexts("storeFilterButton").size(), 3U);
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(ListFiltersTest, CouponsAreFilteredToo) {
  AddCoupon("Everywhere", 0, 0);
  AddCoupon("Corner only", 0, 0, "Corner");
  AddCoupon("Mall only", 0, 0, "Mall");
  Open();
  ChooseTab(1);
  ChooseFilter("storeFilterButton", "Mall");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Everywhere", "Mall only@Mall"));
}

TEST_F(ListFiltersTest, NameOf14CharactersIsShownWholeAndOneOf15Shortened) {
  AddProduct("Milk", kToday, "ABCDEFGHIJKLMN", "abcdefghijklmno");
  Open();
  ChooseFilter("storeFilterButton", "ABCDEFGHIJKLMN");
  EXPECT_EQ(Text("storeFilterButton"), "ABCDEFGHIJKLMN");
  ChooseFilter("categoryFilterButton", "abcdefghijklmno");
  EXPECT_EQ(Text("categoryFilterButton"), "abcdefghijk...");
}

TEST_F(ListFiltersTest, TabViewAndDateBringBothBackToAll) {
  AddGroceries();
  Open();
  const std::vector<std::function<void()>> resets{
      [this] { ChooseView(kDailyView); },
      [this] {
        QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
        Press(Qt::Key_Return);
      },
      [this] {
        ChooseTab(3);
        EXPECT_EQ(Text("storeFilterButton"), "All Stores");
        ChooseTab(0);
      }};
  for (const auto& reset : resets) {
    ChooseFilter("storeFilterButton", "Corner");
    ChooseFilter("categoryFilterButton", "Dairy");
    EXPECT_EQ(Rows().size(), 2U);
    reset();
    EXPECT_EQ(screen().filter().store_id, 0U);
    EXPECT_EQ(screen().filter().category_id, 0U);
    EXPECT_EQ(Text("storeFilterButton"), "All Stores");
    EXPECT_EQ(Text("categoryFilterButton"), "All Categories");
    EXPECT_EQ(Rows().size(), 5U);
  }
}

TEST_F(ListFiltersTest, DamagedFileShowsTheErrorAndKeepsTheTextAlthoughTheIdIsSet) {
  AddGroceries();
  Open();
  folder_.WriteText("product.dat", "damaged");
  const auto store_box = AnswerNext(QMessageBox::Ok);
  ChooseFilter("storeFilterButton", "Corner");
  EXPECT_EQ(store_box->text, kReadError);
  EXPECT_EQ(store_box->title, "Brovanta");
  EXPECT_EQ(store_box->buttons, QMessageBox::Ok);
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_EQ(screen().filter().store_id, 5000U);
  EXPECT_THAT(Rows(), IsEmpty());
  const auto category_box = AnswerNext(QMessageBox::Ok);
  ChooseFilter("categoryFilterButton", "All Categories");
  EXPECT_EQ(category_box->text, kReadError);
}

TEST_F(ListFiltersTest, MissingFileShowsTheErrorOnAChoice) {
  Open();
  const auto box = AnswerNext(QMessageBox::Ok);
  ChooseFilter("storeFilterButton", "All Stores");
  EXPECT_EQ(box->text, kReadError);
}

TEST_F(ListFiltersTest, DamagedCouponsShowTheError) {
  AddCoupon("Half price", 0, 0, "Mall");
  Open();
  ChooseTab(1);
  folder_.WriteText("discount.dat", "damaged");
  const auto box = AnswerNext(QMessageBox::Ok);
  ChooseFilter("storeFilterButton", "Mall");
  EXPECT_EQ(box->text, kReadError);
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
}

TEST_F(ListFiltersTest, ChoiceOnTheWebSearchListShowsTheError) {
  AddGroceries();
  Open();
  ChooseTab(3);
  const auto box = AnswerNext(QMessageBox::Ok);
  ChooseInMenu(*button("storeFilterButton").menu(), QStringLiteral("Corner"));
  EXPECT_EQ(box->text, kReadError);
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
}

}  // namespace
}  // namespace brovanta::test
