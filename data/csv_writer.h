// Comma-separated tables for spreadsheets.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "util/date_stamp.h"

namespace brovanta::data_tool {

/// As RFC 4180 has it: UTF-8, lines end with CR LF, what needs it is in quotation marks. A text
/// that a spreadsheet would take for a formula gets an apostrophe in front.
class CsvWriter {
 public:
  /// The first line.
  explicit CsvWriter(const std::vector<std::string>& header);

  /// The next cell of the line.
  CsvWriter& Text(std::string_view utf8);
  CsvWriter& Integer(std::int64_t number);
  /// Empty when it is not finite.
  CsvWriter& Number(double number);
  /// "2026-11-21" of the local zone; empty for no date.
  CsvWriter& Day(DateStamp stamp);
  /// "2026-11-21T14:30:00"
  CsvWriter& Moment(DateStamp stamp);
  CsvWriter& Flag(bool flag);
  CsvWriter& Empty() { return Plain({}); }
  void EndLine();

  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  CsvWriter& Plain(std::string_view cell);

  std::string text_;
  bool is_first_ = true;
};

}  // namespace brovanta::data_tool
