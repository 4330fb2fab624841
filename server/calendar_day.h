// Days as people write them in tables, and as the stamps that the feed carries.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "util/date_stamp.h"
#include "util/local_zone.h"

namespace brovanta::server {

using Day = std::chrono::year_month_day;

/// The days that a stamp can hold in every time zone.
inline constexpr Day kFirstDay{std::chrono::year(1970), std::chrono::January, std::chrono::day(2)};
inline constexpr Day kLastDay{std::chrono::year(2038), std::chrono::January, std::chrono::day(18)};

/// "2025-05-01". Nothing for any other form and for days outside kFirstDay to kLastDay.
[[nodiscard]] std::optional<Day> ParseDay(std::string_view text);

/// The form that ParseDay reads.
[[nodiscard]] std::string FormatDay(Day day);

/// For people: "May 1, 2025".
[[nodiscard]] std::string DayInWords(Day day);

/// The day's noon in the zone. Noon stays on its day on a handheld some hours away, and counts as
/// valid through all of the last day.
[[nodiscard]] DateStamp NoonStamp(const LocalZone& zone, Day day);

/// The date of a local calendar value.
[[nodiscard]] Day DayOf(const CalendarTime& time);

/// The local date now.
[[nodiscard]] Day Today();

[[nodiscard]] Day DaysLater(Day day, int days);

}  // namespace brovanta::server
