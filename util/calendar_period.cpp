#include "util/calendar_period.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace brovanta {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

sys_days DayOf(const CalendarTime& date) {
  return year_month_day{std::chrono::year{date.year}, std::chrono::month{date.month},
                        std::chrono::day{date.day}};
}

CalendarTime Midnight(sys_days day) {
  const year_month_day date{day};
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(static_cast<int>(date.year()));
  time.month = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
  time.day = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
  return time;
}

DateStamp LastSecondOf(CalendarTime day) {
  day.hour = 23;
  day.minute = 59;
  day.second = 59;
  return StampFromCalendar(day);
}

std::array<char, 4> MonthName(const CalendarTime& date) {
  std::array<char, 4> name{};
  MonthAbbrev(date.month, name);
  return name;
}

std::string Heading(const CalendarTime& first, const CalendarTime& last, PeriodKind kind) {
  std::array<char, 40> text{};
  const std::array<char, 4> month = MonthName(first);
  switch (kind) {
    case PeriodKind::kDay:
      std::snprintf(text.data(), text.size(), "%s %02d, %04d", month.data(), first.day, first.year);
      break;
    case PeriodKind::kWeek:
      std::snprintf(text.data(), text.size(), "%s %02d - %02d, %04d", month.data(), first.day,
                    last.day, last.year);
      break;
    case PeriodKind::kMonth:
      std::snprintf(text.data(), text.size(), "%s %04d", month.data(), first.year);
      break;
  }
  return text.data();
}

}  // namespace

CalendarPeriod PeriodAround(const CalendarTime& date, PeriodKind kind) {
  sys_days first = DayOf(date);
  sys_days last = first;
  switch (kind) {
    case PeriodKind::kDay:
      break;
    case PeriodKind::kWeek:
      // Counted in dates, not in seconds: a week with a change of the clocks is an hour off
      // otherwise.
      first -= days{std::chrono::weekday{first}.c_encoding()};
      last = first + days{6};
      break;
    case PeriodKind::kMonth:
      first -= days{date.day - 1};
      last = first + days{DaysInMonth(date.month, date.year) - 1};
      break;
  }
  const CalendarTime first_day = Midnight(first);
  const CalendarTime last_day = Midnight(last);
  return {StampFromCalendar(first_day), LastSecondOf(last_day), Heading(first_day, last_day, kind)};
}

}  // namespace brovanta
