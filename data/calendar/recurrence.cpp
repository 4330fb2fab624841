#include "data/calendar/recurrence.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string_view>

#include "db/schedule.h"

namespace brovanta::data_tool {
namespace {

using std::chrono::days;
using std::chrono::months;
using std::chrono::sys_days;
using std::chrono::weeks;
using std::chrono::year_month;
using std::chrono::year_month_day;
using std::chrono::year_month_day_last;

constexpr unsigned kShortestMonth = 28;
constexpr unsigned kLongestMonth = 31;

sys_days DayOf(DateStamp stamp, const LocalZone& zone) {
  const CalendarTime time = zone.ToCalendar(stamp);
  return year_month_day{std::chrono::year{time.year}, std::chrono::month{time.month},
                        std::chrono::day{time.day}};
}

std::string Every(std::string_view frequency, int interval) {
  std::string rule("FREQ=");
  rule += frequency;
  if (interval != 1) rule.append(";INTERVAL=").append(std::to_string(interval));
  return rule;
}

std::string_view WeekdayName(sys_days day) {
  constexpr std::array<std::string_view, 7> kNames{"SU", "MO", "TU", "WE", "TH", "FR", "SA"};
  return kNames[std::chrono::weekday{day}.c_encoding()];
}

// A day beyond the 28th stands for the last day of a month that is shorter: the last one there is
// of 28, 29 and so on up to it.
std::string DayOfMonthRule(unsigned day) {
  if (day <= kShortestMonth) return ";BYMONTHDAY=" + std::to_string(day);
  if (day >= kLongestMonth) return ";BYMONTHDAY=-1";
  std::string rule(";BYMONTHDAY=28");
  for (unsigned other = kShortestMonth + 1; other <= day; ++other) {
    rule.append(",").append(std::to_string(other));
  }
  return rule + ";BYSETPOS=-1";
}

// What the schedule says, before it is held against the due days.
class Schedule {
 public:
  Schedule(const ProductRecord& product, sys_days first) : product_(product), first_(first) {}

  [[nodiscard]] std::string Rule() const {
    switch (product_.PurchaseKind) {
      case kDaily:
        return Every("DAILY", product_.DayValue);
      case kWeekly: {
        std::string rule = Every("WEEKLY", product_.Every);
        return rule.append(";BYDAY=").append(WeekdayName(first_));
      }
      case kMonthly:
        return Every("MONTHLY", product_.Every) + DayOfMonthRule(DayOfMonth());
      default:
        return {};
    }
  }

  // The day that the rule has so many steps after the first.
  [[nodiscard]] sys_days Day(std::size_t step) const {
    const auto steps = static_cast<int>(step);
    switch (product_.PurchaseKind) {
      case kDaily:
        return first_ + days{steps * product_.DayValue};
      case kWeekly:
        return first_ + weeks{steps * product_.Every};
      default: {
        const year_month_day date{first_};
        const year_month month = date.year() / date.month() + months{steps * int{product_.Every}};
        const sys_days last = year_month_day_last{month / std::chrono::last};
        return std::min(last, sys_days{month / 1} + days{DayOfMonth() - 1});
      }
    }
  }

 private:
  [[nodiscard]] unsigned DayOfMonth() const {
    return std::clamp<unsigned>(product_.DayValue, 1, kLongestMonth);
  }

  const ProductRecord& product_;
  sys_days first_;
};

}  // namespace

std::vector<sys_days> DueDays(const ProductRecord& product, const LocalZone& zone,
                              std::size_t most) {
  std::vector<sys_days> result;
  ProductRecord bought = product;
  DateStamp due = NextDueDate(bought, zone);
  while (due != kNoDate && result.size() < most) {
    const sys_days day = DayOf(due, zone);
    if (result.empty() || day > result.back()) result.push_back(day);
    if (due <= bought.LastPurchased) break;  // the schedule does not go on
    bought.LastPurchased = due;
    const DateStamp next = NextDueDate(bought, zone);
    if (next <= due) break;
    due = next;
  }
  return result;
}

Recurrence RecurrenceOf(const ProductRecord& product, const LocalZone& zone) {
  std::vector<sys_days> due = DueDays(product, zone, std::numeric_limits<std::size_t>::max());
  Recurrence recurrence;
  recurrence.first = due.front();
  if (due.size() == 1) return recurrence;
  const Schedule schedule(product, due.front());
  bool same = true;
  for (std::size_t i = 0; i < due.size() && same; ++i) same = schedule.Day(i) == due[i];
  if (same) {
    recurrence.rule = schedule.Rule();
  } else {
    due.resize(std::min(due.size(), kListedDays));
    recurrence.further.assign(due.begin() + 1, due.end());
  }
  return recurrence;
}

}  // namespace brovanta::data_tool
