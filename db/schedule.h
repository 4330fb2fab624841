// Due dates: when a product is to be bought next, and how long that has been due.
#pragma once

#include <cstdint>

#include "db/records.h"
#include "util/local_zone.h"

namespace brovanta {

/// Values of ProductRecord::PurchaseKind.
inline constexpr std::uint16_t kUnscheduled = 0;
inline constexpr std::uint16_t kOneTime = 1;
inline constexpr std::uint16_t kDaily = 2;
inline constexpr std::uint16_t kWeekly = 3;
inline constexpr std::uint16_t kMonthly = 4;

/// The next due date of a product with one of the schedules 1 to 4, from `PurchaseKind`, `Every`,
/// `DayValue`, `StartDate` and `LastPurchased`; 0 for any other kind and for a one-time product
/// that has been bought. Daily and weekly steps are whole multiples of 86400 seconds, so that the
/// hour may move with daylight saving. A weekly `DayValue` of 7 is Sunday; above 7 the date is not
/// moved to a weekday. A monthly `DayValue` is lowered to the length of each month, and 0 counts as
/// the first day. An interval of 0 leaves the date where it is, and a step that would leave the
/// range of a stamp stops at the last date that fits, `StartDate` at the worst: nothing hangs, and
/// the record can be seen and corrected.
[[nodiscard]] DateStamp NextDueDate(const ProductRecord& product, const LocalZone& zone);

/// Whole days from the due date to now in unsigned 32-bit arithmetic, low 16 bits: kept, so that a
/// date one day ahead gives 49709.
[[nodiscard]] std::uint16_t OverdueDays(DateStamp next_date, DateStamp now);

}  // namespace brovanta
