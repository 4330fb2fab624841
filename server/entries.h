// What the server keeps and hands out. Texts are UTF-8 and have passed the text rules.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "server/calendar_day.h"

namespace brovanta::server {

/// A store or a category.
struct ListEntry {
  std::int32_t id = 0;
  std::string name;

  friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

/// Handhelds give their own names ids from 5000 up and ask only above their highest id below 4999.
inline constexpr std::int32_t kMaxListId = 4998;
inline constexpr std::int32_t kMaxCouponId = std::numeric_limits<std::int32_t>::max();

/// The two id spaces of discounts; the numbers are those of the feed.
enum class CouponSource { kCoupon = 1, kDeal = 2 };

enum class CouponType { kInternetCode = 1, kStoreCoupon = 2, kMailInRebate = 3 };

enum class ValueType { kPercent = 1, kAmount = 2 };

struct Coupon {
  CouponSource source = CouponSource::kCoupon;
  std::int32_t id = 0;
  std::string name;
  std::string product;
  std::string description;
  CouponType type = CouponType::kStoreCoupon;
  ValueType value_type = ValueType::kAmount;
  std::string value;  ///< digits, perhaps a point and decimals: kept and sent as written
  std::optional<Day> start_date;
  std::optional<Day> end_date;
  std::int32_t store_id = 0;
  std::int32_t category_id = 0;

  friend bool operator==(const Coupon&, const Coupon&) = default;
};

/// A coupon with the names that its ids stand for.
struct CouponView {
  Coupon coupon;
  std::string store;
  std::string category;
};

}  // namespace brovanta::server
