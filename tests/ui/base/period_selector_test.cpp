#include "ui/base/period_selector.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"
#include "ui/base/color_button.h"

namespace brovanta {
namespace {

constexpr std::int64_t kNoon = 1795262400;  // Saturday 2026-11-21 12:00:00 UTC

class PeriodSelectorTest : public testing::Test {
 protected:
  PeriodSelectorTest() { screen_.resize(360, 640); }

  void ChooseMode(int index) {
    QAction* action = view_.menu()->actions().at(index);
    view_.menu()->popup({0, 0});
    QTest::mouseClick(view_.menu(), Qt::LeftButton, {},
                      view_.menu()->actionGeometry(action).center());
  }

  std::string Heading() const { return heading_.text().toStdString(); }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
  QWidget screen_;
  ColorButton view_{&screen_};
  ColorButton heading_{&screen_};
  PeriodSelector selector_{view_, heading_, screen_, 1040};
  QSignalSpy chosen_{&selector_, &PeriodSelector::PeriodChosen};
};

TEST_F(PeriodSelectorTest, StartsInTheDailyViewOfToday) {
  EXPECT_EQ(selector_.view_mode(), kDailyView);
  EXPECT_EQ(view_.first_picture(), 136);
  EXPECT_EQ(selector_.UpdatePeriod(), 0);
  EXPECT_EQ(Heading(), "Nov 21, 2026");
  EXPECT_EQ(selector_.period().start, kNoon - 12 * 3600);
  EXPECT_EQ(selector_.period().end, kNoon + 12 * 3600 - 1);
}

TEST_F(PeriodSelectorTest, MenuOffersTheThreeModesWithTheCurrentOneChecked) {
  const QList<QAction*> actions = view_.menu()->actions();
  ASSERT_EQ(actions.size(), 3);
  EXPECT_EQ(actions[0]->text().toStdString(), "Daily");
  EXPECT_EQ(actions[1]->text().toStdString(), "Weekly");
  EXPECT_EQ(actions[2]->text().toStdString(), "Monthly");
  EXPECT_EQ(actions[0]->data().toInt(), 3001);
  EXPECT_EQ(actions[2]->data().toInt(), 3003);
  EXPECT_TRUE(actions[0]->isChecked());
  EXPECT_FALSE(actions[1]->isChecked());
}

TEST_F(PeriodSelectorTest, ChoosingAModeChangesPictureCheckAndPeriod) {
  ChooseMode(1);
  EXPECT_EQ(selector_.view_mode(), kWeeklyView);
  EXPECT_EQ(view_.first_picture(), 137);
  EXPECT_FALSE(view_.menu()->actions().at(0)->isChecked());
  EXPECT_TRUE(view_.menu()->actions().at(1)->isChecked());
  EXPECT_EQ(Heading(), "Nov 15 - 21, 2026");
  EXPECT_EQ(chosen_.count(), 1);
  ChooseMode(2);
  EXPECT_EQ(view_.first_picture(), 138);
  EXPECT_EQ(Heading(), "Nov 2026");
  EXPECT_EQ(chosen_.count(), 2);
}

TEST_F(PeriodSelectorTest, ChoosingTheSameModeCountsAndKeepsItsCheck) {
  ChooseMode(0);
  EXPECT_TRUE(view_.menu()->actions().at(0)->isChecked());
  EXPECT_EQ(chosen_.count(), 1);
}

TEST_F(PeriodSelectorTest, UnknownModeGivesMinusOneAndKeepsTheHeading) {
  selector_.UpdatePeriod();
  const DateStamp start = selector_.period().start;
  selector_.SetDate({2026, 12, 24});
  selector_.SetViewMode(3004);
  EXPECT_EQ(selector_.UpdatePeriod(), -1);
  EXPECT_EQ(Heading(), "Nov 21, 2026");
  EXPECT_EQ(selector_.period().start, start);
}

TEST_F(PeriodSelectorTest, HeadingOpensTheCalendarAndADateChangesThePeriod) {
  screen_.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screen_));
  QTest::mouseClick(&heading_, Qt::LeftButton);
  const auto* calendar = screen_.findChild<QCalendarWidget*>();
  ASSERT_NE(calendar, nullptr);
  ASSERT_TRUE(calendar->isVisible());
  EXPECT_EQ(calendar->property("controlId").toInt(), 1040);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(calendar->isVisible());
  EXPECT_EQ(Heading(), "Nov 20, 2026");
  EXPECT_EQ(selector_.date(), QDate(2026, 11, 20));
  EXPECT_EQ(chosen_.count(), 1);
}

TEST_F(PeriodSelectorTest, ViewButtonSaysItsMode) {
  ChooseMode(1);
  EXPECT_EQ(view_.accessibleName().toStdString(), "View: Weekly");
  EXPECT_EQ(view_.toolTip().toStdString(), "View: Weekly");
}

}  // namespace
}  // namespace brovanta
