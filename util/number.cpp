#include "util/number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace brovanta {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// What is left behind leading blanks, as the C library's conversions skip them.
std::string_view SkipBlanks(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

bool TakeSign(std::string_view& text) {
  if (text.empty() || (text[0] != '-' && text[0] != '+')) return false;
  const bool negative = text[0] == '-';
  text.remove_prefix(1);
  return negative;
}

// A digit, or a point with a digit behind it. Keeps out "nan" and "inf", which from_chars reads.
bool StartsNumber(std::string_view text) {
  if (!text.empty() && text[0] == '.') text.remove_prefix(1);
  return !text.empty() && IsDigit(text[0]);
}

}  // namespace

double LeadingDouble(std::string_view text) {
  text = SkipBlanks(text);
  const bool negative = TakeSign(text);
  if (!StartsNumber(text)) return 0.0;
  double number = 0.0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || !std::isfinite(number)) return 0.0;
  return negative ? -number : number;
}

std::int32_t LeadingInt(std::string_view text) {
  constexpr std::int64_t kBeyond = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  text = SkipBlanks(text);
  const bool negative = TakeSign(text);
  std::int64_t number = 0;
  for (const char character : text) {
    if (!IsDigit(character)) break;
    number = std::min(number * 10 + (character - '0'), kBeyond);
  }
  return static_cast<std::int32_t>(negative ? -number : std::min(number, kBeyond - 1));
}

std::string FormatTwoDecimals(double number) {
  // Sign, digits of the largest number, point, two decimals.
  std::array<char, std::numeric_limits<double>::max_exponent10 + 8> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::fixed, 2);
  return std::string(buffer.data(), result.ptr);
}

}  // namespace brovanta
