#include "ui/base/calendar_looks.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLocale>
#include <QMenu>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

TEST(CalendarLooksTest, MonthsAreEnglishWhateverTheLocale) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Austria));
  QCalendarWidget calendar;
  calendar.setCurrentPage(2026, 1);
  DressCalendar(calendar);
  QLocale::setDefault(before);
  const auto* month = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"));
  ASSERT_NE(month, nullptr);
  EXPECT_EQ(month->text().toStdString(), "January");
}

TEST(CalendarLooksTest, WeekStartsOnSundayAndWeekendsLookLikeOtherDays) {
  QCalendarWidget calendar;
  DressCalendar(calendar);
  EXPECT_EQ(calendar.firstDayOfWeek(), Qt::Sunday);
  EXPECT_EQ(calendar.verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
    EXPECT_EQ(calendar.weekdayTextFormat(day).foreground().color(), theme::kText);
  }
}

TEST(CalendarLooksTest, OnlyDatesThatAStampCanHoldArePickable) {
  QCalendarWidget calendar;
  DressCalendar(calendar);
  EXPECT_EQ(calendar.minimumDate(), QDate(1970, 1, 2));
  EXPECT_EQ(calendar.maximumDate(), QDate(2038, 1, 18));
}

TEST(CalendarLooksTest, ArrowsHaveNamesAndPictures) {
  QCalendarWidget calendar;
  DressCalendar(calendar);
  const auto* before = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_prevmonth"));
  const auto* after = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"));
  ASSERT_NE(before, nullptr);
  ASSERT_NE(after, nullptr);
  EXPECT_EQ(before->accessibleName().toStdString(), "Month before");
  EXPECT_EQ(after->toolTip().toStdString(), "Month after");
  EXPECT_FALSE(before->icon().isNull());
  EXPECT_NE(before->icon().pixmap(16, 16).toImage(), after->icon().pixmap(16, 16).toImage());
}

int PixelsOf(const QCalendarWidget& calendar, const char* part) {
  return QFontInfo(calendar.findChild<QWidget*>(QLatin1String(part))->font()).pixelSize();
}

TEST(CalendarLooksTest, TheDaysOfANarrowCalendarAreLargerThanItsMonthInLargePrint) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPixelSize(28);
  QApplication::setFont(large);
  QCalendarWidget calendar;
  DressCalendar(calendar);
  FitCalendar(calendar, 224);
  EXPECT_LT(PixelsOf(calendar, "qt_calendar_monthbutton"), 16);
  EXPECT_GT(PixelsOf(calendar, "qt_calendar_calendarview"), 16);
  EXPECT_LT(PixelsOf(calendar, "qt_calendar_calendarview"), 28);
  EXPECT_LE(
      7 * QFontMetrics(calendar.headerTextFormat().font()).horizontalAdvance(QStringLiteral("Wed")),
      224);
  FitCalendar(calendar, 900);
  EXPECT_EQ(PixelsOf(calendar, "qt_calendar_monthbutton"), 28);
  EXPECT_EQ(PixelsOf(calendar, "qt_calendar_calendarview"), 28);
  QApplication::setFont(before);
}

TEST(CalendarLooksTest, TheYearIsTypedWithoutArrowsInTheWay) {
  QCalendarWidget calendar;
  DressCalendar(calendar);
  const auto* year = calendar.findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit"));
  ASSERT_NE(year, nullptr);
  EXPECT_EQ(year->buttonSymbols(), QAbstractSpinBox::NoButtons);
  const auto* month = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"));
  ASSERT_NE(month, nullptr);
  EXPECT_EQ(month->menu()->accessibleName().toStdString(), "Months");
}

}  // namespace
}  // namespace brovanta
