// Numbers as text, always with a point: the process's locale has no say in files and fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brovanta {

/// Characters of a number field that are read; the rest is ignored.
inline constexpr std::size_t kNumberFieldLength = 20;

/// The leading decimal number of the text: blanks, sign, digits, point, exponent. 0.0 when there is
/// none or when it is not finite; "nan", "infinity" and hexadecimal forms are no numbers.
[[nodiscard]] double LeadingDouble(std::string_view text);

/// The leading decimal integer of the text: blanks, sign, digits. 0 when there is none; saturated
/// to 32 bits.
[[nodiscard]] std::int32_t LeadingInt(std::string_view text);

/// The number with two decimals, as "%.2f" writes it.
[[nodiscard]] std::string FormatTwoDecimals(double number);

}  // namespace brovanta
