// Reads the members of a JSON object as the fields of a record.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "data/json_document.h"
#include "data/reference_names.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// The first thing that is wrong with a document, and where.
class JsonFault {
 public:
  /// Keeps the first one only. Always false, so that it can be returned.
  bool Set(const JsonNode& node, const std::string& place, const std::string& words);
  [[nodiscard]] bool IsSet() const { return !words_.empty(); }
  /// "line 12: product.dat, records[3], Name: ...".
  [[nodiscard]] const std::string& words() const { return words_; }

 private:
  std::string words_;
};

/// A visitor of record_fields.h: every member must be there and fit, and none may be left over.
/// What does not fit leaves its field as it is and sets the fault. Borrows all it is given.
class JsonFieldReader {
 public:
  /// `place` tells where the object stands.
  JsonFieldReader(const JsonNode& object, std::string place, JsonFault& fault);

  template <typename Integer>
  requires std::is_integral_v<Integer>
  void Number(std::string_view key, Integer& value) {
    const JsonNode* const node = Take(key);
    if (node != nullptr) ReadInteger(*node, key, value);
  }
  void Number(std::string_view key, double& value);
  template <std::size_t Size>
  void Text(std::string_view key, FixedText<Size>& text) {
    std::string stored;
    if (ReadStored(key, Size, stored)) text.AssignWhole(stored);
  }
  void Date(std::string_view key, DateStamp& stamp);
  void Flag(std::string_view key, std::uint8_t& flag);
  template <typename Integer>
  void Word(std::string_view key, Integer& value, std::span<const std::string_view> words) {
    const JsonNode* const node = Take(key);
    if (node == nullptr) return;
    if (node->kind != JsonNode::Kind::kText) {
      ReadInteger(*node, key, value);
      return;
    }
    const std::size_t index = IndexOf(*node, key, words);
    if (index < words.size()) value = static_cast<Integer>(index);
  }
  void Reference(std::string_view key, std::string_view name_key, std::uint32_t& id,
                 const NameTable& names);
  void Links(std::string_view key, DiscountSlots& slots, const CouponNames& coupons);

  /// The value of a key that must be there; null pointer after setting the fault.
  const JsonNode* Take(std::string_view key);
  /// The value of a key that may be missing.
  const JsonNode* TakeIfThere(std::string_view key);

  /// Sets the fault when members are left over. Whether all was well.
  [[nodiscard]] bool Finish();

  [[nodiscard]] std::string PlaceOf(std::string_view key) const;

 private:
  template <typename Integer>
  void ReadInteger(const JsonNode& node, std::string_view key, Integer& value) {
    const std::int64_t least = std::numeric_limits<Integer>::min();
    const std::int64_t most = std::numeric_limits<Integer>::max();
    if (IsInteger(node, key, least, most)) value = static_cast<Integer>(node.integer);
  }
  bool IsInteger(const JsonNode& node, std::string_view key, std::int64_t least, std::int64_t most);
  bool ReadStored(std::string_view key, std::size_t size, std::string& stored);
  std::size_t IndexOf(const JsonNode& node, std::string_view key,
                      std::span<const std::string_view> words);
  /// The name beside a reference must be the one that it leads to.
  void CheckName(const JsonNode& node, std::string_view key,
                 const std::optional<std::string>& expected);
  void ReadLink(const JsonNode& node, const std::string& place, AppliedDiscount& link,
                const CouponNames& coupons);

  const JsonNode& object_;
  std::string place_;
  JsonFault& fault_;
  std::vector<bool> taken_;
};

}  // namespace brovanta::data_tool
