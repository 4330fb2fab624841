// Files as they stand on disk, built from the documented offsets and not by the code under test.
#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

template <typename T>
void Put(Bytes& bytes, std::size_t offset, T value) {
  auto rest = static_cast<std::uint64_t>(value);
  for (std::size_t i = 0; i < sizeof(T); ++i, rest >>= 8) {
    bytes[offset + i] = static_cast<std::byte>(rest & 0xFF);
  }
}

inline void PutText(Bytes& bytes, std::size_t offset, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) bytes[offset + i] = static_cast<std::byte>(text[i]);
}

inline Bytes Word(std::uint32_t value) {
  Bytes bytes(4);
  Put(bytes, 0, value);
  return bytes;
}

inline Bytes FileMagic() { return Hex("81 38 01 00"); }
inline Bytes RecordMark() { return Hex("82 38 01 00"); }
inline Bytes EndMark() { return Hex("83 38 01 00"); }

/// The fields of a discount that the tests vary.
struct RawDiscount {
  std::int32_t id = 2;
  std::int16_t source = 0;
  std::string_view name = "Soap";
  std::string_view product = "";
  std::int16_t type = 1;
  std::int32_t stamp = 0;
  std::int32_t start_date = 0;
  std::int32_t end_date = 0;
  std::uint32_t store_id = 0;
  std::uint32_t category_id = 0;
  std::uint8_t flagged = 0;
  std::uint8_t deleted = 0;
};

/// 400 bytes. The reserved words and the padding hold garbage, which nothing may look at.
inline Bytes Raw(const RawDiscount& discount) {
  Bytes bytes(400);
  PutText(bytes, 0, "\xA1\xA2\xA3\xA4\xA5\xA6\xA7\xA8");
  Put(bytes, 8, discount.id);
  PutText(bytes, 12, discount.name);
  PutText(bytes, 62, discount.product);
  PutText(bytes, 112, "about");
  Put(bytes, 362, discount.source);
  Put(bytes, 364, discount.type);
  Put(bytes, 366, std::uint16_t{2});
  Put(bytes, 368, std::bit_cast<std::uint64_t>(1.5));
  Put(bytes, 376, discount.stamp);
  Put(bytes, 380, discount.start_date);
  Put(bytes, 384, discount.end_date);
  Put(bytes, 388, discount.store_id);
  Put(bytes, 392, discount.category_id);
  Put(bytes, 396, discount.flagged);
  Put(bytes, 397, discount.deleted);
  PutText(bytes, 398, "\xB1\xB2");
  return bytes;
}

/// A record file with its records.
inline Bytes RawRecordFile(std::int32_t last_id, const std::vector<Bytes>& records) {
  Bytes bytes = Join({FileMagic(), Word(static_cast<std::uint32_t>(last_id))});
  for (const Bytes& record : records) bytes = Join({bytes, RecordMark(), record});
  return Join({bytes, EndMark()});
}

inline Bytes RawDiscountFile(std::int32_t last_id, std::initializer_list<RawDiscount> discounts) {
  std::vector<Bytes> records;
  for (const RawDiscount& discount : discounts) records.push_back(Raw(discount));
  return RawRecordFile(last_id, records);
}

/// 64 bytes.
inline Bytes RawItem(std::int32_t id, std::string_view name, std::int32_t count = 0) {
  Bytes bytes(64);
  Put(bytes, 4, id);
  PutText(bytes, 8, name);
  Put(bytes, 60, count);
  return bytes;
}

inline Bytes RawListFile(std::initializer_list<Bytes> items) {
  Bytes bytes = FileMagic();
  for (const Bytes& item : items) bytes = Join({bytes, RecordMark(), item});
  return Join({bytes, EndMark()});
}

}  // namespace brovanta::test
