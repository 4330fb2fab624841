#include "ui/base/period.h"

#include <QCoreApplication>

#include "ui/base/language.h"
#include "util/calendar_period.h"

namespace brovanta {
namespace {

Period AsPeriod(const CalendarPeriod& period) {
  return {period.start, period.end, QString::fromStdString(period.heading)};
}

QString Words(const char* english) { return QCoreApplication::translate("Period", english); }

/// The date by a pattern of which each translation has its own.
QString Dated(DateStamp stamp, const char* pattern) {
  return SpokenLocale().toString(DateOfStamp(stamp), Words(pattern));
}

QString TranslatedHeading(const Period& period, int view_mode) {
  if (view_mode == kDailyView) {
    return Dated(period.start, QT_TRANSLATE_NOOP("Period", "MMM dd, yyyy"));
  }
  if (view_mode == kMonthlyView) {
    return Dated(period.start, QT_TRANSLATE_NOOP("Period", "MMM yyyy"));
  }
  //: The first day of a week in its heading; the last one follows.
  return Dated(period.start, QT_TRANSLATE_NOOP("Period", "MMM dd")) + QStringLiteral(" - ") +
         //: The last day of a week in its heading.
         Dated(period.end, QT_TRANSLATE_NOOP("Period", "dd, yyyy"));
}

/// The form of an English heading is prescribed, and goes without patterns.
Period Spoken(Period period, int view_mode) {
  if (SpeaksTranslated()) period.heading = TranslatedHeading(period, view_mode);
  return period;
}

}  // namespace

std::optional<Period> PeriodOf(QDate date, int view_mode) {
  const CalendarTime day = CalendarOfDate(date);
  switch (view_mode) {
    case kDailyView:
      return Spoken(AsPeriod(PeriodAround(day, PeriodKind::kDay)), view_mode);
    case kWeeklyView:
      return Spoken(AsPeriod(PeriodAround(day, PeriodKind::kWeek)), view_mode);
    case kMonthlyView:
      return Spoken(AsPeriod(PeriodAround(day, PeriodKind::kMonth)), view_mode);
    default:
      return std::nullopt;
  }
}

QString PeriodWords(int view_mode) {
  if (view_mode == kDailyView) return Words(QT_TRANSLATE_NOOP("Period", "on this day"));
  return view_mode == kWeeklyView ? Words(QT_TRANSLATE_NOOP("Period", "in this week"))
                                  : Words(QT_TRANSLATE_NOOP("Period", "in this month"));
}

QDate FirstPickableDate() { return {1970, 1, 2}; }

QDate LastPickableDate() { return {2038, 1, 18}; }

QDate TodayDate() { return DateOfStamp(TodayStamp()); }

QDate DateOfStamp(DateStamp stamp) {
  const CalendarTime time = CalendarFromStamp(stamp);
  return {time.year, time.month, time.day};
}

CalendarTime CalendarOfDate(QDate date) {
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(date.year());
  time.month = static_cast<std::uint16_t>(date.month());
  time.day = static_cast<std::uint16_t>(date.day());
  time.day_of_week = static_cast<std::uint16_t>(date.dayOfWeek() % 7);
  return time;
}

}  // namespace brovanta
