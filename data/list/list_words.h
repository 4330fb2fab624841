// The words of the printed shopping list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/list/shopping_list.h"

namespace brovanta::data_tool {

/// "Shopping list, Nov 21, 2026", with the store behind it when one was asked for.
[[nodiscard]] std::string TitleOf(const ShoppingList& list);

/// "Nov 21, 2026", or "Unknown date".
[[nodiscard]] std::string DayText(DateStamp stamp);

/// What has to be said of a line beside its numbers, a sentence each: why it has no price, what
/// became of each coupon, its notes.
[[nodiscard]] std::vector<std::string> RemarksOf(const ListLine& line);

/// "2 products without a price are in no sum."; empty when there is none.
[[nodiscard]] std::string WithoutPriceWords(std::size_t count);

}  // namespace brovanta::data_tool
