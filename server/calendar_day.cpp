#include "server/calendar_day.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "util/clock.h"

namespace brovanta::server {
namespace {

// A number of exactly these digits; nothing when anything else stands there.
std::optional<unsigned> Digits(std::string_view text) {
  unsigned number = 0;
  for (const char character : text) {
    if (character < '0' || character > '9') return std::nullopt;
    number = number * 10 + static_cast<unsigned>(character - '0');
  }
  return number;
}

void AppendPadded(std::string& text, unsigned number, std::size_t width) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) text.append(width - digits.size(), '0');
  text += digits;
}

}  // namespace

std::optional<Day> ParseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = Digits(text.substr(0, 4));
  const auto month = Digits(text.substr(5, 2));
  const auto number = Digits(text.substr(8, 2));
  if (!year || !month || !number) return std::nullopt;
  const Day day(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                std::chrono::day(*number));
  if (!day.ok() || day < kFirstDay || day > kLastDay) return std::nullopt;
  return day;
}

std::string FormatDay(Day day) {
  std::string text;
  AppendPadded(text, static_cast<unsigned>(static_cast<int>(day.year())), 4);
  text += '-';
  AppendPadded(text, static_cast<unsigned>(day.month()), 2);
  text += '-';
  AppendPadded(text, static_cast<unsigned>(day.day()), 2);
  return text;
}

std::string DayInWords(Day day) {
  std::array<char, 4> month{};
  MonthAbbrev(static_cast<int>(static_cast<unsigned>(day.month())), month);
  return std::string(month.data()) + " " + std::to_string(static_cast<unsigned>(day.day())) + ", " +
         std::to_string(static_cast<int>(day.year()));
}

DateStamp NoonStamp(const LocalZone& zone, Day day) {
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(static_cast<int>(day.year()));
  time.month = static_cast<std::uint16_t>(static_cast<unsigned>(day.month()));
  time.day = static_cast<std::uint16_t>(static_cast<unsigned>(day.day()));
  time.hour = 12;
  return SaturatedStamp(zone.ToSeconds(time));
}

Day DayOf(const CalendarTime& time) {
  return {std::chrono::year(time.year), std::chrono::month(time.month), std::chrono::day(time.day)};
}

Day Today() { return DayOf(LocalZone::Current()->ToCalendar(CurrentSeconds())); }

Day DaysLater(Day day, int days) {
  return Day(std::chrono::sys_days(day) + std::chrono::days(days));
}

}  // namespace brovanta::server
