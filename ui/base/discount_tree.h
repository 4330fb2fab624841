// Fills a record tree with discounts, for the main screen and the coupon picker.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "db/shopping_database.h"
#include "ui/base/date_headings.h"

namespace brovanta {

class RecordTree;

/// How a screen shows the rows.
struct DiscountTreeLook {
  HeadingBlanks blanks = {};
  std::string (*coupon_name)(std::string_view stored) = nullptr;  ///< nullptr = as it stands
  QString (*store_name)(const QString& name) = nullptr;           ///< likewise
};

/// Empties the tree, loads the database's discounts with the filter and shows them under the days
/// of their stamps. The query's code; with an error the tree stays empty.
[[nodiscard]] int FillDiscountTree(RecordTree& tree, ShoppingDatabase& database,
                                   const DiscountFilter& filter, const DiscountTreeLook& look = {});

}  // namespace brovanta
