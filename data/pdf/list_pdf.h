// The shopping list as pages to print.
#pragma once

#include <string>

#include "data/list/shopping_list.h"

namespace brovanta::data_tool {

/// A PDF document of A4 pages with numbers, the columns' headings on each, and the store and
/// category again where a group goes on. A product stands with its remarks on one page. Empty when
/// it cannot be made.
[[nodiscard]] std::string ListAsPdf(const ShoppingList& list);

}  // namespace brovanta::data_tool
