#include "ui/base/calendar_looks.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/icons.h"
#include "ui/base/period.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

void DressArrow(QCalendarWidget& calendar, const char* part, const char* picture,
                const QString& name) {
  auto* arrow = calendar.findChild<QToolButton*>(QLatin1String(part));
  if (arrow == nullptr) return;
  arrow->setIcon(NamedIcon(QLatin1String(picture), theme::kNavy));
  arrow->setAccessibleName(name);
  arrow->setToolTip(name);
}

}  // namespace

void DressCalendar(QCalendarWidget& calendar) {
  calendar.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
  calendar.setFirstDayOfWeek(Qt::Sunday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar.setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  calendar.setDateEditEnabled(false);
  calendar.setDateRange(FirstPickableDate(), LastPickableDate());
  QTextCharFormat weekend;
  weekend.setForeground(theme::kText);
  calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
  calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
  DressArrow(calendar, "qt_calendar_prevmonth", "chevron_left", QStringLiteral("Month before"));
  DressArrow(calendar, "qt_calendar_nextmonth", "chevron_right", QStringLiteral("Month after"));
  if (auto* month = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"))) {
    month->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
  }
}

}  // namespace brovanta
