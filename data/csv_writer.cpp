#include "data/csv_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace brovanta::data_tool {
namespace {

bool LooksLikeFormula(std::string_view text) {
  constexpr std::string_view kBegins = "=+-@\t\r";
  return !text.empty() && kBegins.find(text.front()) != std::string_view::npos;
}

bool NeedsQuotes(std::string_view text) {
  if (text.empty()) return false;
  return text.find_first_of(",\"\r\n") != std::string_view::npos || text.front() == ' ' ||
         text.back() == ' ';
}

std::string DayOf(const CalendarTime& time) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04u-%02u-%02u", unsigned{time.year},
                unsigned{time.month}, unsigned{time.day});
  return text.data();
}

}  // namespace

CsvWriter::CsvWriter(const std::vector<std::string>& header) {
  for (const std::string& name : header) Plain(name);
  EndLine();
}

CsvWriter& CsvWriter::Plain(std::string_view cell) {
  if (!is_first_) text_ += ',';
  is_first_ = false;
  text_ += cell;
  return *this;
}

CsvWriter& CsvWriter::Text(std::string_view utf8) {
  std::string cell = LooksLikeFormula(utf8) ? "'" : "";
  cell += utf8;
  if (!NeedsQuotes(cell)) return Plain(cell);
  std::string quoted = "\"";
  for (const char character : cell) quoted.append(character == '"' ? 2 : 1, character);
  return Plain(quoted + "\"");
}

CsvWriter& CsvWriter::Integer(std::int64_t number) { return Plain(std::to_string(number)); }

CsvWriter& CsvWriter::Number(double number) {
  if (!std::isfinite(number)) return Empty();
  std::array<char, 32> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return Plain({digits.data(), static_cast<std::size_t>(result.ptr - digits.data())});
}

CsvWriter& CsvWriter::Day(DateStamp stamp) {
  return stamp == kNoDate ? Empty() : Plain(DayOf(CalendarFromStamp(stamp)));
}

CsvWriter& CsvWriter::Moment(DateStamp stamp) {
  if (stamp == kNoDate) return Empty();
  const CalendarTime time = CalendarFromStamp(stamp);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "T%02u:%02u:%02u", unsigned{time.hour},
                unsigned{time.minute}, unsigned{time.second});
  return Plain(DayOf(time) + text.data());
}

CsvWriter& CsvWriter::Flag(bool flag) { return Plain(flag ? "true" : "false"); }

void CsvWriter::EndLine() {
  text_ += "\r\n";
  is_first_ = true;
}

}  // namespace brovanta::data_tool
