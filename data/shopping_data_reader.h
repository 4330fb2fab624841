// Reads what a shopping list is made of out of a data folder.
#pragma once

#include <optional>
#include <string>

#include "data/folder_reader.h"
#include "data/list/shopping_data.h"

namespace brovanta::data_tool {

/// Products, discounts and the three lists as they are at one moment; a missing file counts as an
/// empty one. Changes nothing, and the program may run. Nothing when the folder is none of ours, is
/// being changed, or holds one of these files damaged: half a list would be taken for the whole.
[[nodiscard]] std::optional<ShoppingData> ReadShoppingData(const std::string& folder,
                                                           ReadProblem& problem);

}  // namespace brovanta::data_tool
