#include "util/crc32.h"

#include <array>

namespace brovanta {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::size_t kStep = 16;

using Table = std::array<std::uint32_t, 256>;

// Table k has the remainders of a byte with k zero bytes behind it, so that the sum of sixteen
// bytes is put together from as many tables that do not wait for each other.
constexpr std::array<Table, kStep> MakeTables() {
  std::array<Table, kStep> tables{};
  for (std::uint32_t i = 0; i < tables[0].size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
    tables[0][i] = value;
  }
  for (std::size_t k = 1; k < kStep; ++k) {
    for (std::size_t i = 0; i < tables[k].size(); ++i) {
      const std::uint32_t before = tables[k - 1][i];
      tables[k][i] = (before >> 8) ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}

constexpr std::array<Table, kStep> kTables = MakeTables();

std::uint32_t At(std::span<const std::byte> bytes, std::size_t index) {
  return std::to_integer<std::uint32_t>(bytes[index]);
}

std::uint32_t FourAt(std::span<const std::byte> bytes, std::size_t index) {
  return At(bytes, index) | At(bytes, index + 1) << 8 | At(bytes, index + 2) << 16 |
         At(bytes, index + 3) << 24;
}

// Of four bytes, the last of which has as many bytes of the step behind it.
std::uint32_t SumOfFour(std::uint32_t four, std::size_t behind) {
  return kTables[behind + 3][four & 0xFF] ^ kTables[behind + 2][(four >> 8) & 0xFF] ^
         kTables[behind + 1][(four >> 16) & 0xFF] ^ kTables[behind][four >> 24];
}

std::uint32_t SumOfStep(std::span<const std::byte> bytes, std::uint32_t sum) {
  return SumOfFour(FourAt(bytes, 0) ^ sum, 12) ^ SumOfFour(FourAt(bytes, 4), 8) ^
         SumOfFour(FourAt(bytes, 8), 4) ^ SumOfFour(FourAt(bytes, 12), 0);
}

}  // namespace

std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t sum = ~before;
  for (; bytes.size() >= kStep; bytes = bytes.subspan(kStep)) sum = SumOfStep(bytes, sum);
  for (const std::byte byte : bytes) {
    sum = (sum >> 8) ^ kTables[0][(sum ^ std::to_integer<std::uint32_t>(byte)) & 0xFF];
  }
  return ~sum;
}

}  // namespace brovanta
