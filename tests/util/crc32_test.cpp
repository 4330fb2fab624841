#include "util/crc32.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brovanta {
namespace {

std::span<const std::byte> BytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

TEST(Crc32Test, GivesThePublishedCheckValue) {
  EXPECT_EQ(Crc32(BytesOf("123456789")), 0xCBF43926u);
}

TEST(Crc32Test, GivesTheKnownSumOfALongerText) {
  EXPECT_EQ(Crc32(BytesOf("The quick brown fox jumps over the lazy dog")), 0x414FA339u);
}

// The definition itself: a division, one bit after the other.
std::uint32_t SumByBits(std::string_view text) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char letter : text) {
    sum ^= static_cast<unsigned char>(letter);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320u : 0u);
  }
  return ~sum;
}

TEST(Crc32Test, IsTheRemainderOfTheDivisionWhateverTheLength) {
  std::string text;
  for (int i = 0; i < 70; ++i) {
    EXPECT_EQ(Crc32(BytesOf(text)), SumByBits(text)) << text.size() << " bytes";
    text += static_cast<char>(i * 37 + 200);
  }
}

TEST(Crc32Test, NothingHasTheSumZero) { EXPECT_EQ(Crc32({}), 0u); }

TEST(Crc32Test, AnySplitGivesTheSumOfTheWhole) {
  const std::string_view text = "123456789";
  for (std::size_t i = 0; i <= text.size(); ++i) {
    EXPECT_EQ(Crc32(BytesOf(text.substr(i)), Crc32(BytesOf(text.substr(0, i)))), 0xCBF43926u);
  }
  // So long that both parts hold pieces of sixteen bytes, and what is left over.
  const std::string_view longer = "The quick brown fox jumps over the lazy dog";
  for (std::size_t i = 0; i <= longer.size(); ++i) {
    EXPECT_EQ(Crc32(BytesOf(longer.substr(i)), Crc32(BytesOf(longer.substr(0, i)))), 0x414FA339u);
  }
}

TEST(Crc32Test, OneChangedBitChangesTheSum) {
  EXPECT_NE(Crc32(BytesOf("123456788")), Crc32(BytesOf("123456789")));
}

}  // namespace
}  // namespace brovanta
