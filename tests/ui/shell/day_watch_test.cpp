#include "ui/shell/day_watch.h"

#include <gmock/gmock.h>

#include <QMenu>
#include <QSignalSpy>
#include <QTimerEvent>

#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

constexpr std::int64_t kNextNoon = kNow + kOneDay;

class DayWatchTest : public MainScreenTest {
 protected:
  /// What the minute timer does when it fires.
  void MinutePasses() {
    auto* watch = dialog_->findChild<DayWatch*>();
    QTimerEvent event(watch->timer_id());
    QApplication::sendEvent(watch, &event);
  }
};

TEST_F(DayWatchTest, SignalComesOncePerDay) {
  QWidget window;
  DayWatch watch(window);
  const QSignalSpy changed(&watch, &DayWatch::DayChanged);
  const auto minute = [&] {
    QTimerEvent event(watch.timer_id());
    QApplication::sendEvent(&watch, &event);
  };
  minute();
  clock_.Set(kMidnight + kOneDay - 1);
  minute();
  EXPECT_EQ(changed.count(), 0);
  clock_.Set(kMidnight + kOneDay);
  minute();
  minute();
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.at(0).at(0).toDate(), QDate(2026, 11, 21));
}

TEST_F(DayWatchTest, ScreenThatBecomesActiveLooksAtOnce) {
  QWidget window;
  DayWatch watch(window);
  const QSignalSpy changed(&watch, &DayWatch::DayChanged);
  clock_.Set(kNextNoon);
  QEvent activate(QEvent::WindowActivate);
  QApplication::sendEvent(&window, &activate);
  EXPECT_EQ(changed.count(), 1);
}

TEST_F(DayWatchTest, NewsWaitWhileAMenuIsOpen) {
  Open();
  auto* watch = dialog_->findChild<DayWatch*>();
  const QSignalSpy changed(watch, &DayWatch::DayChanged);
  QMenu& menu = *button("viewModeButton").menu();
  menu.popup({0, 0});
  clock_.Set(kNextNoon);
  MinutePasses();
  EXPECT_EQ(changed.count(), 0);
  menu.close();
  MinutePasses();
  EXPECT_EQ(changed.count(), 1);
}

TEST_F(DayWatchTest, PeriodOfTodayMovesToTheNewDay) {
  AddProduct("Milk", kToday);
  AddProduct("Bread", kToday + kOneDay);
  Open();
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
  clock_.Set(kNextNoon);
  MinutePasses();
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
  EXPECT_THAT(Rows(), ElementsAre("[Sunday 11/22/2026]", "Bread", "[Saturday 11/21/2026]", "Milk"));
}

TEST_F(DayWatchTest, FiltersStayWhenTheDayChanges) {
  AddProduct("Milk", kToday, "Corner");
  AddProduct("Bread", kToday + kOneDay);
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  clock_.Set(kNextNoon);
  MinutePasses();
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner"));
}

TEST_F(DayWatchTest, OtherDateThanTodayStaysWithItsSelection) {
  const std::int32_t milk = AddProduct("Milk", kToday - 3 * kOneDay);  // overdue on every day shown
  Open();
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  Press(Qt::Key_Left);
  Press(Qt::Key_Left);
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 19, 2026");
  Select("Milk");
  const std::vector<int> enabled = EnabledCommands();
  EXPECT_FALSE(enabled.empty());
  clock_.Set(kNextNoon);
  MinutePasses();
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 19, 2026");
  ASSERT_TRUE(tree().CaretInfo());
  EXPECT_EQ(tree().CaretInfo()->id, milk);
  EXPECT_EQ(EnabledCommands(), enabled);
}

TEST_F(DayWatchTest, AnotherZoneMovesTheDayThatIsToday) {
  AddPurchase("Milk", kToday + 14 * 3600);  // 15:00 UTC, in Tokyo the day after
  Open();
  ChooseTab(2);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
  clock_.Set(kMidnight + 16 * 3600);
  const ZoneGuard tokyo("Asia/Tokyo");
  MinutePasses();
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
  EXPECT_THAT(Rows(), ElementsAre("[Sunday 11/22/2026]", "Milk"));
}

TEST_F(DayWatchTest, AnotherZoneShowsTheMomentsOfTheOtherDateThatIsShown) {
  AddPurchase("Milk", kToday - kOneDay + 9 * 3600);    // on the 20th in both zones
  AddPurchase("Bread", kToday - kOneDay + 21 * 3600);  // 22:00 UTC, in Tokyo on the 21st
  Open();
  ChooseTab(2);
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  Press(Qt::Key_Left);
  Press(Qt::Key_Return);
  EXPECT_THAT(Rows(), ElementsAre("[Friday 11/20/2026]", "Milk", "[Friday 11/20/2026]", "Bread"));
  const ZoneGuard tokyo("Asia/Tokyo");
  MinutePasses();
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 20, 2026");
  EXPECT_THAT(Rows(), ElementsAre("[Friday 11/20/2026]", "Milk"));
}

TEST_F(DayWatchTest, DateLeftInAnOpenCalendarDoesNotHoldTheOldDay) {
  Open();
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  Press(Qt::Key_Left);
  clock_.Set(kNextNoon);
  MinutePasses();
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
  Press(Qt::Key_Escape);
  ChooseView(kDailyView);  // computed anew from the calendar's date
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
}

TEST_F(DayWatchTest, DateCanStillBeChosenInACalendarThatWasOpenAtMidnight) {
  Open();
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  Press(Qt::Key_Left);
  clock_.Set(kNextNoon);
  MinutePasses();
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 20, 2026");
}

TEST_F(DayWatchTest, ClosedScreenWatchesNoMore) {
  Open();
  screen().close();
  auto* watch = dialog_->findChild<DayWatch*>();
  const QSignalSpy changed(watch, &DayWatch::DayChanged);
  clock_.Set(kNextNoon);
  QEvent activate(QEvent::WindowActivate);
  QApplication::sendEvent(&screen(), &activate);
  EXPECT_EQ(changed.count(), 0);
}

}  // namespace
}  // namespace brovanta::test
