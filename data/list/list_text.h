// The shopping list as plain text.
#pragma once

#include <string>

#include "data/list/shopping_list.h"

namespace brovanta::data_tool {

/// UTF-8 in aligned columns, for a terminal, a printer or a message. A product has a box to tick.
[[nodiscard]] std::string ListAsText(const ShoppingList& list);

}  // namespace brovanta::data_tool
