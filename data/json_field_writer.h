// Writes the fields of a record as members of a JSON object.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "data/exact_values.h"
#include "data/reference_names.h"
#include "db/records.h"
#include "util/json_writer.h"
#include "util/windows_1252.h"

namespace brovanta::data_tool {

/// A visitor of record_fields.h. The record is not changed.
class JsonFieldWriter {
 public:
  explicit JsonFieldWriter(JsonWriter& json) : json_(json) {}

  template <typename Integer>
  void Number(std::string_view key, Integer value) {
    static_assert(std::is_integral_v<Integer>);
    json_.Key(key);
    if constexpr (std::is_signed_v<Integer>) {
      json_.Number(std::int32_t{value});
    } else {
      json_.Number(std::size_t{value});
    }
  }
  /// As a text of its bits when it is not finite.
  void Number(std::string_view key, double value);
  template <std::size_t Size>
  void Text(std::string_view key, const FixedText<Size>& text) {
    json_.Key(key).Text(Utf8FromWindows1252(text.view()));
  }
  /// Null where there is no date.
  void Date(std::string_view key, DateStamp stamp);
  /// As a number where it is neither 0 nor 1.
  void Flag(std::string_view key, std::uint8_t flag);
  /// As a number where there is no word for it.
  template <typename Integer>
  void Word(std::string_view key, Integer value, std::span<const std::string_view> words) {
    const auto index = static_cast<std::size_t>(value);
    if (index < words.size() && !words[index].empty()) {
      json_.Key(key).Text(words[index]);
    } else {
      Number(key, value);
    }
  }
  void Reference(std::string_view key, std::string_view name_key, std::uint32_t id,
                 const NameTable& names);
  /// Free slots at the end are left out, others are null.
  void Links(std::string_view key, const DiscountSlots& slots, const CouponNames& coupons);

 private:
  void TextOrNull(const std::optional<std::string>& text);

  JsonWriter& json_;
};

}  // namespace brovanta::data_tool
