// JSON read whole, with the lines on which things stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::data_tool {

/// One value of a document.
struct JsonNode {
  enum class Kind {
    kNull,
    kBool,
    kInteger,  ///< written without point and exponent, and fits into 64 bits
    kNumber,   ///< every other number
    kText,
    kArray,
    kObject,
  };

  Kind kind = Kind::kNull;
  bool boolean = false;
  std::int64_t integer = 0;
  double number = 0.0;            ///< of an integer too
  std::string text;               ///< UTF-8
  std::vector<JsonNode> items;    ///< of an array or object
  std::vector<std::string> keys;  ///< of an object, as many as items; none twice
  std::size_t line = 0;           ///< from 1

  /// The value of a key; null pointer when it is not there.
  [[nodiscard]] const JsonNode* Find(std::string_view key) const;
};

/// Levels of arrays and objects in each other that are read; our own documents have seven.
inline constexpr std::size_t kDeepestJson = 32;

/// Nothing when the text is no JSON, has a key twice in one object or is deeper than that; `error`
/// then says on which line and why.
[[nodiscard]] std::optional<JsonNode> ReadJsonDocument(std::string_view text, std::string& error);

}  // namespace brovanta::data_tool
