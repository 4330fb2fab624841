#include "util/date_stamp.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "util/clock.h"

namespace brovanta {
namespace {

constexpr std::array<std::string_view, 7> kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                       "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<int, 12> kMonthDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

void WriteCut(std::string_view text, std::span<char> buffer) {
  if (buffer.empty()) return;
  const std::size_t length = std::min(text.size(), buffer.size() - 1);
  std::copy_n(text.begin(), length, buffer.begin());
  buffer[length] = '\0';
}

}  // namespace

DateStamp NowStamp() {
  const auto zone = LocalZone::Current();
  return SaturatedStamp(zone->ToSeconds(zone->ToCalendar(CurrentSeconds())));
}

DateStamp TodayStamp() {
  const auto zone = LocalZone::Current();
  CalendarTime time = zone->ToCalendar(CurrentSeconds());
  time.hour = 1;
  time.minute = 0;
  time.second = 0;
  return SaturatedStamp(zone->ToSeconds(time));
}

DateStamp StampFromCalendar(const CalendarTime& time) {
  return SaturatedStamp(LocalZone::Current()->ToSeconds(time));
}

CalendarTime CalendarFromStamp(DateStamp stamp) { return LocalZone::Current()->ToCalendar(stamp); }

int FormatDayDate(DateStamp stamp, std::span<char> buffer) {
  const CalendarTime time = CalendarFromStamp(stamp);
  std::array<char, kDayDateSize> text;
  const std::string_view weekday = kWeekdays[time.day_of_week];
  char* end = std::copy(weekday.begin(), weekday.end(), text.data());
  char separator = ' ';
  for (const int number : {int{time.month}, int{time.day}, int{time.year}}) {
    *end++ = separator;
    end = std::to_chars(end, text.data() + text.size(), number).ptr;
    separator = '/';
  }
  WriteCut(std::string_view(text.data(), static_cast<std::size_t>(end - text.data())), buffer);
  return 0;
}

int MonthAbbrev(int month, std::span<char> buffer) {
  if (month >= 1 && month <= 12) WriteCut(kMonths[static_cast<std::size_t>(month - 1)], buffer);
  return 0;
}

int IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0 ? 1 : 0; }

int DaysInMonth(int month, int year) {
  return kMonthDays[static_cast<std::size_t>(month - 1)] + (month == 2 ? IsLeapYear(year) : 0);
}

}  // namespace brovanta
