#include "ui/base/calendar_looks.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/language.h"
#include "ui/base/period.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

void NameArrow(QCalendarWidget& calendar, const char* part, const QString& name) {
  auto* arrow = calendar.findChild<QToolButton*>(QLatin1String(part));
  if (arrow == nullptr) return;
  arrow->setAccessibleName(name);
  arrow->setToolTip(name);
}

}  // namespace

void DressCalendar(QCalendarWidget& calendar) {
  calendar.setLocale(SpokenLocale());
  calendar.setFirstDayOfWeek(Qt::Sunday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar.setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  calendar.setDateEditEnabled(false);
  calendar.setDateRange(FirstPickableDate(), LastPickableDate());
  QTextCharFormat weekend;
  weekend.setForeground(theme::kText);
  calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
  calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
  NameArrow(calendar, "qt_calendar_prevmonth",
            QCoreApplication::translate("Calendar", "Month before"));
  NameArrow(calendar, "qt_calendar_nextmonth",
            QCoreApplication::translate("Calendar", "Month after"));
}

}  // namespace brovanta
