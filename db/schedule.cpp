#include "db/schedule.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "util/date_stamp.h"

namespace brovanta {
namespace {

constexpr std::int64_t kLatest = std::numeric_limits<DateStamp>::max();
constexpr int kSunday = 0;
constexpr int kDaysOfWeek = 7;

/// A clock change can carry a daily step over one weekday, so that a second week may be needed.
constexpr int kWeekdaySteps = 2 * kDaysOfWeek;

/// `first` plus the fewest whole steps that lie after `last`, as far as a stamp reaches.
std::int64_t StepPast(std::int64_t first, std::int64_t last, std::int64_t step) {
  if (first > last || step == 0) return first;
  const std::int64_t needed = (last - first) / step + 1;
  const std::int64_t possible = (kLatest - first) / step;
  return first + std::min(needed, possible) * step;
}

/// The first day from `date` on that falls on the weekday, the hour of day taken along in seconds.
std::int64_t MoveToWeekday(std::int64_t date, int weekday, const LocalZone& zone) {
  for (int step = 0; step < kWeekdaySteps; ++step) {
    if (zone.ToCalendar(date).day_of_week == weekday || date + kSecondsPerDay > kLatest) break;
    date += kSecondsPerDay;
  }
  return date;
}

std::int64_t NextWeekly(const ProductRecord& product, const LocalZone& zone) {
  std::int64_t first = product.StartDate;
  if (product.DayValue <= kDaysOfWeek) {
    const int weekday = product.DayValue == kDaysOfWeek ? kSunday : product.DayValue;
    first = MoveToWeekday(first, weekday, zone);
  }
  return StepPast(first, product.LastPurchased, product.Every * kSecondsPerWeek);
}

/// Months counted through, so that a step over any number of years is plain addition.
int MonthIndex(const CalendarTime& time) { return time.year * 12 + (time.month - 1); }

/// The monthly due dates of one product.
class MonthlyDates {
 public:
  /// A day of 0, which only a damaged file holds, counts as the first.
  MonthlyDates(const ProductRecord& product, const LocalZone& zone)
      : zone_(zone),
        time_(zone.ToCalendar(product.StartDate)),
        day_(std::max<int>(product.DayValue, 1)),
        first_month_(MonthIndex(time_) + (day_ >= time_.day ? 0 : 1)) {}

  [[nodiscard]] int first_month() const { return first_month_; }

  /// The date in a month; the day is lowered anew from the product's day in each.
  [[nodiscard]] std::int64_t In(int month_index) {
    const int year = month_index / 12;
    const int month = month_index % 12 + 1;
    time_.year = static_cast<std::uint16_t>(year);
    time_.month = static_cast<std::uint16_t>(month);
    time_.day = static_cast<std::uint16_t>(std::min(day_, DaysInMonth(month, year)));
    return zone_.ToSeconds(time_);
  }

 private:
  const LocalZone& zone_;
  CalendarTime time_;  // hour, minute and second are those of the start date
  int day_;
  int first_month_;
};

std::int64_t NextMonthly(const ProductRecord& product, const LocalZone& zone) {
  MonthlyDates dates(product, zone);
  int month = dates.first_month();
  const std::int64_t first = dates.In(month);
  if (first > kLatest) return product.StartDate;
  if (first > product.LastPurchased || product.Every == 0) return first;

  // Up to one step before the month of the last purchase every date lies before that purchase.
  const int last_month = MonthIndex(zone.ToCalendar(product.LastPurchased));
  const int skipped = std::max((last_month - month) / product.Every - 1, 0);
  month += skipped * product.Every;
  std::int64_t date = dates.In(month);
  while (date <= product.LastPurchased) {
    month += product.Every;
    const std::int64_t next = dates.In(month);
    if (next > kLatest) break;
    date = next;
  }
  return date;
}

}  // namespace

DateStamp NextDueDate(const ProductRecord& product, const LocalZone& zone) {
  switch (product.PurchaseKind) {
    case kOneTime:
      return product.LastPurchased == 0 ? product.StartDate : kNoDate;
    case kDaily:
      return SaturatedStamp(
          StepPast(product.StartDate, product.LastPurchased, product.DayValue * kSecondsPerDay));
    case kWeekly:
      return SaturatedStamp(NextWeekly(product, zone));
    case kMonthly:
      return SaturatedStamp(NextMonthly(product, zone));
  }
  return kNoDate;
}

std::uint16_t OverdueDays(DateStamp next_date, DateStamp now) {
  const std::uint32_t seconds =
      static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(next_date);
  return static_cast<std::uint16_t>(seconds / static_cast<std::uint32_t>(kSecondsPerDay));
}

}  // namespace brovanta
