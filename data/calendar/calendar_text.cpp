#include "data/calendar/calendar_text.h"

#include <array>
#include <cstdio>

#include "data/list/plain_line.h"

namespace brovanta::data_tool {
namespace {

constexpr std::size_t kLongestLine = 75;

bool IsWithinCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

void CalendarText::Add(std::string_view property, std::string_view value) {
  std::string line(property);
  line.append(":").append(value);
  std::string_view rest = line;
  std::size_t room = kLongestLine;
  while (rest.size() > room) {
    std::size_t length = room;
    while (IsWithinCharacter(rest[length])) --length;
    text_.append(rest.substr(0, length)).append("\r\n ");
    rest.remove_prefix(length);
    room = kLongestLine - 1;  // the blank counts
  }
  text_.append(rest).append("\r\n");
}

void CalendarText::AddText(std::string_view property, std::string_view text) {
  std::string value;
  for (const char character : text) {
    if (character == '\n') {
      value += "\\n";
      continue;
    }
    if (character == '\\' || character == ';' || character == ',') value += '\\';
    value += character;
  }
  Add(property, value);
}

std::string DateValue(std::chrono::sys_days day) {
  const std::chrono::year_month_day date{day};
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%04d%02u%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text.data();
}

std::string PlainLines(std::string_view stored) {
  std::string text;
  while (!stored.empty()) {
    const std::size_t end = stored.find_first_of("\r\n");
    const std::string line = PlainLine(stored.substr(0, end));
    stored.remove_prefix(end == std::string_view::npos ? stored.size() : end + 1);
    if (line.empty()) continue;
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

}  // namespace brovanta::data_tool
