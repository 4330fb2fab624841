// Exact decimal arithmetic for prices: what is typed as 0.1 counts as 0.1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace brovanta::data_tool {

/// Hundredths of the currency.
using Cents = std::int64_t;

/// No price, quantity, line or tax is larger: 999,999,999.99. Ninety million such lines can be
/// added up.
inline constexpr Cents kLargestAmount = 99'999'999'999;

/// A number of the files as the shortest decimal that reads back as the same binary number, so at
/// most 17 digits: what a person has typed.
class Decimal {
 public:
  Decimal() = default;
  Decimal(std::uint64_t digits, int exponent) : digits_(digits), exponent_(exponent) {}

  /// Nothing when the number is not finite.
  [[nodiscard]] static std::optional<Decimal> From(double number);

  [[nodiscard]] bool IsZero() const { return digits_ == 0; }
  [[nodiscard]] bool IsNegative() const { return negative_; }  ///< never of zero

  /// The number as it is, with so many decimals at least and six at most; one that has more is
  /// rounded to six and has "~" before it. The number must not be beyond kLargestAmount.
  [[nodiscard]] std::string Text(std::size_t least_decimals) const;

  // Everything below rounds once, to whole cents, half away from zero; the sign does not count.
  // Nothing when the result is above kLargestAmount.
  [[nodiscard]] std::optional<Cents> Rounded() const;
  [[nodiscard]] std::optional<Cents> Times(const Decimal& other) const;
  /// So many percent of an amount, which is 0 to kLargestAmount.
  [[nodiscard]] std::optional<Cents> PercentOf(Cents amount) const;

  friend bool operator==(const Decimal&, const Decimal&) = default;

 private:
  std::uint64_t digits_ = 0;  ///< below 10^17
  int exponent_ = 0;          ///< of the last digit, to base 10
  bool negative_ = false;
};

/// Adds to a sum; false, and the sum as it was, when it would be more than Cents can hold.
[[nodiscard]] bool AddTo(Cents& sum, Cents amount);

/// "1234.50", "-0.05".
[[nodiscard]] std::string AmountText(Cents amount);

}  // namespace brovanta::data_tool
