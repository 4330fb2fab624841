// The table of coupons and deals.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "server/entries.h"
#include "server/table_reader.h"

namespace brovanta::server {

/// Reads the coupons of a whole file, in its order. Whether stores and categories exist is not
/// looked at here.
[[nodiscard]] Table<Coupon> ReadCouponTable(std::string_view text);

/// The table in the form that ReadCouponTable reads, column names first.
[[nodiscard]] std::string WriteCouponTable(std::span<const Coupon> coupons);

}  // namespace brovanta::server
