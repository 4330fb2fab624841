#include "util/utf16.h"

#include <cstddef>
#include <cstdint>

namespace brovanta {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kFirstSupplementary = 0x10000;

bool IsSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDFFF; }
bool IsHighSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
bool IsLowSurrogate(std::uint32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }

// How many bytes a character has, by its first one; 0 when no character starts so.
std::size_t SequenceLength(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first <= 0xDF) return 2;
  if (first >= 0xE0 && first <= 0xEF) return 3;
  if (first >= 0xF0 && first <= 0xF4) return 4;
  return 0;
}

// The character of the bytes, all of one sequence; nothing when they are not well-formed.
std::optional<std::uint32_t> Decode(std::string_view sequence) {
  const auto first = static_cast<unsigned char>(sequence[0]);
  if (sequence.size() == 1) return first;
  std::uint32_t code = first & (0x7Fu >> sequence.size());
  for (const char character : sequence.substr(1)) {
    const auto byte = static_cast<unsigned char>(character);
    if ((byte & 0xC0) != 0x80) return std::nullopt;
    code = (code << 6) | (byte & 0x3Fu);
  }
  const bool overlong = (sequence.size() == 3 && code < 0x800) ||
                        (sequence.size() == 4 && code < kFirstSupplementary);
  if (overlong || IsSurrogate(code) || code > 0x10FFFF) return std::nullopt;
  return code;
}

void AppendUtf8(std::uint32_t code, std::string& text) {
  const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    append(code);
    return;
  }
  if (code < 0x800) {
    append(0xC0 | (code >> 6));
  } else if (code < kFirstSupplementary) {
    append(0xE0 | (code >> 12));
    append(0x80 | ((code >> 6) & 0x3F));
  } else {
    append(0xF0 | (code >> 18));
    append(0x80 | ((code >> 12) & 0x3F));
    append(0x80 | ((code >> 6) & 0x3F));
  }
  append(0x80 | (code & 0x3F));
}

}  // namespace

std::optional<std::u16string> Utf8ToUtf16(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = SequenceLength(static_cast<unsigned char>(text[0]));
    if (length == 0 || length > text.size()) return std::nullopt;
    const auto code = Decode(text.substr(0, length));
    if (!code) return std::nullopt;
    if (*code < kFirstSupplementary) {
      wide += static_cast<char16_t>(*code);
    } else {
      wide += static_cast<char16_t>(0xD800 + ((*code - kFirstSupplementary) >> 10));
      wide += static_cast<char16_t>(0xDC00 + ((*code - kFirstSupplementary) & 0x3FF));
    }
    text.remove_prefix(length);
  }
  return wide;
}

std::string Utf16ToUtf8(std::u16string_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = text[i];
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = kFirstSupplementary + ((code - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
      ++i;
    } else if (IsSurrogate(code)) {
      code = kReplacement;
    }
    AppendUtf8(code, narrow);
  }
  return narrow;
}

std::u16string_view CutUtf16(std::u16string_view text, std::size_t length) {
  if (text.size() <= length) return text;
  const bool splits =
      length > 0 && IsHighSurrogate(text[length - 1]) && IsLowSurrogate(text[length]);
  return text.substr(0, splits ? length - 1 : length);
}

}  // namespace brovanta
