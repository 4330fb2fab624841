// Search files as they stand on disk, worked out from their layout and not by the code under test.
#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// `size` little-endian bytes.
inline Bytes Little(std::uint64_t value, std::size_t size = 4) {
  Bytes bytes;
  for (; bytes.size() < size; value >>= 8) bytes.push_back(static_cast<std::byte>(value & 0xFF));
  return bytes;
}

/// The fields of an entry of the index.
struct RawEntry {
  std::uint32_t number = 2;
  std::uint32_t category = 1;
  std::uint32_t date = 1112749200;  // 2005-04-06 01:00:00
  std::string_view words = "soap";
  unsigned char deleted = 0;
  std::uint32_t reserved = 0;
};

/// 68 bytes.
inline Bytes Raw(const RawEntry& entry) {
  return Join({Little(entry.reserved), Little(entry.number), Little(entry.category),
               Little(entry.date), Padded(entry.words, 50), Little(entry.deleted, 1), Run(1)});
}

inline Bytes RawIndex(std::uint32_t last_number, const std::vector<RawEntry>& entries) {
  Bytes bytes = Join({Hex("81 38 01 00"), Little(last_number)});
  for (const RawEntry& entry : entries) bytes = Join({bytes, Hex("82 38 01 00"), Raw(entry)});
  return Join({bytes, Hex("83 38 01 00")});
}

/// A text behind its length; nothing: missing.
inline Bytes RawText(std::optional<std::string_view> text) {
  if (!text) return Run(4);
  return Join({Little(text->size() + 1), Padded(*text, text->size() + 1)});
}

/// The mark and the numbers of a result.
inline Bytes RawNumbers(std::uint32_t id, double price, std::uint16_t status = 0) {
  return Join({Hex("82 38 01 00"), Little(id), Little(std::bit_cast<std::uint64_t>(price), 8),
               Little(status, 2)});
}

/// A whole result with its title as link and shop as well.
inline Bytes RawResult(std::uint32_t id, double price, std::string_view title) {
  return Join({RawNumbers(id, price), RawText(title), RawText(std::nullopt), RawText(title),
               RawText(title)});
}

inline Bytes RawResults(const std::vector<Bytes>& results) {
  Bytes bytes = Hex("81 38 01 00");
  for (const Bytes& result : results) bytes = Join({bytes, result});
  return Join({bytes, Hex("83 38 01 00")});
}

}  // namespace brovanta::test
