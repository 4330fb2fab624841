// Records of one kind as members of a JSON document, both ways.
#pragma once

#include <string>
#include <string_view>

#include "data/json_field_reader.h"
#include "data/json_field_writer.h"
#include "data/raw_bytes.h"
#include "data/record_fields.h"

namespace brovanta::data_tool {

/// Writes the record as an object from which ReadRecord makes the same bytes.
template <typename RecordKind>
void WriteRecord(std::string_view record, const ReferenceNames& names, JsonWriter& json) {
  auto decoded =
      RecordKind::Decode(std::as_bytes(std::span(record)).template first<RecordKind::kSize>());
  json.BeginObject(JsonLayout::kLines);
  JsonFieldWriter fields(json);
  RecordKind::Visit(fields, decoded, names);
  WriteRawBytes(RawBytesOf(record, CanonicalBytes<RecordKind>(record)), json);
  json.EndObject();
}

/// The bytes of the record; of no use when the fault is set.
template <typename RecordKind>
[[nodiscard]] std::string ReadRecord(const JsonNode& object, const std::string& place,
                                     const ReferenceNames& names, JsonFault& fault) {
  JsonFieldReader fields(object, place, fault);
  typename RecordKind::Record decoded;
  RecordKind::Visit(fields, decoded, names);
  const std::string canonical = BytesText(RecordKind::Encode(decoded));
  std::string record = canonical;
  ReadRawBytes(fields, record, fault);
  if (fields.Finish() && CanonicalBytes<RecordKind>(record) != canonical) {
    fault.Set(object, fields.PlaceOf("raw"), "bytes that belong to a field may not stand here");
  }
  return record;
}

}  // namespace brovanta::data_tool
