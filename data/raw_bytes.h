// Bytes of a record that none of its fields tells: gaps, and what stands behind the end of a text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/json_field_reader.h"
#include "data/record_fields.h"
#include "util/json_writer.h"

namespace brovanta::data_tool {

/// Bytes that stand at an offset of a record.
struct RawBytes {
  std::size_t at = 0;
  std::string bytes;

  friend bool operator==(const RawBytes&, const RawBytes&) = default;
};

/// The runs of bytes in which the record is not what its fields alone would give. Both are equally
/// long.
[[nodiscard]] std::vector<RawBytes> RawBytesOf(std::string_view record, std::string_view canonical);

/// As the member "raw" of the object that is open; nothing where there are none.
void WriteRawBytes(const std::vector<RawBytes>& raw, JsonWriter& json);

/// Puts the bytes of the member "raw", if there is one, over the record.
void ReadRawBytes(JsonFieldReader& reader, std::string& record, JsonFault& fault);

/// A visitor of record_fields.h that clears what stands behind the end of each text.
class TextTails {
 public:
  template <std::size_t Size>
  void Text(std::string_view /*key*/, FixedText<Size>& text) {
    text.AssignWhole(std::string(text.view()));
  }
  template <typename... Anything>
  void Number(Anything&&... /*field*/) {}
  template <typename... Anything>
  void Date(Anything&&... /*field*/) {}
  template <typename... Anything>
  void Flag(Anything&&... /*field*/) {}
  template <typename... Anything>
  void Word(Anything&&... /*field*/) {}
  template <typename... Anything>
  void Reference(Anything&&... /*field*/) {}
  template <typename... Anything>
  void Links(Anything&&... /*field*/) {}
};

template <std::size_t Size>
[[nodiscard]] std::string BytesText(const std::array<std::byte, Size>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The bytes that the fields of a record alone would give.
template <typename RecordKind>
[[nodiscard]] std::string CanonicalBytes(std::string_view record) {
  auto decoded =
      RecordKind::Decode(std::as_bytes(std::span(record)).template first<RecordKind::kSize>());
  TextTails tails;
  RecordKind::Visit(tails, decoded, ReferenceNames());
  return BytesText(RecordKind::Encode(decoded));
}

}  // namespace brovanta::data_tool
