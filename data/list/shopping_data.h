// The records of a data folder that a shopping list is made of.
#pragma once

#include <vector>

#include "db/name_list.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// Records in the order of their files, deleted ones included.
struct ShoppingData {
  std::vector<ProductRecord> products;
  std::vector<DiscountRecord> discounts;
  NameList stores;
  NameList categories;
  NameList units;
};

}  // namespace brovanta::data_tool
