#include "util/windows_1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "util/utf16.h"

namespace brovanta {
namespace {

// The characters of the bytes 0x80 to 0x9F; every other byte is the character of equal value.
constexpr std::array<char16_t, 32> kUpperControls = {
    u'\u20AC', 0x81,      u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0x8D,      u'\u017D', 0x8F,
    0x90,      u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0x9D,      u'\u017E', u'\u0178'};
constexpr unsigned kFirstControl = 0x80;
constexpr unsigned kBehindControls = 0xA0;

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char Narrow(char16_t unit) {
  if (unit < kFirstControl || (unit >= kBehindControls && unit <= 0xFF)) {
    return static_cast<char>(unit);
  }
  const auto* const found = std::find(kUpperControls.begin(), kUpperControls.end(), unit);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(kFirstControl + static_cast<unsigned>(found - kUpperControls.begin()));
}

}  // namespace

std::string NarrowToWindows1252(std::u16string_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    narrow += Narrow(text[i]);
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) ++i;
  }
  return narrow;
}

std::u16string WidenFromWindows1252(std::string_view text) {
  std::u16string wide(text.size(), u'\0');
  WidenFromWindows1252(text, wide.data());
  return wide;
}

void WidenFromWindows1252(std::string_view text, char16_t* wide) {
  for (const char character : text) {
    const unsigned byte = static_cast<unsigned char>(character);
    const bool control = byte >= kFirstControl && byte < kBehindControls;
    *wide++ = control ? kUpperControls[byte - kFirstControl] : static_cast<char16_t>(byte);
  }
}

std::string Utf8FromWindows1252(std::string_view text) {
  return Utf16ToUtf8(WidenFromWindows1252(text));
}

}  // namespace brovanta
