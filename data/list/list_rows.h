// The printed shopping list row by row, the same for every kind of page.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/list/shopping_list.h"

namespace brovanta::data_tool {

/// Columns; all but the first stand at the right of theirs.
enum Column : std::size_t {
  kProductColumn,
  kDueColumn,
  kQuantityColumn,
  kPriceColumn,
  kAmountColumn,
  kCouponsColumn,
  kTaxColumn,
  kToPayColumn,
  kColumnCount
};

inline constexpr std::array<std::string_view, kColumnCount> kColumnHeadings{
    "Product", "Due", "Quantity", "Price", "Amount", "Coupons", "Tax", "To pay"};

struct ListRow {
  enum class Kind {
    kStore,     ///< heading, only the first cell
    kCategory,  ///< heading below it, only the first cell
    kProduct,
    kRemark,  ///< of the product before it, only the first cell
    kSum,     ///< of a category or store
    kTotal,   ///< of everything
    kNote,    ///< a sentence about everything, only the first cell
  };
  Kind kind = Kind::kNote;
  std::array<std::string, kColumnCount> cells;
};

/// A store has a sum of its own where there are several, and a category of more than one product
/// where its store has several.
[[nodiscard]] std::vector<ListRow> RowsOf(const ShoppingList& list);

}  // namespace brovanta::data_tool
