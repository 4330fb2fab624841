// The main screen's filter, which both queries are run with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "db/discount_list.h"
#include "db/product_list.h"

namespace brovanta {

/// Fields in the order of ProductFilter.
struct RecordFilter {
  std::int32_t kind = kProductKind;
  std::uint32_t store_id = 0;     ///< 0 = all stores
  std::uint32_t category_id = 0;  ///< 0 = all categories
  DateStamp period_start = kNoDate;
  DateStamp period_end = kNoDate;  ///< inclusive
  std::optional<std::string> find_text;
};

[[nodiscard]] ProductFilter AsProductFilter(const RecordFilter& filter);

/// The period's start becomes the date on which a discount must not have expired, and its end the
/// date before which it must not have started.
[[nodiscard]] DiscountFilter AsDiscountFilter(const RecordFilter& filter);

}  // namespace brovanta
