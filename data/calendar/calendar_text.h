// The text of a calendar file: lines, values, escapes.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace brovanta::data_tool {

/// A calendar file, written from front to back: lines end with CR LF and have at most 75 bytes,
/// longer ones are folded, never within a character.
class CalendarText {
 public:
  /// A property with a value that needs no escape: "BEGIN", "VEVENT".
  void Add(std::string_view property, std::string_view value);
  /// One whose value is UTF-8 text, perhaps of several lines.
  void AddText(std::string_view property, std::string_view text);

  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// "20261121".
[[nodiscard]] std::string DateValue(std::chrono::sys_days day);

/// Stored text as UTF-8, its lines kept apart by line feeds, without other control characters and
/// without empty lines.
[[nodiscard]] std::string PlainLines(std::string_view stored);

}  // namespace brovanta::data_tool
