// The shopping list of a period as it is printed: by store and category, with what it costs.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "data/list/line_price.h"
#include "data/list/shopping_data.h"
#include "util/calendar_period.h"

namespace brovanta::data_tool {

/// Every text here is UTF-8 on one line, without control characters.
struct ListLine {
  std::string name;
  std::string unit;   ///< empty: none
  std::string notes;  ///< empty: none
  DateStamp due = kNoDate;
  bool overdue = false;    ///< due before the period, or before today within it
  std::string quantity;    ///< "2", "0.5"; empty when it is no number that can be shown
  std::string unit_price;  ///< "1.50"; empty likewise, and when none was entered
  LinePrice price;         ///< names of coupons: UTF-8 here too
};

struct CategoryGroup {
  std::string name;  ///< empty: no category
  std::vector<ListLine> lines;
  Amounts sum;
};

struct StoreGroup {
  std::string name;  ///< empty: no store
  std::vector<CategoryGroup> categories;
  Amounts sum;
};

struct ShoppingList {
  std::string period;  ///< its heading: "Nov 21, 2026"
  std::string store;   ///< the one that was asked for, empty: all
  std::vector<StoreGroup> stores;
  Amounts sum;
  std::size_t lines = 0;
  std::size_t without_price = 0;  ///< lines that are in no sum
};

struct ListRequest {
  PeriodKind period = PeriodKind::kDay;
  CalendarTime date;                 ///< a day of the period
  std::optional<std::string> store;  ///< as stored; letter case does not count
};

/// Whether a store of this name is in the list of stores.
[[nodiscard]] bool HasStore(const ShoppingData& data, const std::string& name);

/// The products that the main screen shows for the period, each with the coupons that are good on
/// the day of buying: the day it is due, or today (within the period) or the period's first day
/// when it is due earlier or has no date. Groups and lines go by name, those without a store or a
/// category last; stores of one name are one group. Nothing when the sums are too large for Cents.
[[nodiscard]] std::optional<ShoppingList> BuildShoppingList(const ShoppingData& data,
                                                            const ListRequest& request);

}  // namespace brovanta::data_tool
