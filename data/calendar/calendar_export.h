// The shopping list for a calendar.
#pragma once

#include <string>

#include "data/list/shopping_data.h"

namespace brovanta::data_tool {

/// A calendar file (RFC 5545) with an all-day event for each product that has a due date: an event
/// and no to-do, because the calendars of phones show nothing else. Its UID is the product's id, so
/// that a file imported later replaces what was there.
[[nodiscard]] std::string CalendarOf(const ShoppingData& data);

}  // namespace brovanta::data_tool
