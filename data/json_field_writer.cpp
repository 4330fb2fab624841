#include "data/json_field_writer.h"

#include <cmath>

namespace brovanta::data_tool {

void JsonFieldWriter::Number(std::string_view key, double value) {
  json_.Key(key);
  if (std::isfinite(value)) {
    json_.Number(value);
  } else {
    json_.Text(DoubleBits(value));
  }
}

void JsonFieldWriter::Date(std::string_view key, DateStamp stamp) {
  json_.Key(key);
  if (stamp == kNoDate) {
    json_.Null();
  } else {
    json_.Text(StampText(stamp));
  }
}

void JsonFieldWriter::Flag(std::string_view key, std::uint8_t flag) {
  if (flag > 1) {
    Number(key, flag);
  } else {
    json_.Key(key).Bool(flag == 1);
  }
}

void JsonFieldWriter::TextOrNull(const std::optional<std::string>& text) {
  if (text) {
    json_.Text(*text);
  } else {
    json_.Null();
  }
}

void JsonFieldWriter::Reference(std::string_view key, std::string_view name_key, std::uint32_t id,
                                const NameTable& names) {
  Number(key, id);
  json_.Key(name_key);
  TextOrNull(names.Find(id));
}

void JsonFieldWriter::Links(std::string_view key, const DiscountSlots& slots,
                            const CouponNames& coupons) {
  std::size_t count = slots.size();
  while (count > 0 && slots[count - 1] == AppliedDiscount{}) --count;
  json_.Key(key).BeginArray();
  for (std::size_t i = 0; i < count; ++i) {
    const AppliedDiscount& link = slots[i];
    if (link == AppliedDiscount{}) {
      json_.Null();
      continue;
    }
    json_.BeginObject();
    Number("Id", link.Id);
    Number("Source", link.Source);
    Number("Type", link.Type);
    json_.Key("Name");
    TextOrNull(coupons.Find(link));
    json_.EndObject();
  }
  json_.EndArray();
}

}  // namespace brovanta::data_tool
