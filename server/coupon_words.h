// The kinds of coupons as words: one form for tables, one for people.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "server/entries.h"

namespace brovanta::server {

/// "coupon", "deal".
[[nodiscard]] std::string_view Word(CouponSource source);
/// "internet code", "store coupon", "mail in rebate".
[[nodiscard]] std::string_view Word(CouponType type);
/// "percent", "amount".
[[nodiscard]] std::string_view Word(ValueType type);

/// The value of a word; nothing for any other text.
[[nodiscard]] std::optional<CouponSource> SourceFromWord(std::string_view word);
[[nodiscard]] std::optional<CouponType> TypeFromWord(std::string_view word);
[[nodiscard]] std::optional<ValueType> ValueTypeFromWord(std::string_view word);

/// The value of a number; nothing for any other number.
[[nodiscard]] std::optional<CouponSource> SourceFromNumber(std::int64_t number);
[[nodiscard]] std::optional<CouponType> TypeFromNumber(std::int64_t number);
[[nodiscard]] std::optional<ValueType> ValueTypeFromNumber(std::int64_t number);

/// "Internet Code", "Store Coupon", "Mail In Rebate", as the program names them.
[[nodiscard]] std::string_view Title(CouponType type);

/// "20% off" or "$1.50 off".
[[nodiscard]] std::string ValueInWords(const Coupon& coupon);

}  // namespace brovanta::server
