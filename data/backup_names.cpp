#include "data/backup_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

#include "util/date_stamp.h"

namespace brovanta {
namespace {

constexpr std::size_t kDayLength = 10;  // "2026-11-21"
constexpr std::string_view kBeforeRestore = ".before-restore";

// The number that the digits write; -1 when there is anything else.
int Digits(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool digits = error == std::errc() && end == text.data() + text.size() && text[0] != '-';
  return digits ? value : -1;
}

std::string Padded(int value, std::size_t width) {
  const std::string digits = std::to_string(value);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

// Days since 1970-01-01 in the Gregorian calendar; years are counted from March, so that the leap
// day is a year's last.
std::int64_t DaysOfDate(int year, int month, int day) {
  const int from_march = (month + 9) % 12;
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t before = y * 365 + y / 4 - y / 100 + y / 400;
  constexpr std::int64_t kDaysTo1970 = 719468;  // from 0000-03-01
  return before + (153 * from_march + 2) / 5 + day - 1 - kDaysTo1970;
}

// Weeks begin on Monday; 1970-01-01 was a Thursday.
std::int64_t WeekOf(std::int64_t day) {
  const std::int64_t from_monday = day + 3;
  return from_monday >= 0 ? from_monday / 7 : (from_monday - 6) / 7;
}

}  // namespace

std::string TodaysCopyName() {
  const CalendarTime today = CalendarFromStamp(TodayStamp());
  return Padded(today.year, 4) + "-" + Padded(today.month, 2) + "-" + Padded(today.day, 2);
}

std::optional<std::int64_t> DayOfCopy(std::string_view name) {
  if (name.size() != kDayLength || name[4] != '-' || name[7] != '-') return std::nullopt;
  const int year = Digits(name.substr(0, 4));
  const int month = Digits(name.substr(5, 2));
  const int day = Digits(name.substr(8, 2));
  if (year < 0 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(month, year)) {
    return std::nullopt;
  }
  return DaysOfDate(year, month, day);
}

std::string BeforeRestoreName(const std::string& day_name, int number) {
  return day_name + std::string(kBeforeRestore) + (number > 1 ? std::to_string(number) : "");
}

bool IsBeforeRestoreName(std::string_view name) {
  if (name.size() < kDayLength || !DayOfCopy(name.substr(0, kDayLength))) return false;
  const std::string_view rest = name.substr(kDayLength);
  if (!rest.starts_with(kBeforeRestore)) return false;
  const std::string_view number = rest.substr(kBeforeRestore.size());
  return number.empty() || (number[0] != '0' && Digits(number) > 1);
}

bool IsCopyName(std::string_view name) {
  return DayOfCopy(name).has_value() || IsBeforeRestoreName(name);
}

std::vector<std::string> CopiesToRemove(std::vector<std::string> names) {
  // A clock that was wrong has left days to come; they must not push out the days that are real,
  // that of today least of all.
  const std::string today = TodaysCopyName();
  std::erase_if(names, [&](const std::string& name) { return !DayOfCopy(name) || name > today; });
  std::sort(names.begin(), names.end());
  if (names.size() <= kDailyCopies) return {};
  names.resize(names.size() - kDailyCopies);
  // The first of each week, from the oldest week on.
  std::vector<std::string> firsts;
  std::set<std::int64_t> weeks;
  for (const std::string& name : names) {
    if (weeks.insert(WeekOf(*DayOfCopy(name))).second) firsts.push_back(name);
  }
  if (firsts.size() > kWeeklyCopies) {
    firsts.erase(firsts.begin(), firsts.end() - static_cast<std::ptrdiff_t>(kWeeklyCopies));
  }
  const std::set<std::string> kept(firsts.begin(), firsts.end());
  std::erase_if(names, [&](const std::string& name) { return kept.count(name) > 0; });
  return names;
}

}  // namespace brovanta
