// Numbers in the byte order of the data files, whatever the machine's own.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace brovanta {

/// The number (integer or double) whose sizeof(T) little-endian bytes start at `from`.
template <typename T>
[[nodiscard]] T LoadLittle(const std::byte* from) {
  static_assert(std::is_arithmetic_v<T>);
  std::array<std::byte, sizeof(T)> bytes;
  std::copy_n(from, sizeof(T), bytes.begin());
  if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
  return std::bit_cast<T>(bytes);
}

/// Puts the number's sizeof(T) bytes to `to`.
template <typename T>
void StoreLittle(std::byte* to, T value) {
  static_assert(std::is_arithmetic_v<T>);
  auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
  if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
  std::copy_n(bytes.begin(), sizeof(T), to);
}

}  // namespace brovanta
