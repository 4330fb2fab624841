#include "data/json_field_reader.h"

#include <algorithm>

#include "data/exact_values.h"
#include "util/readable_text.h"

namespace brovanta::data_tool {

using Kind = JsonNode::Kind;

bool JsonFault::Set(const JsonNode& node, const std::string& place, const std::string& words) {
  if (words_.empty()) words_ = "line " + std::to_string(node.line) + ": " + place + ": " + words;
  return false;
}

JsonFieldReader::JsonFieldReader(const JsonNode& object, std::string place, JsonFault& fault)
    : object_(object), place_(std::move(place)), fault_(fault), taken_(object.items.size()) {
  if (object.kind != Kind::kObject) fault_.Set(object, place_, "an object should stand here");
}

std::string JsonFieldReader::PlaceOf(std::string_view key) const {
  return place_ + ", " + std::string(key);
}

const JsonNode* JsonFieldReader::TakeIfThere(std::string_view key) {
  const auto found = std::find(object_.keys.begin(), object_.keys.end(), key);
  if (found == object_.keys.end()) return nullptr;
  const auto index = static_cast<std::size_t>(found - object_.keys.begin());
  taken_[index] = true;
  return &object_.items[index];
}

const JsonNode* JsonFieldReader::Take(std::string_view key) {
  const JsonNode* const node = TakeIfThere(key);
  if (node == nullptr) fault_.Set(object_, PlaceOf(key), "is missing");
  return node;
}

bool JsonFieldReader::Finish() {
  const auto left = std::find(taken_.begin(), taken_.end(), false);
  if (left != taken_.end() && object_.kind == Kind::kObject) {
    const auto index = static_cast<std::size_t>(left - taken_.begin());
    fault_.Set(object_.items[index], place_, "there is no " + Quoted(object_.keys[index]));
  }
  return !fault_.IsSet();
}

bool JsonFieldReader::IsInteger(const JsonNode& node, std::string_view key, std::int64_t least,
                                std::int64_t most) {
  if (node.kind == Kind::kInteger && node.integer >= least && node.integer <= most) return true;
  return fault_.Set(node, PlaceOf(key),
                    "an integer from " + std::to_string(least) + " to " + std::to_string(most) +
                        " should stand here");
}

void JsonFieldReader::Number(std::string_view key, double& value) {
  const JsonNode* const node = Take(key);
  if (node == nullptr) return;
  if (node->kind == Kind::kInteger || node->kind == Kind::kNumber) {
    value = node->number;
    return;
  }
  const auto bits = node->kind == Kind::kText ? DoubleFromBits(node->text) : std::nullopt;
  if (bits) {
    value = *bits;
  } else {
    fault_.Set(*node, PlaceOf(key), "a number, or its bits in hexadecimal, should stand here");
  }
}

bool JsonFieldReader::ReadStored(std::string_view key, std::size_t size, std::string& stored) {
  const JsonNode* const node = Take(key);
  if (node == nullptr) return false;
  if (node->kind != Kind::kText) {
    return fault_.Set(*node, PlaceOf(key), "a text should stand here");
  }
  std::string culprit;
  auto narrowed = StoredFromUtf8(node->text, culprit);
  if (!narrowed) {
    return fault_.Set(*node, PlaceOf(key),
                      "the character " + Quoted(culprit) + " is not in Windows-1252");
  }
  if (narrowed->find('\0') != std::string::npos) {
    return fault_.Set(*node, PlaceOf(key), "a text cannot hold the character zero");
  }
  if (narrowed->size() > size) {
    return fault_.Set(*node, PlaceOf(key),
                      "the text has " + std::to_string(narrowed->size()) +
                          " characters, but only " + std::to_string(size) + " fit");
  }
  stored = std::move(*narrowed);
  return true;
}

void JsonFieldReader::Date(std::string_view key, DateStamp& stamp) {
  const JsonNode* const node = Take(key);
  if (node == nullptr) return;
  if (node->kind == Kind::kNull) {
    stamp = kNoDate;
    return;
  }
  const auto read = node->kind == Kind::kText ? StampFromText(node->text) : std::nullopt;
  if (read) {
    stamp = *read;
  } else {
    fault_.Set(*node, PlaceOf(key),
               "null or a date such as \"2005-03-30T01:00:00+02:00\", from 1901-12-13 to "
               "2038-01-19, should stand here");
  }
}

void JsonFieldReader::Flag(std::string_view key, std::uint8_t& flag) {
  const JsonNode* const node = Take(key);
  if (node == nullptr) return;
  if (node->kind == Kind::kBool) {
    flag = node->boolean ? 1 : 0;
  } else {
    ReadInteger(*node, key, flag);
  }
}

std::size_t JsonFieldReader::IndexOf(const JsonNode& node, std::string_view key,
                                     std::span<const std::string_view> words) {
  const auto found = std::find(words.begin(), words.end(), node.text);
  if (found != words.end() && !node.text.empty()) {
    return static_cast<std::size_t>(found - words.begin());
  }
  std::string known;
  for (const std::string_view word : words) {
    if (!word.empty()) known.append(known.empty() ? "" : ", ").append(Quoted(word));
  }
  fault_.Set(node, PlaceOf(key), "one of " + known + " or a number should stand here");
  return words.size();
}

void JsonFieldReader::CheckName(const JsonNode& node, std::string_view key,
                                const std::optional<std::string>& expected) {
  const bool is_text = node.kind == Kind::kText;
  if (!is_text && node.kind != Kind::kNull) {
    fault_.Set(node, PlaceOf(key), "a text or null should stand here");
  } else if (!expected && is_text) {
    fault_.Set(node, PlaceOf(key),
               "the number beside " + Quoted(node.text) + " leads to nothing in this document");
  } else if (expected && (!is_text || node.text != *expected)) {
    fault_.Set(node, PlaceOf(key),
               "the number beside it leads to " + Quoted(*expected) + " and not to " +
                   (is_text ? Quoted(node.text) : "nothing"));
  }
}

void JsonFieldReader::Reference(std::string_view key, std::string_view name_key, std::uint32_t& id,
                                const NameTable& names) {
  Number(key, id);
  const JsonNode* const name = Take(name_key);
  if (name != nullptr && !fault_.IsSet()) CheckName(*name, name_key, names.Find(id));
}

void JsonFieldReader::ReadLink(const JsonNode& node, const std::string& place,
                               AppliedDiscount& link, const CouponNames& coupons) {
  if (node.kind == Kind::kNull) return;
  JsonFieldReader reader(node, place, fault_);
  reader.Number("Id", link.Id);
  reader.Number("Source", link.Source);
  reader.Number("Type", link.Type);
  const JsonNode* const name = reader.Take("Name");
  if (name != nullptr && !fault_.IsSet()) reader.CheckName(*name, "Name", coupons.Find(link));
  (void)reader.Finish();
}

void JsonFieldReader::Links(std::string_view key, DiscountSlots& slots,
                            const CouponNames& coupons) {
  slots = {};
  const JsonNode* const node = Take(key);
  if (node == nullptr) return;
  if (node->kind != Kind::kArray || node->items.size() > slots.size()) {
    fault_.Set(*node, PlaceOf(key),
               "an array of " + std::to_string(slots.size()) + " links at most should stand here");
    return;
  }
  for (std::size_t i = 0; i < node->items.size(); ++i) {
    const std::string place = PlaceOf(key) + "[" + std::to_string(i) + "]";
    ReadLink(node->items[i], place, slots[i], coupons);
  }
}

}  // namespace brovanta::data_tool
