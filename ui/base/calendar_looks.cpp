#include "ui/base/calendar_looks.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QPalette>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/language.h"
#include "ui/base/period.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

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

}  // namespace

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
  calendar.setAccessibleName(QCoreApplication::translate("Calendar", "Calendar"));
  NamePart(calendar, "qt_calendar_calendarview", QCoreApplication::translate("Calendar", "Days"));
  NamePart(calendar, "qt_calendar_yearedit", QCoreApplication::translate("Calendar", "Year"));
  NameArrow(calendar, "qt_calendar_prevmonth",
            QCoreApplication::translate("Calendar", "Month before"));
  NameArrow(calendar, "qt_calendar_nextmonth",
            QCoreApplication::translate("Calendar", "Month after"));
}

}  // namespace brovanta
