#include "ui/base/calendar_looks.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

TEST(CalendarLooksTest, WeeksStartOnSundayWithoutNumbers) {
  QCalendarWidget calendar;
  SetUpCalendarLooks(calendar);
  EXPECT_EQ(calendar.firstDayOfWeek(), Qt::Sunday);
  EXPECT_EQ(calendar.verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
}

TEST(CalendarLooksTest, NamesAreEnglishWhateverTheUsersLocale) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::German));
  QCalendarWidget calendar;
  SetUpCalendarLooks(calendar);
  EXPECT_EQ(calendar.locale().language(), QLocale::English);
  QLocale::setDefault(before);
}

TEST(CalendarLooksTest, WeekEndsHaveTheColorOfOtherDays) {
  QCalendarWidget calendar;
  SetUpCalendarLooks(calendar);
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
    EXPECT_EQ(calendar.weekdayTextFormat(day).foreground().color(), theme::kText);
  }
}

TEST(CalendarLooksTest, ArrowsHaveAPictureANameAndAToolTip) {
  QCalendarWidget calendar;
  SetUpCalendarLooks(calendar);
  for (const char* const name : {"qt_calendar_prevmonth", "qt_calendar_nextmonth"}) {
    const auto* arrow = calendar.findChild<QToolButton*>(QLatin1String(name));
    ASSERT_NE(arrow, nullptr) << name;
    EXPECT_FALSE(arrow->icon().isNull());
    EXPECT_FALSE(arrow->accessibleName().isEmpty());
    EXPECT_EQ(arrow->toolTip(), arrow->accessibleName());
  }
}

}  // namespace
}  // namespace brovanta
