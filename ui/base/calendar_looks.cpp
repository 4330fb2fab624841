#include "ui/base/calendar_looks.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCoreApplication>
#include <QFontInfo>
#include <QPalette>
#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>

#include "ui/base/language.h"
#include "ui/base/period.h"
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

/// Font pixels with which names of months and days fit a calendar of this width.
int FittingPixels(const QCalendarWidget& calendar, int width) {
  constexpr int kArrows = 2 * theme::kFingerHeight;
  constexpr int kAroundMonth = 60;  ///< margins of month and year, mark of the menu
  constexpr int kAroundDay = 6;
  const QFont usual = QApplication::font();
  const QFontMetrics metrics(usual);
  const QLocale locale = calendar.locale();
  int months = 0;
  for (int month = 1; month <= 12; ++month) {
    months = std::max(months, metrics.horizontalAdvance(locale.standaloneMonthName(month)));
  }
  int days = metrics.horizontalAdvance(QStringLiteral("30"));
  for (int day = 1; day <= 7; ++day) {
    days = std::max(days, metrics.horizontalAdvance(locale.dayName(day, QLocale::ShortFormat)));
  }
  const int title = months + metrics.horizontalAdvance(QStringLiteral("2026"));
  const int pixels = QFontInfo(usual).pixelSize();
  const int by_title = pixels * (width - kArrows - kAroundMonth) / std::max(1, title);
  const int by_days = pixels * (width / 7 - kAroundDay) / std::max(1, days);
  return std::max(kLeastPixels, std::min({pixels, by_title, by_days}));
}

}  // namespace

void FitCalendar(QCalendarWidget& calendar, int width) {
  QFont font = QApplication::font();
  const int pixels = FittingPixels(calendar, width);
  if (QFontInfo(font).pixelSize() == pixels) {
    calendar.setFont(font);
    return;
  }
  font.setPixelSize(pixels);
  calendar.setFont(font);
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
  calendar.setAccessibleName(QCoreApplication::translate("Calendar", "Calendar"));
  NamePart(calendar, "qt_calendar_calendarview", QCoreApplication::translate("Calendar", "Days"));
  NamePart(calendar, "qt_calendar_yearedit", QCoreApplication::translate("Calendar", "Year"));
  NameArrow(calendar, "qt_calendar_prevmonth",
            QCoreApplication::translate("Calendar", "Month before"));
  NameArrow(calendar, "qt_calendar_nextmonth",
            QCoreApplication::translate("Calendar", "Month after"));
}

}  // namespace brovanta
