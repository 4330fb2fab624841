// JSON, written from front to back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta {

/// Where the members of an object or an array stand.
enum class JsonLayout {
  kOneLine,
  kLines,  ///< each on a line of its own, by two blanks further in
};

/// Puts commas and colons where they belong; that every object and array is closed, and that every
/// value of an object has its key, is up to the caller.
class JsonWriter {
 public:
  JsonWriter& BeginObject(JsonLayout layout = JsonLayout::kOneLine);
  JsonWriter& EndObject();
  JsonWriter& BeginArray(JsonLayout layout = JsonLayout::kOneLine);
  JsonWriter& EndArray();

  /// The key of the object's next value: plain ASCII of the program's own.
  JsonWriter& Key(std::string_view key);

  /// Any bytes, as Utf8Text gives them.
  JsonWriter& Text(std::string_view bytes);
  JsonWriter& Number(std::size_t number);
  JsonWriter& Number(std::int32_t number);
  /// A finite number, with as many digits as it takes to read the same number back; the negative
  /// zero as -0.0, which no reader takes for an integer.
  JsonWriter& Number(double number);
  JsonWriter& Bool(bool value);
  JsonWriter& Null();

  /// Everything so far.
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  struct Open {
    JsonLayout layout = JsonLayout::kOneLine;
    bool has_members = false;
  };

  JsonWriter& Begin(char bracket, JsonLayout layout);
  JsonWriter& End(char bracket);
  void Separate();
  void BreakLine();

  std::string text_;
  std::vector<Open> open_;
  bool behind_key_ = false;
};

}  // namespace brovanta
