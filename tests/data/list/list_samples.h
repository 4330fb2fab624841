// Records for the tests of the shopping list.
#pragma once

#include <string>
#include <string_view>

#include "data/list/shopping_data.h"
#include "data/list/shopping_list.h"
#include "db/schedule.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool::test_list {

/// Midnight of 2026-11-21, a Saturday: 56 years of which 14 are leap years, and 324 days.
inline constexpr DateStamp kMidnight = ((56 * 365 + 14) + 324) * 86400;
/// That day at 01:00, as the dialogs store it.
inline constexpr DateStamp kToday = kMidnight + 3600;
inline constexpr DateStamp kDay = 86400;

inline constexpr std::int16_t kCode = 1;
inline constexpr std::int16_t kStoreCoupon = 2;
inline constexpr std::int16_t kRebate = 3;
inline constexpr std::uint16_t kPercent = 1;
inline constexpr std::uint16_t kAmount = 2;

inline CalendarTime Date(int year, int month, int day) {
  CalendarTime date;
  date.year = static_cast<std::uint16_t>(year);
  date.month = static_cast<std::uint16_t>(month);
  date.day = static_cast<std::uint16_t>(day);
  return date;
}

inline ProductRecord Product(std::string_view name, double quantity, double price) {
  ProductRecord product;
  product.Name = FixedText<kNameSize>(name);
  product.PurchaseKind = kOneTime;
  product.StartDate = kToday;
  product.Quantity = quantity;
  product.UnitPrice = price;
  return product;
}

inline DiscountRecord Coupon(std::int32_t id, std::int16_t type, std::uint16_t value_type,
                             double value) {
  DiscountRecord coupon;
  coupon.Id = id;
  coupon.Name = FixedText<kNameSize>("Coupon " + std::to_string(id));
  coupon.Type = type;
  coupon.ValueType = value_type;
  coupon.Value = value;
  return coupon;
}

/// Links the discount as a person does who picks it.
inline void Link(ProductRecord& product, std::size_t slot, const DiscountRecord& discount) {
  product.Discounts[slot] = {static_cast<std::uint32_t>(discount.Id), discount.Source,
                             discount.Type};
}

inline void Name(NameList& names, std::int32_t id, std::string_view name) {
  names.Insert({id, FixedText<kNameSize>(name), 0});
}

inline ListRequest Today(PeriodKind kind = PeriodKind::kDay) {
  return {kind, Date(2026, 11, 21), std::nullopt};
}

/// The clock stands at noon of that day, in UTC.
struct AtNoon {
  test::ZoneGuard zone{"UTC"};
  test::FixedClock clock{kMidnight + kDay / 2};
};

/// A small household: two stores, a coupon of each kind, something overdue, something without a
/// price.
inline ShoppingData SampleData() {
  ShoppingData data;
  Name(data.stores, 5000, "Corner Shop");
  Name(data.stores, 5001, "Bj\xF6rn & Co <Hardware>");
  Name(data.categories, 5000, "Dairy");
  Name(data.categories, 5001, "Household");
  Name(data.units, 5000, "bottle");
  data.discounts = {Coupon(5, kStoreCoupon, kAmount, 0.5), Coupon(6, kRebate, kPercent, 20)};
  data.products = {Product("Milk", 2, 1.5), Product("K\xE4se", 0.35, 11.9),
                   Product("Soap \"Rose\"", 3, 0.99), Product("Lamp", 1, 20),
                   Product("Nails", 0, 0)};
  for (const std::size_t i : {0U, 1U, 2U}) data.products[i].StoreId = 5000;
  for (const std::size_t i : {3U, 4U}) data.products[i].StoreId = 5001;
  data.products[0].CategoryId = 5000;
  data.products[1].CategoryId = 5000;
  data.products[2].CategoryId = 5001;
  data.products[0].UnitId = 5000;
  data.products[0].TaxPercent = 7;
  data.products[3].TaxPercent = 19;
  data.products[1].StartDate -= 3 * kDay;
  data.products[3].Notes = FixedText<kLongTextSize>("E27, warm");
  data.products[4].PurchaseKind = kUnscheduled;
  Link(data.products[0], 0, data.discounts[0]);
  Link(data.products[3], 2, data.discounts[1]);
  return data;
}

inline ShoppingList Sample() { return BuildShoppingList(SampleData(), Today()).value(); }

}  // namespace brovanta::data_tool::test_list
