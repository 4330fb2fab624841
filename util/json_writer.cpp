#include "util/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>

#include "util/readable_text.h"

namespace brovanta {
namespace {

void AppendString(std::string_view utf8, std::string& text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text += '"';
  for (const char character : utf8) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      text += '\\';
      text += character;
    } else if (byte < 0x20) {
      text += "\\u00";
      text += kDigits[byte >> 4];
      text += kDigits[byte & 15];
    } else {
      text += character;
    }
  }
  text += '"';
}

template <typename Value>
std::string Written(Value number) {
  std::array<char, 32> digits{};  // the longest double takes 24
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return {digits.data(), result.ptr};
}

}  // namespace

void JsonWriter::BreakLine() {
  text_ += '\n';
  text_.append(2 * open_.size(), ' ');
}

void JsonWriter::Separate() {
  if (behind_key_ || open_.empty()) {
    behind_key_ = false;
    return;
  }
  Open& open = open_.back();
  if (open.has_members) text_ += ',';
  open.has_members = true;
  if (open.layout == JsonLayout::kLines) BreakLine();
}

JsonWriter& JsonWriter::Begin(char bracket, JsonLayout layout) {
  Separate();
  text_ += bracket;
  open_.push_back({layout});
  return *this;
}

JsonWriter& JsonWriter::End(char bracket) {
  const Open open = open_.back();
  open_.pop_back();
  if (open.layout == JsonLayout::kLines && open.has_members) BreakLine();
  text_ += bracket;
  return *this;
}

JsonWriter& JsonWriter::BeginObject(JsonLayout layout) { return Begin('{', layout); }
JsonWriter& JsonWriter::EndObject() { return End('}'); }
JsonWriter& JsonWriter::BeginArray(JsonLayout layout) { return Begin('[', layout); }
JsonWriter& JsonWriter::EndArray() { return End(']'); }

JsonWriter& JsonWriter::Key(std::string_view key) {
  Separate();
  AppendString(key, text_);
  text_ += open_.back().layout == JsonLayout::kLines ? ": " : ":";
  behind_key_ = true;
  return *this;
}

JsonWriter& JsonWriter::Text(std::string_view bytes) {
  Separate();
  AppendString(Utf8Text(bytes), text_);
  return *this;
}

JsonWriter& JsonWriter::Number(std::size_t number) {
  Separate();
  text_ += Written(number);
  return *this;
}

JsonWriter& JsonWriter::Number(std::int32_t number) {
  Separate();
  text_ += Written(number);
  return *this;
}

JsonWriter& JsonWriter::Number(double number) {
  Separate();
  const bool is_negative_zero = number == 0 && std::signbit(number);
  text_ += is_negative_zero ? "-0.0" : Written(number);
  return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
  Separate();
  text_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::Null() {
  Separate();
  text_ += "null";
  return *this;
}

}  // namespace brovanta
