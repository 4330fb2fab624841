#include "data/raw_bytes.h"

#include "data/exact_values.h"

namespace brovanta::data_tool {

std::vector<RawBytes> RawBytesOf(std::string_view record, std::string_view canonical) {
  std::vector<RawBytes> raw;
  std::size_t at = 0;
  while (at < record.size()) {
    if (record[at] == canonical[at]) {
      ++at;
      continue;
    }
    RawBytes run{at, {}};
    for (; at < record.size() && record[at] != canonical[at]; ++at) run.bytes += record[at];
    raw.push_back(std::move(run));
  }
  return raw;
}

void WriteRawBytes(const std::vector<RawBytes>& raw, JsonWriter& json) {
  if (raw.empty()) return;
  json.Key("raw").BeginArray();
  for (const RawBytes& run : raw) {
    json.BeginObject().Key("at").Number(run.at).Key("hex").Text(HexText(run.bytes)).EndObject();
  }
  json.EndArray();
}

void ReadRawBytes(JsonFieldReader& reader, std::string& record, JsonFault& fault) {
  const JsonNode* const raw = reader.TakeIfThere("raw");
  if (raw == nullptr) return;
  if (raw->kind != JsonNode::Kind::kArray) {
    fault.Set(*raw, reader.PlaceOf("raw"), "an array should stand here");
    return;
  }
  for (std::size_t i = 0; i < raw->items.size() && !fault.IsSet(); ++i) {
    const JsonNode& node = raw->items[i];
    const std::string place = reader.PlaceOf("raw[" + std::to_string(i) + "]");
    JsonFieldReader run(node, place, fault);
    std::uint32_t at = 0;
    run.Number("at", at);
    const JsonNode* const hex = run.Take("hex");
    if (!run.Finish()) return;
    const auto bytes = hex->kind == JsonNode::Kind::kText ? BytesFromHex(hex->text) : std::nullopt;
    if (!bytes) {
      fault.Set(*hex, run.PlaceOf("hex"), "two hexadecimal digits for each byte should stand here");
    } else if (at > record.size() || bytes->size() > record.size() - at) {
      fault.Set(node, place,
                "the bytes reach beyond the end of the record, which has " +
                    std::to_string(record.size()));
    } else {
      std::copy(bytes->begin(), bytes->end(), record.begin() + at);
    }
  }
}

}  // namespace brovanta::data_tool
