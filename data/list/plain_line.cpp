#include "data/list/plain_line.h"

#include <algorithm>
#include <array>

#include "util/windows_1252.h"

namespace brovanta::data_tool {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Blocks in which characters without a width of their own lie.
constexpr std::array kWithoutWidth{
    Range{0x0300, 0x036F},  Range{0x0483, 0x0489}, Range{0x0591, 0x05BD}, Range{0x064B, 0x065F},
    Range{0x0E31, 0x0E31},  Range{0x0E34, 0x0E3A}, Range{0x0E47, 0x0E4E}, Range{0x1AB0, 0x1AFF},
    Range{0x1DC0, 0x1DFF},  Range{0x200B, 0x200F}, Range{0x202A, 0x202E}, Range{0x2060, 0x2064},
    Range{0x20D0, 0x20FF},  Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}, Range{0xFEFF, 0xFEFF},
    Range{0x1F3FB, 0x1F3FF}};

// Blocks of characters that are twice as wide.
constexpr std::array kWide{
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x23E9, 0x23EC},
    Range{0x2614, 0x2615},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF},
    Range{0x3400, 0x4DBF},   Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},
    Range{0xA960, 0xA97F},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
    Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1F9FF},
    Range{0x1FA70, 0x1FAFF}, Range{0x20000, 0x3FFFD}};

template <std::size_t N>
bool IsIn(const std::array<Range, N>& ranges, char32_t character) {
  return std::any_of(ranges.begin(), ranges.end(), [character](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

// The next character of well-formed UTF-8, which is taken off the text.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length && i < text.size(); ++i) {
    character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  }
  text.remove_prefix(std::min(length, text.size()));
  return character;
}

bool IsBlank(char32_t character) {
  return character <= 0x20 || (character >= 0x7F && character <= 0xA0);
}

}  // namespace

std::string PlainLine(std::string_view stored) {
  const std::string readable = Utf8FromWindows1252(stored);
  std::string line;
  bool blank = false;
  for (std::string_view rest = readable; !rest.empty();) {
    const std::string_view before = rest;
    // U+FFFE and U+FFFF are no characters of any page.
    const char32_t character = TakeCharacter(rest);
    if (IsBlank(character) || (character & 0xFFFE) == 0xFFFE) {
      blank = true;
      continue;
    }
    if (blank && !line.empty()) line += ' ';
    blank = false;
    line += before.substr(0, before.size() - rest.size());
  }
  return line;
}

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    width += IsIn(kWithoutWidth, character) ? 0 : IsIn(kWide, character) ? 2 : 1;
  }
  return width;
}

}  // namespace brovanta::data_tool
