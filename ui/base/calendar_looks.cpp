#include "ui/base/calendar_looks.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <QPalette>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>

#include "ui/base/language.h"
#include "ui/base/period.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kLeastPixels = 11;  // of a calendar on the narrowest screen

void NamePart(QCalendarWidget& calendar, const char* part, const QString& name) {
  if (auto* widget = calendar.findChild<QWidget*>(QLatin1String(part))) {
    widget->setAccessibleName(name);
  }
}

void NameArrow(QCalendarWidget& calendar, const char* part, const QString& name) {
  NamePart(calendar, part, name);
  auto* arrow = calendar.findChild<QToolButton*>(QLatin1String(part));
  if (arrow != nullptr) arrow->setToolTip(name);
}

/// The usual font, smaller where what takes so many pixels in it has less room.
QFont FontFor(int taken, int room) {
  return FittingFont(QApplication::font(), taken, room, kLeastPixels);
}

/// For the name of any month beside its year, between the arrows.
QFont TitleFont(const QLocale& locale, int width) {
  constexpr int kArrows = 2 * theme::kFingerHeight;
  constexpr int kAroundMonth = 40;  ///< margins of month and year, mark of the menu
  const QFontMetrics metrics(QApplication::font());
  int months = 0;
  for (int month = 1; month <= 12; ++month) {
    months = std::max(months, metrics.horizontalAdvance(locale.standaloneMonthName(month)));
  }
  return FontFor(months + metrics.horizontalAdvance(QStringLiteral("2026")),
                 width - kArrows - kAroundMonth);
}

QFont WeekdayFont(const QLocale& locale, int column) {
  const QFontMetrics metrics(QApplication::font());
  int days = 0;
  for (int day = 1; day <= 7; ++day) {
    days = std::max(days, metrics.horizontalAdvance(locale.dayName(day, QLocale::ShortFormat)));
  }
  return FontFor(days, column);
}

}  // namespace

void FitCalendar(QCalendarWidget& calendar, int width) {
  constexpr int kAroundDay = 9;
  const int column = width / 7 - kAroundDay;
  const QFontMetrics metrics(QApplication::font());
  calendar.setFont(FontFor(metrics.horizontalAdvance(QStringLiteral("30")), column));
  QTextCharFormat weekdays = calendar.headerTextFormat();
  weekdays.setFont(WeekdayFont(calendar.locale(), column));
  calendar.setHeaderTextFormat(weekdays);
  // The toolkit's least column is as wide as the widest letter of any script.
  for (auto* header : calendar.findChildren<QHeaderView*>()) header->setMinimumSectionSize(1);
  const QFont title = TitleFont(calendar.locale(), width);
  for (const char* part :
       {"qt_calendar_monthbutton", "qt_calendar_yearbutton", "qt_calendar_yearedit"}) {
    if (auto* widget = calendar.findChild<QWidget*>(QLatin1String(part))) widget->setFont(title);
  }
}

void DressCalendar(QCalendarWidget& calendar) {
  calendar.setLocale(SpokenLocale());
  calendar.setFirstDayOfWeek(Qt::Sunday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar.setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  calendar.setDateEditEnabled(false);
  calendar.setDateRange(FirstPickableDate(), LastPickableDate());
  // Red would be the colour of what is overdue.
  KeepInPalette(calendar, [&calendar] {
    QTextCharFormat weekend;
    weekend.setForeground(QColor(theme::kText));
    calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
    calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
    // The days of the neighbouring months are painted as if disabled, but can be chosen.
    QPalette palette = calendar.palette();
    palette.setColor(QPalette::Disabled, QPalette::Text, theme::kQuietText);
    calendar.setPalette(palette);
  });
  // Lower than a finger, and in the way of the arrow to the next month.
  if (auto* year = calendar.findChild<QSpinBox*>(QLatin1String("qt_calendar_yearedit"))) {
    year->setButtonSymbols(QAbstractSpinBox::NoButtons);
  }
  calendar.setAccessibleName(QCoreApplication::translate("Calendar", "Calendar"));
  NamePart(calendar, "qt_calendar_calendarview", QCoreApplication::translate("Calendar", "Days"));
  NamePart(calendar, "qt_calendar_yearedit", QCoreApplication::translate("Calendar", "Year"));
  auto* month = calendar.findChild<QToolButton*>(QLatin1String("qt_calendar_monthbutton"));
  if (month != nullptr && month->menu() != nullptr) {
    month->menu()->setAccessibleName(QCoreApplication::translate("Calendar", "Months"));
  }
  NameArrow(calendar, "qt_calendar_prevmonth",
            QCoreApplication::translate("Calendar", "Month before"));
  NameArrow(calendar, "qt_calendar_nextmonth",
            QCoreApplication::translate("Calendar", "Month after"));
}

}  // namespace brovanta
