#include "db/key_sort.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace brovanta {
namespace {

constexpr std::size_t kDigitBits = 11;
constexpr std::size_t kDigits = 3;  // enough for 32 bits
constexpr std::size_t kDigitValues = std::size_t{1} << kDigitBits;

// Below this, comparing is faster than counting digits.
constexpr std::size_t kFewNumbers = 1000;

std::size_t Digit(std::uint64_t number, std::size_t digit) {
  return number >> (32 + digit * kDigitBits) & (kDigitValues - 1);
}

// Moves every number behind those with a smaller digit, in order.
void SortByDigit(std::vector<std::uint64_t>& numbers, std::vector<std::uint64_t>& sorted,
                 std::size_t digit) {
  std::array<std::size_t, kDigitValues> places{};
  for (const std::uint64_t number : numbers) ++places[Digit(number, digit)];
  std::size_t place = 0;
  for (std::size_t& count : places) {
    const std::size_t first = place;
    place += count;
    count = first;
  }
  for (const std::uint64_t number : numbers) sorted[places[Digit(number, digit)]++] = number;
  numbers.swap(sorted);
}

}  // namespace

void SortByUpperHalf(std::vector<std::uint64_t>& numbers) {
  const auto before = [](std::uint64_t left, std::uint64_t right) {
    return left >> 32 < right >> 32;
  };
  if (std::is_sorted(numbers.begin(), numbers.end(), before)) return;
  if (numbers.size() < kFewNumbers) {
    std::stable_sort(numbers.begin(), numbers.end(), before);
    return;
  }
  std::vector<std::uint64_t> sorted(numbers.size());
  for (std::size_t digit = 0; digit < kDigits; ++digit) SortByDigit(numbers, sorted, digit);
}

}  // namespace brovanta
