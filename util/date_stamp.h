// DateStamp, the one form in which dates are stored and compared, and its calendar operations.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "util/local_zone.h"

namespace brovanta {

/// Seconds since 1970-01-01 00:00:00 UTC of a local calendar date and time; 0 means no date.
/// Compared as signed integers; the larger is the later.
using DateStamp = std::int32_t;

inline constexpr DateStamp kNoDate = 0;
inline constexpr std::int64_t kSecondsPerDay = 86400;
inline constexpr std::int64_t kSecondsPerWeek = 604800;

/// The current local date and time.
[[nodiscard]] DateStamp NowStamp();

/// Today's local date at 01:00:00. The hour keeps the stamp on its day when clocks move by one
/// hour; all calls on one day give the same value.
[[nodiscard]] DateStamp TodayStamp();

/// The stamp of a local date and time (ambiguous and missing times as LocalZone decides). What lies
/// outside 32 bits becomes the nearest stamp that fits.
[[nodiscard]] DateStamp StampFromCalendar(const CalendarTime& time);

/// The local date and time of a stamp, day of week filled in, milliseconds 0.
[[nodiscard]] CalendarTime CalendarFromStamp(DateStamp stamp);

/// Bounds a count of seconds to what a stamp can hold.
[[nodiscard]] constexpr DateStamp SaturatedStamp(std::int64_t seconds) {
  constexpr std::int64_t kMin = std::numeric_limits<DateStamp>::min();
  constexpr std::int64_t kMax = std::numeric_limits<DateStamp>::max();
  return static_cast<DateStamp>(seconds < kMin ? kMin : seconds > kMax ? kMax : seconds);
}

/// Bytes that FormatDayDate may need, terminator included ("Wednesday 12/31/2037").
inline constexpr std::size_t kDayDateSize = 21;

/// Writes "Wednesday 4/6/2005" (weekday, month, day, year, no leading zeros, always English),
/// zero-terminated and cut to the buffer. Returns 0.
int FormatDayDate(DateStamp stamp, std::span<char> buffer);

/// Writes the three-letter English month name, zero-terminated and cut to the buffer. A month
/// outside 1 to 12 leaves the buffer as it is. Returns 0 in either case.
int MonthAbbrev(int month, std::span<char> buffer);

/// 1 for a leap year of the Gregorian calendar, else 0.
[[nodiscard]] int IsLeapYear(int year);

/// Days of the month, 1 to 12, of a year. The month is not checked: callers pass 1 to 12.
[[nodiscard]] int DaysInMonth(int month, int year);

}  // namespace brovanta
