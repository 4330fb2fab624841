#include "ui/base/calendar_looks.h"

#include <QCalendarWidget>
#include <QLocale>
#include <QTextCharFormat>
#include <QToolButton>

#include "ui/base/icons.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

void SetUpArrow(QCalendarWidget& calendar, const QString& button, const QString& icon,
                const QString& name) {
  auto* const arrow = calendar.findChild<QToolButton*>(button);
  if (arrow == nullptr) return;
  arrow->setIcon(NamedIcon(icon, theme::kNavy));
  arrow->setAccessibleName(name);
  arrow->setToolTip(name);
}

}  // namespace

void SetUpCalendarLooks(QCalendarWidget& calendar) {
  calendar.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
  calendar.setFirstDayOfWeek(Qt::Sunday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar.setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  QTextCharFormat weekend;
  weekend.setForeground(theme::kText);
  calendar.setWeekdayTextFormat(Qt::Saturday, weekend);
  calendar.setWeekdayTextFormat(Qt::Sunday, weekend);
  SetUpArrow(calendar, QStringLiteral("qt_calendar_prevmonth"), QStringLiteral("chevron_left"),
             QStringLiteral("Month before"));
  SetUpArrow(calendar, QStringLiteral("qt_calendar_nextmonth"), QStringLiteral("chevron_right"),
             QStringLiteral("Month after"));
  if (auto* month = calendar.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"))) {
    month->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
  }
}

}  // namespace brovanta
