#include "server/text_rules.h"

#include <charconv>
#include <cstdint>

#include "server/narrow_text.h"
#include "util/utf16.h"

namespace brovanta::server {
namespace {

bool IsControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F); }

// The character at a place of well-formed text as Unicode names it: "U+2192".
std::string CodePoint(std::u16string_view text, std::size_t at) {
  std::uint32_t code = text[at];
  if (code >= 0xD800 && code <= 0xDBFF) {
    code = 0x10000 + ((code - 0xD800) << 10u) + (text[at + 1] - 0xDC00u);
  }
  std::array<char, 8> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), code, 16);
  std::string hex(digits.data(), end.ptr);
  for (char& digit : hex) {
    if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
  }
  if (hex.size() < 4) hex.insert(0, 4 - hex.size(), '0');
  return "U+" + hex;
}

std::optional<std::string> FeedTagIn(std::string_view text) {
  for (const std::string_view name : kFeedTags) {
    for (const std::string_view start : {"<", "</"}) {
      const std::string tag = std::string(start) + std::string(name) + ">";
      if (text.find(tag) != std::string_view::npos) return tag;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> TextProblem(std::string_view text, TextLength length) {
  const auto wide = Utf8ToUtf16(text);
  if (!wide) return "is no valid UTF-8";
  for (std::size_t i = 0; i < wide->size(); ++i) {
    const char16_t unit = (*wide)[i];
    if (IsControl(unit)) return "holds a line break or another control character";
    if (!NarrowByte(unit)) {
      return "holds a character that the handheld cannot show (" + CodePoint(*wide, i) + ")";
    }
  }
  if (const auto tag = FeedTagIn(text)) return "holds " + *tag + ", which would end it in the feed";
  if (wide->size() > length.most) {
    return "is longer than " + std::to_string(length.most) + " characters";
  }
  if (wide->empty() && length.least > 0) return "is empty";
  if (wide->size() < length.least) {
    return "is shorter than " + std::to_string(length.least) + " characters";
  }
  return std::nullopt;
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kMost = 40;
  std::string quoted = "\"";
  for (const char character : text.substr(0, kMost)) {
    const auto byte = static_cast<unsigned char>(character);
    quoted += byte < 0x20 || byte == 0x7F ? '?' : character;
  }
  // A cut must not leave half a character behind.
  while (text.size() > kMost && quoted.size() > 1 &&
         (static_cast<unsigned char>(quoted.back()) & 0x80u) != 0) {
    quoted.pop_back();
  }
  quoted += text.size() > kMost ? "...\"" : "\"";
  return quoted;
}

}  // namespace brovanta::server
