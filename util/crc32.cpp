#include "util/crc32.h"

#include <array>

namespace brovanta {
namespace {

constexpr std::uint32_t kPolynomial = 0xEDB88320;

constexpr std::array<std::uint32_t, 256> MakeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < table.size(); ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
    table[i] = value;
  }
  return table;
}

constexpr std::array<std::uint32_t, 256> kTable = MakeTable();

}  // namespace

std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t sum = ~before;
  for (const std::byte byte : bytes) {
    sum = (sum >> 8) ^ kTable[(sum ^ std::to_integer<std::uint32_t>(byte)) & 0xFF];
  }
  return ~sum;
}

}  // namespace brovanta
