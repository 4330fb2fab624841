#include "ui/base/calendar_popup.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

constexpr std::int64_t kNoon = 1795262400;  // Saturday 2026-11-21 12:00:00 UTC

class CalendarPopupTest : public testing::Test {
 protected:
  CalendarPopupTest() {
    auto* layout = new QVBoxLayout(&screen_);
    layout->addWidget(&anchor_);
    layout->addStretch();
    screen_.resize(360, 640);
    popup_ = new CalendarPopup(screen_);
    spy_.emplace(popup_, &CalendarPopup::Chosen);
    screen_.show();
    screen_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen_));
    anchor_.setFocus();
  }

  /// Made when the popup is opened for the first time.
  QCalendarWidget* Calendar() { return popup_->findChild<QCalendarWidget*>(); }
  QTableView* Days() { return Calendar()->findChild<QTableView*>(); }

  /// Taps the cell that shows this day of the page, counted from the first one of the month.
  void Tap(int day) {
    const QAbstractItemModel* model = Days()->model();
    bool in_month = false;
    for (int row = 0; row < model->rowCount(); ++row) {
      for (int column = 0; column < model->columnCount(); ++column) {
        const QModelIndex index = model->index(row, column);
        bool number = false;
        const int shown = index.data().toInt(&number);
        if (!number) continue;
        if (shown == 1) in_month = true;
        if (!in_month || shown != day) continue;
        QTest::mouseClick(Days()->viewport(), Qt::LeftButton, {},
                          Days()->visualRect(index).center());
        return;
      }
    }
    FAIL() << "no such day";
  }

  test::ZoneGuard zone_{"UTC"};
  test::FixedClock clock_{kNoon};
  QWidget screen_;
  QPushButton anchor_;
  CalendarPopup* popup_ = nullptr;
  std::optional<QSignalSpy> spy_;
};

TEST_F(CalendarPopupTest, StartsHiddenOnTodayByTheProgramsClock) {
  EXPECT_FALSE(popup_->isVisible());
  EXPECT_EQ(Calendar(), nullptr);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 21));
}

TEST_F(CalendarPopupTest, CalendarStartsItsWeekOnSundayAndStaysWithinAStamp) {
  popup_->Open(anchor_);
  EXPECT_EQ(Calendar()->firstDayOfWeek(), Qt::Sunday);
  EXPECT_EQ(Calendar()->minimumDate(), QDate(1970, 1, 2));
  EXPECT_EQ(Calendar()->maximumDate(), QDate(2038, 1, 18));
}

TEST_F(CalendarPopupTest, TappingADateChoosesItAndCloses) {
  popup_->Open(anchor_);
  ASSERT_TRUE(Calendar()->isVisible());
  Tap(5);
  EXPECT_FALSE(popup_->isVisible());
  EXPECT_EQ(spy_->count(), 1);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 5));
}

TEST_F(CalendarPopupTest, TappingTheSelectedDateChoosesItAgain) {
  popup_->Open(anchor_);
  Tap(21);
  EXPECT_FALSE(popup_->isVisible());
  EXPECT_EQ(spy_->count(), 1);
}

TEST_F(CalendarPopupTest, ArrowKeysAndEnterChooseADate) {
  popup_->Open(anchor_);
  QTest::keyClick(Days(), Qt::Key_Left);
  EXPECT_EQ(spy_->count(), 0);
  QTest::keyClick(Days(), Qt::Key_Return);
  EXPECT_EQ(spy_->count(), 1);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 20));
  EXPECT_FALSE(popup_->isVisible());
}

TEST_F(CalendarPopupTest, EscapeClosesWithoutAChangeEvenAfterArrowKeys) {
  popup_->Open(anchor_);
  QTest::keyClick(Days(), Qt::Key_Left);
  QTest::keyClick(Days(), Qt::Key_Escape);
  EXPECT_FALSE(popup_->isVisible());
  EXPECT_EQ(spy_->count(), 0);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 21));
}

TEST_F(CalendarPopupTest, TapBesideTheCalendarClosesWithoutAChange) {
  popup_->Open(anchor_);
  QTest::mouseClick(popup_, Qt::LeftButton, {}, {180, 630});
  EXPECT_FALSE(popup_->isVisible());
  EXPECT_EQ(spy_->count(), 0);
}

TEST_F(CalendarPopupTest, TurningThePagesChoosesNothing) {
  popup_->Open(anchor_);
  auto* next = Calendar()->findChild<QWidget*>(QStringLiteral("qt_calendar_nextmonth"));
  ASSERT_NE(next, nullptr);
  QTest::mouseClick(next, Qt::LeftButton);
  EXPECT_EQ(Calendar()->monthShown(), 12);
  EXPECT_EQ(spy_->count(), 0);
  EXPECT_TRUE(popup_->isVisible());
  QTest::keyClick(Days(), Qt::Key_Escape);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 21));
}

TEST_F(CalendarPopupTest, CoversTheScreenAndFollowsItsSize) {
  popup_->Open(anchor_);
  EXPECT_EQ(popup_->geometry(), screen_.rect());
  screen_.resize(640, 360);
  EXPECT_EQ(popup_->geometry(), screen_.rect());
  EXPECT_TRUE(
      popup_->rect().contains(QRect(Calendar()->mapTo(popup_, QPoint(0, 0)), Calendar()->size())));
}

TEST_F(CalendarPopupTest, FitsASmallScreen) {
  screen_.resize(320, 240);
  popup_->Open(anchor_);
  EXPECT_TRUE(
      popup_->rect().contains(QRect(Calendar()->mapTo(popup_, QPoint(0, 0)), Calendar()->size())));
}

TEST_F(CalendarPopupTest, ScreensShortcutsRestWhileItIsOpen) {
  QShortcut shortcut(QKeySequence(Qt::Key_F5), &screen_);
  const QSignalSpy activated(&shortcut, &QShortcut::activated);
  QTest::keyClick(&anchor_, Qt::Key_F5);
  EXPECT_EQ(activated.count(), 1);
  popup_->Open(anchor_);
  QTest::keyClick(Days(), Qt::Key_F5);
  EXPECT_EQ(activated.count(), 1);
}

TEST_F(CalendarPopupTest, TabStaysWithinTheCalendar) {
  popup_->Open(anchor_);
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(Calendar()->isAncestorOf(QApplication::focusWidget()));
  }
}

TEST_F(CalendarPopupTest, FocusGoesBackToWhereItWas) {
  popup_->Open(anchor_);
  EXPECT_FALSE(anchor_.hasFocus());
  QTest::keyClick(Days(), Qt::Key_Escape);
  EXPECT_TRUE(anchor_.hasFocus());
}

TEST_F(CalendarPopupTest, SettingADateSendsNothing) {
  popup_->SetDate({2026, 12, 24});
  EXPECT_EQ(popup_->date(), QDate(2026, 12, 24));
  EXPECT_EQ(spy_->count(), 0);
}

TEST_F(CalendarPopupTest, ArrowKeysMoveNoDateBeforeOneIsChosen) {
  popup_->Open(anchor_);
  QTest::keyClick(Days(), Qt::Key_Left);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 21));
}

TEST_F(CalendarPopupTest, DateSetWhileItIsOpenIsTheOneThatEscapeComesBackTo) {
  popup_->Open(anchor_);
  popup_->SetDate({2026, 11, 22});
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 22));
  EXPECT_EQ(Calendar()->selectedDate(), QDate(2026, 11, 21));
  QTest::keyClick(Days(), Qt::Key_Escape);
  EXPECT_EQ(popup_->date(), QDate(2026, 11, 22));
}

}  // namespace
}  // namespace brovanta
