// The period that a list is about: the day, the week or the month around a date.
#pragma once

#include <string>

#include "util/date_stamp.h"
#include "util/local_zone.h"

namespace brovanta {

enum class PeriodKind { kDay, kWeek, kMonth };

/// Its first and its last second, and its heading.
struct CalendarPeriod {
  DateStamp start = kNoDate;
  DateStamp end = kNoDate;  ///< inclusive
  std::string heading;      ///< "Nov 21, 2026", "Nov 15 - 21, 2026" or "Nov 2026"
};

/// The period around a local date, of which year, month and day count; the date must be one of the
/// calendar. A week runs from Sunday to Saturday by the calendar, whatever the clocks do, and its
/// heading names the first day's month and the last day's year only.
[[nodiscard]] CalendarPeriod PeriodAround(const CalendarTime& date, PeriodKind kind);

}  // namespace brovanta
