// The shopping list as a web page.
#pragma once

#include <string>

#include "data/list/shopping_list.h"

namespace brovanta::data_tool {

/// One page that needs nothing else, UTF-8, well-formed as XML too: a table that prints well, and
/// on a narrow screen a block for each product, with a box to tick.
[[nodiscard]] std::string ListAsHtml(const ShoppingList& list);

}  // namespace brovanta::data_tool
