// A long list from real life: the products of a price archive, where the file is at hand.
#pragma once

#include <string>
#include <vector>

#include "db/shopping_database.h"

namespace brovanta::tour {

/// One line of the file: UTF-8 texts, prices with a point.
struct RealProduct {
  std::string name;
  std::string unit;
  std::string quantity;
  std::string unit_price;
  std::string category;
  std::string store;
};

/// The lines of a comma-separated file with a heading line (fields may be quoted); empty when the
/// file is not there.
[[nodiscard]] std::vector<RealProduct> ReadRealProducts(const std::string& path);

/// Enters them through the database, due one after the other over the four weeks from the date.
/// Returns how many were added.
int EnterRealProducts(ShoppingDatabase& database, const std::vector<RealProduct>& products,
                      DateStamp first_date);

}  // namespace brovanta::tour
