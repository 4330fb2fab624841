// JSON, written from front to back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brovanta {

/// Puts commas and colons where they belong; that every object and array is closed, and that every
/// value of an object has its key, is up to the caller.
class JsonWriter {
 public:
  JsonWriter& BeginObject();
  JsonWriter& EndObject();
  JsonWriter& BeginArray();
  JsonWriter& EndArray();

  /// The key of the object's next value: plain ASCII of the program's own.
  JsonWriter& Key(std::string_view key);

  /// Any bytes, as Utf8Text gives them.
  JsonWriter& Text(std::string_view bytes);
  JsonWriter& Number(std::size_t number);
  JsonWriter& Number(std::int32_t number);
  /// A finite number, with as many digits as it takes to read the same number back.
  JsonWriter& Number(double number);
  JsonWriter& Bool(bool value);
  JsonWriter& Null();

  /// Everything so far.
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  void Separate();

  std::string text_;
  bool comma_ = false;  // the next value or key is not the first of its object or array
};

}  // namespace brovanta
