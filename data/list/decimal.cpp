#include "data/list/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace brovanta::data_tool {
namespace {

// Two numbers of 17 digits have a product of 34, and this holds 38.
__extension__ using Wide = unsigned __int128;
constexpr int kWideDigits = 38;
constexpr std::size_t kMostDecimals = 6;

Wide PowerOfTen(int exponent) {
  Wide power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

// The number of 10^exponent, rounded to a whole one, half upwards; nothing when it is above limit.
std::optional<std::uint64_t> Whole(Wide number, int exponent, std::uint64_t limit) {
  for (; exponent > 0 && number != 0 && number <= limit; --exponent) number *= 10;
  if (number != 0 && exponent > 0) return std::nullopt;
  if (exponent < -kWideDigits) return 0;  // at most 35 digits are far below a half
  if (exponent < 0) {
    const Wide unit = PowerOfTen(-exponent);
    number = (number + unit / 2) / unit;
  }
  if (number > limit) return std::nullopt;
  return static_cast<std::uint64_t>(number);
}

std::optional<Cents> AsCents(Wide number, int exponent) {
  const auto cents = Whole(number, exponent + 2, kLargestAmount);
  if (!cents) return std::nullopt;
  return static_cast<Cents>(*cents);
}

// The digits with the point so many places from the right, without zeros that say nothing.
std::string WithPoint(std::uint64_t number, std::size_t places, std::size_t least_decimals) {
  std::string text = std::to_string(number);
  if (text.size() <= places) text.insert(0, places + 1 - text.size(), '0');
  for (; places > least_decimals && text.back() == '0'; --places) text.pop_back();
  if (places > 0) text.insert(text.size() - places, 1, '.');
  return text;
}

}  // namespace

std::optional<Decimal> Decimal::From(double number) {
  if (!std::isfinite(number)) return std::nullopt;
  std::array<char, 40> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific);
  // "-1.2345e+06": one digit before the point.
  Decimal decimal;
  const char* at = text.data();
  bool behind_point = false;
  for (; at != end.ptr && *at != 'e'; ++at) {
    if (*at == '-') {
      decimal.negative_ = true;
    } else if (*at == '.') {
      behind_point = true;
    } else {
      decimal.digits_ = decimal.digits_ * 10 + static_cast<std::uint64_t>(*at - '0');
      decimal.exponent_ -= behind_point ? 1 : 0;
    }
  }
  int exponent = 0;
  std::from_chars(at + (at[1] == '+' ? 2 : 1), end.ptr, exponent);
  decimal.exponent_ += exponent;
  if (decimal.digits_ == 0) return Decimal();
  for (; decimal.digits_ % 10 == 0; ++decimal.exponent_) decimal.digits_ /= 10;
  return decimal;
}

std::string Decimal::Text(std::size_t least_decimals) const {
  constexpr auto kPlaces = static_cast<int>(kMostDecimals);
  const std::uint64_t limit = static_cast<std::uint64_t>(kLargestAmount) * 10'000;
  const bool exact = exponent_ >= -kPlaces;
  const std::uint64_t millionths = Whole(digits_, exponent_ + kPlaces, limit).value_or(limit);
  std::string text(exact ? "" : "~");
  if (negative_) text += '-';
  return text += WithPoint(millionths, kMostDecimals, std::min(least_decimals, kMostDecimals));
}

std::optional<Cents> Decimal::Rounded() const { return AsCents(digits_, exponent_); }

std::optional<Cents> Decimal::Times(const Decimal& other) const {
  return AsCents(Wide{digits_} * other.digits_, exponent_ + other.exponent_);
}

std::optional<Cents> Decimal::PercentOf(Cents amount) const {
  // The amount is in hundredths already, and percent are hundredths too.
  return AsCents(Wide{digits_} * static_cast<std::uint64_t>(amount), exponent_ - 4);
}

bool AddTo(Cents& sum, Cents amount) {
  Cents result = 0;
  if (__builtin_add_overflow(sum, amount, &result)) return false;
  sum = result;
  return true;
}

std::string AmountText(Cents amount) {
  // Negated as unsigned: the smallest number has no counterpart.
  const auto bits = static_cast<std::uint64_t>(amount);
  std::string text(amount < 0 ? "-" : "");
  return text += WithPoint(amount < 0 ? 0 - bits : bits, 2, 2);
}

}  // namespace brovanta::data_tool
