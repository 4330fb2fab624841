// The period that a screen shows: a day, a week or a month around a date.
#pragma once

#include <QDate>
#include <QString>
#include <optional>

#include "util/date_stamp.h"

namespace brovanta {

/// View modes, as the view menu numbers them.
inline constexpr int kDailyView = 3001;
inline constexpr int kWeeklyView = 3002;
inline constexpr int kMonthlyView = 3003;

/// The first and the last second of a period, and what its button says.
struct Period {
  DateStamp start = kNoDate;
  DateStamp end = kNoDate;  ///< inclusive
  QString heading;          ///< "Nov 21, 2026", "Nov 15 - 21, 2026" or "Nov 2026"
};

/// The period around a date; nothing for an unknown mode. A week runs from Sunday to Saturday by
/// the calendar, whatever the clocks do, and its heading names the first day's month and the last
/// day's year only.
[[nodiscard]] std::optional<Period> PeriodOf(QDate date, int view_mode);

/// "on this day", "in this week", "in this month".
[[nodiscard]] QString PeriodWords(int view_mode);

/// The dates that can be picked: every local time of these fits a DateStamp and none is "no date".
[[nodiscard]] QDate FirstPickableDate();
[[nodiscard]] QDate LastPickableDate();

/// Today's local date by the program's clock.
[[nodiscard]] QDate TodayDate();

/// The local date of a stamp.
[[nodiscard]] QDate DateOfStamp(DateStamp stamp);

/// A date as a calendar value at midnight.
[[nodiscard]] CalendarTime CalendarOfDate(QDate date);

}  // namespace brovanta
