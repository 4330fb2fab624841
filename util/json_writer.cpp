#include "util/json_writer.h"

#include <array>
#include <charconv>

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

void JsonWriter::Separate() {
  if (comma_) text_ += ',';
  comma_ = true;
}

JsonWriter& JsonWriter::BeginObject() {
  Separate();
  text_ += '{';
  comma_ = false;
  return *this;
}

JsonWriter& JsonWriter::EndObject() {
  text_ += '}';
  comma_ = true;
  return *this;
}

JsonWriter& JsonWriter::BeginArray() {
  Separate();
  text_ += '[';
  comma_ = false;
  return *this;
}

JsonWriter& JsonWriter::EndArray() {
  text_ += ']';
  comma_ = true;
  return *this;
}

JsonWriter& JsonWriter::Key(std::string_view key) {
  Separate();
  AppendString(key, text_);
  text_ += ':';
  comma_ = false;
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
  text_ += Written(number);
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
