#include "util/crc32.h"

#include <array>

namespace brovanta {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;
constexpr std::size_t kStep = 8;

using Table = std::array<std::uint32_t, 256>;

// Table k has the remainders of a byte with k zero bytes behind it, so that the sum of eight bytes
// is put together from eight tables that do not wait for each other.
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

std::uint32_t SumOfEight(std::span<const std::byte> bytes, std::uint32_t sum) {
  sum ^= At(bytes, 0) | At(bytes, 1) << 8 | At(bytes, 2) << 16 | At(bytes, 3) << 24;
  return kTables[7][sum & 0xFF] ^ kTables[6][(sum >> 8) & 0xFF] ^ kTables[5][(sum >> 16) & 0xFF] ^
         kTables[4][sum >> 24] ^ kTables[3][At(bytes, 4)] ^ kTables[2][At(bytes, 5)] ^
         kTables[1][At(bytes, 6)] ^ kTables[0][At(bytes, 7)];
}

}  // namespace

std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t sum = ~before;
  for (; bytes.size() >= kStep; bytes = bytes.subspan(kStep)) sum = SumOfEight(bytes, sum);
  for (const std::byte byte : bytes) {
    sum = (sum >> 8) ^ kTables[0][(sum ^ std::to_integer<std::uint32_t>(byte)) & 0xFF];
  }
  return ~sum;
}

}  // namespace brovanta
