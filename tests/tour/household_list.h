// The list of an ordinary household: what the tour's user types in.
#pragma once

#include <QString>
#include <vector>

namespace brovanta::tour {

/// One product as its fields are filled in. Texts that are empty are left alone.
struct HouseholdProduct {
  const char* name;
  const char* unit;
  const char* quantity;
  const char* price;
  const char* category;
  const char* store;
  const char* type;  ///< text of the purchase type
  const char* day;   ///< text of the day field; of a one-time product the date, month/day/year
  const char* notes;
};

/// At least 25 products in all 13 purchase types, several stores and categories, UTF-8.
[[nodiscard]] const std::vector<HouseholdProduct>& HouseholdList();

}  // namespace brovanta::tour
