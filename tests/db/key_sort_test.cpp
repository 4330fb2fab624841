#include "db/key_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

namespace brovanta {
namespace {

std::uint64_t Number(std::uint32_t upper, std::uint32_t lower) {
  return std::uint64_t{upper} << 32 | lower;
}

/// Insertion of one number after the other behind all that are not larger.
std::vector<std::uint64_t> InsertedOneByOne(const std::vector<std::uint64_t>& numbers) {
  std::vector<std::uint64_t> sorted;
  for (const std::uint64_t number : numbers) {
    const auto place = std::find_if(sorted.begin(), sorted.end(), [&](std::uint64_t other) {
      return other >> 32 > number >> 32;
    });
    sorted.insert(place, number);
  }
  return sorted;
}

TEST(KeySortTest, OrdersByTheUpperHalfAlone) {
  std::vector<std::uint64_t> numbers{Number(0xFFFFFFFF, 1), Number(0, 9), Number(0x80000000, 5)};
  SortByUpperHalf(numbers);
  EXPECT_EQ(numbers, (std::vector<std::uint64_t>{Number(0, 9), Number(0x80000000, 5),
                                                 Number(0xFFFFFFFF, 1)}));
}

TEST(KeySortTest, EqualUpperHalvesKeepTheirOrder) {
  std::vector<std::uint64_t> numbers{Number(2, 1), Number(1, 9), Number(1, 3), Number(1, 5)};
  SortByUpperHalf(numbers);
  EXPECT_EQ(numbers,
            (std::vector<std::uint64_t>{Number(1, 9), Number(1, 3), Number(1, 5), Number(2, 1)}));
}

TEST(KeySortTest, NothingAndOneNumberStayAsTheyAre) {
  std::vector<std::uint64_t> numbers;
  SortByUpperHalf(numbers);
  EXPECT_TRUE(numbers.empty());
  numbers = {Number(7, 7)};
  SortByUpperHalf(numbers);
  EXPECT_EQ(numbers, (std::vector<std::uint64_t>{Number(7, 7)}));
}

TEST(KeySortTest, FewAndManyNumbersAreOrderedAsByInsertion) {
  std::mt19937 random(3);
  for (const std::size_t size : {2U, 10U, 999U, 1000U, 4000U}) {
    for (const std::uint32_t mask : {0U, 3U, 0x7FFU, 0x3FF800U, 0xFFC00000U, 0xFFFFFFFFU}) {
      std::vector<std::uint64_t> numbers(size);
      for (std::uint64_t& number : numbers) {
        const auto upper = static_cast<std::uint32_t>(random()) & mask;
        number = Number(upper, static_cast<std::uint32_t>(random()));
      }
      const std::vector<std::uint64_t> expected = InsertedOneByOne(numbers);
      SortByUpperHalf(numbers);
      ASSERT_EQ(numbers, expected) << size << " numbers, mask " << mask;
    }
  }
}

}  // namespace
}  // namespace brovanta
