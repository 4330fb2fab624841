#include "ui/base/period.h"

#include <QCoreApplication>
#include <array>

#include "ui/base/language.h"

namespace brovanta {
namespace {

std::array<char, 4> MonthName(QDate date) {
  std::array<char, 4> name{};
  MonthAbbrev(date.month(), name);
  return name;
}

Period DayPeriod(QDate date) {
  return {StartOfDay(date), EndOfDay(date),
          QString::asprintf("%s %02d, %04d", MonthName(date).data(), date.day(), date.year())};
}

Period WeekPeriod(QDate date) {
  // Counted in dates, not in seconds: a week with a change of the clocks is an hour off otherwise.
  const QDate first = date.addDays(-(date.dayOfWeek() % 7));
  const QDate last = first.addDays(6);
  return {StartOfDay(first), EndOfDay(last),
          QString::asprintf("%s %02d - %02d, %04d", MonthName(first).data(), first.day(),
                            last.day(), last.year())};
}

Period MonthPeriod(QDate date) {
  const QDate first(date.year(), date.month(), 1);
  const QDate last(date.year(), date.month(), DaysInMonth(date.month(), date.year()));
  return {StartOfDay(first), EndOfDay(last),
          QString::asprintf("%s %04d", MonthName(date).data(), date.year())};
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

DateStamp StartOfDay(QDate date) { return StampFromCalendar(CalendarOfDate(date)); }

DateStamp EndOfDay(QDate date) {
  CalendarTime time = CalendarOfDate(date);
  time.hour = 23;
  time.minute = 59;
  time.second = 59;
  return StampFromCalendar(time);
}

std::optional<Period> PeriodOf(QDate date, int view_mode) {
  switch (view_mode) {
    case kDailyView:
      return Spoken(DayPeriod(date), view_mode);
    case kWeeklyView:
      return Spoken(WeekPeriod(date), view_mode);
    case kMonthlyView:
      return Spoken(MonthPeriod(date), view_mode);
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
