// The due dates of a product as a calendar knows such things: a first day and a rule.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "db/records.h"
#include "util/local_zone.h"

namespace brovanta::data_tool {

/// So many days are listed where no rule has them all.
inline constexpr std::size_t kListedDays = 100;

struct Recurrence {
  std::chrono::sys_days first;  ///< the next due day, in the past where the product is overdue
  std::string rule;             ///< of an RRULE; empty: there is none
  std::vector<std::chrono::sys_days> further;  ///< without a rule, the days after the first
};

/// The local days on which the product is due from its next due date on, if each is bought on its
/// day: in ascending order, each once, `most` at most. Empty when it has no due date.
[[nodiscard]] std::vector<std::chrono::sys_days> DueDays(const ProductRecord& product,
                                                         const LocalZone& zone, std::size_t most);

/// The rule of the product's schedule where that has exactly its due days, to the last one that a
/// file can hold; else (a purchase after a change of the clocks near midnight) the next days. The
/// product must have a due date.
[[nodiscard]] Recurrence RecurrenceOf(const ProductRecord& product, const LocalZone& zone);

}  // namespace brovanta::data_tool
