#include "util/crc32.h"

#include <gtest/gtest.h>

#include <string_view>

namespace brovanta {
namespace {

std::span<const std::byte> BytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

TEST(Crc32Test, GivesThePublishedCheckValue) {
  EXPECT_EQ(Crc32(BytesOf("123456789")), 0xCBF43926u);
}

TEST(Crc32Test, NothingHasTheSumZero) { EXPECT_EQ(Crc32({}), 0u); }

TEST(Crc32Test, AnySplitGivesTheSumOfTheWhole) {
  const std::string_view text = "123456789";
  for (std::size_t i = 0; i <= text.size(); ++i) {
    EXPECT_EQ(Crc32(BytesOf(text.substr(i)), Crc32(BytesOf(text.substr(0, i)))), 0xCBF43926u);
  }
}

TEST(Crc32Test, OneChangedBitChangesTheSum) {
  EXPECT_NE(Crc32(BytesOf("123456788")), Crc32(BytesOf("123456789")));
}

}  // namespace
}  // namespace brovanta
