#include "ui/shell/main_dialog.h"

#include <gmock/gmock.h>

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QTimer>

#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class MainDialogTest : public MainScreenTest {
 protected:
  int ControlId(const char* name) { return Find<QWidget>(name).property("controlId").toInt(); }

  /// Opens the calendar and moves this many days on with the arrow keys.
  void PickDate(int days) {
    QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
    for (int i = 0; i < std::abs(days); ++i) Press(days < 0 ? Qt::Key_Left : Qt::Key_Right);
    Press(Qt::Key_Return);
  }
};

TEST_F(MainDialogTest, StartsInTheDailyViewOfTodaysProducts) {
  AddProduct("Milk", kToday);
  AddProduct("Bread", kToday + kOneDay);
  Open();
  EXPECT_EQ(screen().view_mode(), 3001);
  EXPECT_EQ(screen().list_id(), 3004);
  EXPECT_EQ(Find<QTabBar>("tabBar").currentIndex(), 0);
  EXPECT_EQ(screen().filter().kind, 1);
  EXPECT_EQ(screen().filter().period_start, kMidnight);
  EXPECT_EQ(screen().filter().period_end, kMidnight + kOneDay - 1);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 21, 2026");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
}

TEST_F(MainDialogTest, ControlsHaveTheirNumbers) {
  Open();
  EXPECT_EQ(ControlId("tabBar"), 1025);
  EXPECT_EQ(ControlId("viewModeButton"), 1034);
  EXPECT_EQ(ControlId("periodHeadingButton"), 1003);
  EXPECT_EQ(ControlId("updateButton"), 1004);
  EXPECT_EQ(ControlId("storeFilterButton"), 1002);
  EXPECT_EQ(ControlId("categoryFilterButton"), 1001);
  EXPECT_EQ(ControlId("recordTree"), 1000);
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  EXPECT_EQ(ControlId("calendar"), 1040);
}

TEST_F(MainDialogTest, ButtonsStartWithTheirPicturesAndTexts) {
  Open();
  EXPECT_EQ(button("viewModeButton").first_picture(), 136);
  EXPECT_EQ(button("updateButton").first_picture(), 156);
  EXPECT_EQ(button("storeFilterButton").first_picture(), 134);
  EXPECT_EQ(button("categoryFilterButton").first_picture(), 134);
  EXPECT_EQ(Text("updateButton"), "Update");
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_EQ(Text("categoryFilterButton"), "All Categories");
  EXPECT_EQ(screen().findChild<QCalendarWidget*>(), nullptr);  // made when it is opened
}

TEST_F(MainDialogTest, TheProgramsIconFollowsTheFirstPicture) {
  QApplication::setWindowIcon(QIcon());
  Open();
  EXPECT_TRUE(screen().windowIcon().isNull());
  screen().grab();
  QCoreApplication::processEvents();
  EXPECT_FALSE(screen().windowIcon().isNull());
  EXPECT_FALSE(QApplication::windowIcon().isNull());
}

TEST_F(MainDialogTest, FourTabsHavePicturesOnlyAndNamesForScreenReaders) {
  Open();
  auto& tabs = Find<QTabBar>("tabBar");
  ASSERT_EQ(tabs.count(), 4);
  std::vector<std::string> names;
  for (int i = 0; i < 4; ++i) {
    EXPECT_TRUE(tabs.tabText(i).isEmpty());
    EXPECT_FALSE(tabs.tabIcon(i).isNull());
    EXPECT_EQ(tabs.tabToolTip(i), tabs.accessibleTabName(i));
    names.push_back(tabs.accessibleTabName(i).toStdString());
  }
  EXPECT_THAT(names, ElementsAre("Products", "Coupons", "Purchases", "Web searches"));
}

TEST_F(MainDialogTest, EachTabShowsItsListAndKind) {
  AddProduct("Milk", kToday);
  AddCoupon("Half price", 0, 0);
  AddPurchase("Eggs", static_cast<DateStamp>(kNow));
  Open();
  ChooseTab(1);
  EXPECT_EQ(screen().list_id(), 3005);
  EXPECT_EQ(screen().filter().kind, 0);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Half price"));
  ChooseTab(2);
  EXPECT_EQ(screen().list_id(), 3006);
  EXPECT_EQ(screen().filter().kind, 2);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Eggs"));
  ChooseTab(3);
  EXPECT_EQ(screen().list_id(), 3007);
  EXPECT_EQ(screen().filter().kind, 0);
  EXPECT_THAT(Rows(), IsEmpty());
  ChooseTab(0);
  EXPECT_EQ(screen().list_id(), 3004);
  EXPECT_EQ(screen().filter().kind, 1);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
}

TEST_F(MainDialogTest, WebSearchTabDisablesFiltersAndFind) {
  Open();
  ChooseTab(3);
  EXPECT_FALSE(button("storeFilterButton").isEnabled());
  EXPECT_FALSE(button("categoryFilterButton").isEnabled());
  EXPECT_FALSE(CommandEnabled(kToolFind));
  EXPECT_FALSE(CommandEnabled(kMenuFind));
  EXPECT_TRUE(CommandEnabled(kToolAdd));
  EXPECT_TRUE(CommandEnabled(kMenuUpdate));
  ChooseTab(2);
  EXPECT_TRUE(button("storeFilterButton").isEnabled());
  EXPECT_TRUE(button("categoryFilterButton").isEnabled());
  EXPECT_TRUE(CommandEnabled(kToolFind));
  EXPECT_TRUE(CommandEnabled(kMenuFind));
}

TEST_F(MainDialogTest, ControlAndADigitChooseATab) {
  Open();
  Press(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(screen().list_id(), 3006);
  Press(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(screen().list_id(), 3004);
}

TEST_F(MainDialogTest, ViewModesChangePeriodHeadingAndList) {
  AddProduct("Milk", kToday);
  AddProduct("Tuesday bread", kToday - 4 * kOneDay);
  AddProduct("Last of November", kToday + 9 * kOneDay);
  Open();
  ChooseView(kWeeklyView);
  EXPECT_EQ(screen().view_mode(), 3002);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 15 - 21, 2026");
  EXPECT_EQ(screen().filter().period_start, kMidnight - 6 * kOneDay);
  EXPECT_EQ(screen().filter().period_end, kMidnight + kOneDay - 1);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk", "[Tuesday 11/17/2026]",
                                  "Tuesday bread"));
  ChooseView(kMonthlyView);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 2026");
  EXPECT_EQ(screen().filter().period_end, kMidnight + 10 * kOneDay - 1);
  EXPECT_EQ(Rows().at(1), "Last of November");
  ChooseView(kDailyView);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 21, 2026");
}

TEST_F(MainDialogTest, CalendarDateChangesThePeriod) {
  AddProduct("Milk", kToday);
  AddProduct("Tomorrow", kToday + kOneDay);
  Open();
  PickDate(1);
  EXPECT_FALSE(Find<QCalendarWidget>("calendar").isVisible());
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
  EXPECT_THAT(Rows(),
              ElementsAre("[Sunday 11/22/2026]", "Tomorrow", "[Saturday 11/21/2026]", "Milk"));
}

TEST_F(MainDialogTest, EscapeInTheCalendarChangesNothingAndKeepsTheScreenOpen) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  ASSERT_TRUE(Find<QCalendarWidget>("calendar").isVisible());
  Press(Qt::Key_Right);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Find<QCalendarWidget>("calendar").isVisible());
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 21, 2026");
  EXPECT_TRUE(screen().isVisible());
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainDialogTest, WeekAcrossNewYearShowsDecemberWithTheJanuaryYear) {
  clock_.Set(kNow + 40 * kOneDay);  // Thursday 2026-12-31
  Open();
  ChooseView(kWeeklyView);
  EXPECT_EQ(Text("periodHeadingButton"), "Dec 27 - 02, 2027");
}

TEST_F(MainDialogTest, FebruaryOfALeapYearEndsOnThe29th) {
  clock_.Set(1834833600);  // 2028-02-22 12:00:00 UTC
  Open();
  ChooseView(kMonthlyView);
  EXPECT_EQ(Text("periodHeadingButton"), "Feb 2028");
  EXPECT_EQ(screen().filter().period_end, 1835481599);  // 2028-02-29 23:59:59
}

TEST_F(MainDialogTest, NothingIsSelectedAtTheStartAndNoRecordCommandEnabled) {
  AddProduct("Milk", kToday);
  Open();
  EXPECT_FALSE(tree().currentIndex().isValid());
  EXPECT_THAT(EnabledCommands(), IsEmpty());
  EXPECT_TRUE(CommandEnabled(kToolAdd));
  EXPECT_TRUE(CommandEnabled(kMenuAdd));
  EXPECT_TRUE(CommandEnabled(kToolFind));
  EXPECT_TRUE(CommandEnabled(kMenuOptions));
}

TEST_F(MainDialogTest, ProductRowEnablesEditDeleteAndPurchase) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  EXPECT_THAT(EnabledCommands(), ElementsAre(kToolEdit, kToolDelete, kToolPurchase, kMenuEdit,
                                             kMenuDelete, kMenuPurchase));
}

TEST_F(MainDialogTest, CouponAndPurchaseRowsEnableEditAndDeleteOnly) {
  AddCoupon("Half price", 0, 0);
  AddPurchase("Eggs", static_cast<DateStamp>(kNow));
  Open();
  ChooseTab(1);
  Select("Half price");
  EXPECT_THAT(EnabledCommands(), ElementsAre(kToolEdit, kToolDelete, kMenuEdit, kMenuDelete));
  ChooseTab(2);
  EXPECT_THAT(EnabledCommands(), IsEmpty());
  Select("Eggs");
  EXPECT_THAT(EnabledCommands(), ElementsAre(kToolEdit, kToolDelete, kMenuEdit, kMenuDelete));
}

TEST_F(MainDialogTest, SelectingAHeadingGreysTheRecordCommands) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  SelectHeading(0);
  EXPECT_THAT(EnabledCommands(), IsEmpty());
}

TEST_F(MainDialogTest, EveryRebuildLosesTheSelectionAndGreysTheRecordCommands) {
  AddProduct("Milk", kToday, "Corner");
  Open();
  const std::vector<std::function<void()>> rebuilds{
      [this] { ChooseView(kDailyView); },
      [this] { PickDate(0); },
      [this] { ChooseFilter("storeFilterButton", "Corner"); },
      [this] { ChooseTab(3); },
      [this] { ChooseTab(0); },
      [this] { EXPECT_EQ(screen().RefreshList(false), 0); }};
  for (const auto& rebuild : rebuilds) {
    if (screen().list_id() == kProductsList) Select("Milk");
    rebuild();
    EXPECT_THAT(EnabledCommands(), IsEmpty());
    EXPECT_FALSE(tree().CaretInfo());
  }
}

TEST_F(MainDialogTest, EscapeAndEnterNeverCloseTheScreen) {
  Open();
  for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    Press(key);
    QTest::keyClick(&screen(), static_cast<Qt::Key>(key));
    EXPECT_TRUE(screen().isVisible());
    EXPECT_NE(screen().database(), nullptr);
  }
}

TEST_F(MainDialogTest, ClosingEndsTheLoopAndDeletesDatabaseAndSearchManager) {
  Open();
  QTimer::singleShot(0, &screen(), [this] { screen().close(); });
  screen().exec();
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(screen().database(), nullptr);
  EXPECT_EQ(screen().searches(), nullptr);
}

TEST_F(MainDialogTest, ControlQClosesTheScreen) {
  Open();
  QTimer::singleShot(0, &screen(), [this] { Press(Qt::Key_Q, Qt::ControlModifier); });
  screen().exec();
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(screen().database(), nullptr);
}

TEST_F(MainDialogTest, RefreshingAClosedScreenDoesNothing) {
  Open();
  screen().close();
  EXPECT_EQ(screen().RefreshList(true), 0);
}

TEST_F(MainDialogTest, MissingFilesShowAnEmptyListWithoutAMessage) {
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(screen().RefreshList(true), -11);
  EXPECT_EQ(tree().empty_text().toStdString(),
            "Nothing to buy on this day\n"
            "Add a product with +, or choose another time above.");
}

TEST_F(MainDialogTest, DamagedFileLeavesTheTreeEmptyWithoutAMessageForTabViewAndDate) {
  AddProduct("Milk", kToday);
  folder_.WriteText("purchase.dat", "not a file of this program");
  folder_.WriteText("discount.dat", "neither");
  Open();
  ChooseTab(2);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(tree().empty_text().toStdString(),
            "This list could not be read\n"
            "The program brovanta-data checks files and brings copies back.");
  ChooseView(kWeeklyView);
  PickDate(1);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(screen().RefreshList(true), -14);
  ChooseTab(1);
  EXPECT_EQ(screen().RefreshList(false), -14);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  ChooseTab(0);
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(MainDialogTest, TruncatedFileLeavesTheTreeEmptyAlthoughRecordsWereRead) {
  AddProduct("Milk", kToday);
  AddProduct("Bread", kToday);
  Bytes bytes = *folder_.Read("product.dat");
  bytes.resize(bytes.size() - 100);
  folder_.Write("product.dat", bytes);
  Open();
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(screen().RefreshList(true), -12);
  EXPECT_EQ(*folder_.Read("product.dat"), bytes);
}

TEST_F(MainDialogTest, EmptyListsSaySoInTheirOwnWords) {
  AddProduct("Milk", kToday + kOneDay, "Corner");
  Open();
  const auto words = [this] { return tree().empty_text().toStdString(); };
  EXPECT_EQ(words(),
            "Nothing to buy on this day\n"
            "Add a product with +, or choose another time above.");
  ChooseTab(1);
  ChooseView(kWeeklyView);
  EXPECT_EQ(words(), "No coupons in this week\nAdd one with +, or get new ones by Update.");
  ChooseTab(2);
  ChooseView(kMonthlyView);
  EXPECT_EQ(words(),
            "Nothing bought in this month\nProducts that you mark as purchased are shown here.");
  ChooseTab(3);
  EXPECT_EQ(words(), "No saved web searches in this month\nSearch the web shops with +.");
}

}  // namespace
}  // namespace brovanta::test
