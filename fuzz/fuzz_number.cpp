// Any text as a number, and any eight bytes as a double: the same as the C library gives in its own
// locale, but for what is no number here.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "util/number.h"

namespace brovanta {
namespace {

using fuzz::Require;

void RunInt(const std::string& text) {
  constexpr long long kMin = std::numeric_limits<std::int32_t>::min();
  constexpr long long kMax = std::numeric_limits<std::int32_t>::max();
  const long long expected = std::clamp(std::strtoll(text.c_str(), nullptr, 10), kMin, kMax);
  Require(LeadingInt(text) == expected, "the leading integer");
}

void RunDouble(const std::string& text) {
  const double number = LeadingDouble(text);
  Require(std::isfinite(number), "always finite");
  char* end = nullptr;
  const double expected = std::strtod(text.c_str(), &end);
  const std::string read = text.substr(0, static_cast<std::size_t>(end - text.c_str()));
  if (read.find_first_of("xXnN") != std::string::npos || !std::isfinite(expected)) {
    Require(number == 0.0, "names and hexadecimal forms are no numbers");
  } else {
    Require(number == expected, "the leading number");
  }
}

void RunFormat(double number) {
  std::array<char, 400> buffer;
  std::snprintf(buffer.data(), buffer.size(), "%.2f", number);
  if (!std::isnan(number)) {
    Require(FormatTwoDecimals(number) == buffer.data(), "two decimals");
  }
  if (std::isfinite(number)) {
    const double again = LeadingDouble(FormatTwoDecimals(number));
    Require(std::fabs(again - number) <= 0.005 + std::fabs(number) * 1e-15, "and back");
  }
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The C library stops at a zero byte.
  std::string text(reinterpret_cast<const char*>(data), size);
  text = text.substr(0, text.find('\0'));
  brovanta::RunInt(text);
  brovanta::RunDouble(text);
  double number = 0.0;
  std::memcpy(&number, data, std::min(size, sizeof number));
  brovanta::RunFormat(number);
  return 0;
}
