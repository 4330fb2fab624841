#include "ui/base/period.h"

#include <array>

namespace brovanta {
namespace {

DateStamp StartOfDay(QDate date) { return StampFromCalendar(CalendarOfDate(date)); }

DateStamp EndOfDay(QDate date) {
  CalendarTime time = CalendarOfDate(date);
  time.hour = 23;
  time.minute = 59;
  time.second = 59;
  return StampFromCalendar(time);
}

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

}  // namespace

std::optional<Period> PeriodOf(QDate date, int view_mode) {
  switch (view_mode) {
    case kDailyView:
      return DayPeriod(date);
    case kWeeklyView:
      return WeekPeriod(date);
    case kMonthlyView:
      return MonthPeriod(date);
    default:
      return std::nullopt;
  }
}

QString PeriodWords(int view_mode) {
  if (view_mode == kDailyView) return QStringLiteral("on this day");
  return view_mode == kWeeklyView ? QStringLiteral("in this week")
                                  : QStringLiteral("in this month");
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
