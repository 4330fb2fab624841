#include "platform/registry_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "util/utf16.h"

namespace brovanta::platform {
namespace {

constexpr std::string_view kDwordTag = "dword:";
constexpr std::string_view kBinaryTag = "hex:";
constexpr std::string_view kTypedTag = "hex(";
constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kDwordSize = 4;

char Folded(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
}

bool IsControl(char32_t character) { return character < 0x20; }

std::string HexDigits(std::uint32_t number, std::size_t width) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digits;
  for (; number != 0 || digits.size() < width; number >>= 4) digits += kDigits[number & 15];
  std::reverse(digits.begin(), digits.end());
  return digits;
}

// The whole text as a hexadecimal number of 32 bits.
std::optional<std::uint32_t> ParseHex(std::string_view text) {
  std::uint32_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number, 16);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

// The value as quoted text, when that gives the very same bytes back.
std::optional<std::string> AsQuotedText(const RegistryValue& value) {
  if (value.type != REG_SZ) return std::nullopt;
  const std::u16string text = TextFromBytes(value.data);
  if (BytesFromText(text) != value.data || std::any_of(text.begin(), text.end(), IsControl)) {
    return std::nullopt;
  }
  std::string narrow = Utf16ToUtf8(text);
  if (Utf8ToUtf16(narrow) != text) return std::nullopt;  // half a surrogate pair
  return QuotedText(narrow);
}

std::uint32_t DwordFromBytes(const std::vector<std::byte>& bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < kDwordSize; ++i) {
    number |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
  }
  return number;
}

std::optional<RegistryValue> ParseDword(std::string_view digits) {
  const auto number = digits.size() <= 2 * kDwordSize ? ParseHex(digits) : std::nullopt;
  if (!number) return std::nullopt;
  RegistryValue value{REG_DWORD, {}};
  for (std::size_t i = 0; i < kDwordSize; ++i) {
    value.data.push_back(static_cast<std::byte>(*number >> (8 * i)));
  }
  return value;
}

std::optional<RegistryValue> ParseBytes(std::uint32_t type, std::string_view list) {
  RegistryValue value{type, {}};
  list = Trimmed(list);
  if (list.empty()) return value;
  while (true) {
    const std::size_t comma = list.find(',');
    const std::string_view digits = Trimmed(list.substr(0, comma));
    const auto byte = digits.size() <= 2 ? ParseHex(digits) : std::nullopt;
    if (!byte) return std::nullopt;
    value.data.push_back(static_cast<std::byte>(*byte));
    if (comma == std::string_view::npos) return value;
    list.remove_prefix(comma + 1);
  }
}

}  // namespace

bool SameRegistryName(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char left, char right) { return Folded(left) == Folded(right); });
}

bool IsRegistryName(std::string_view name) {
  return std::none_of(name.begin(), name.end(), [](char character) {
    return IsControl(static_cast<unsigned char>(character));
  });
}

std::string QuotedText(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '\\' || character == '"') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::optional<std::string> TakeQuotedText(std::string_view& line) {
  if (line.empty() || line[0] != '"') return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '"') {
      line.remove_prefix(i + 1);
      return text;
    }
    if (line[i] == '\\') {
      ++i;
      if (i == line.size() || (line[i] != '\\' && line[i] != '"')) return std::nullopt;
    }
    text += line[i];
  }
  return std::nullopt;
}

std::string FormatRegistryValue(const RegistryValue& value, std::size_t column,
                                std::string_view line_end) {
  if (auto quoted = AsQuotedText(value)) return *std::move(quoted);
  if (value.type == REG_DWORD && value.data.size() == kDwordSize) {
    return std::string(kDwordTag) + HexDigits(DwordFromBytes(value.data), 8);
  }
  std::string text(kBinaryTag);
  if (value.type != REG_BINARY) text = std::string(kTypedTag) + HexDigits(value.type, 1) + "):";
  std::size_t length = column + text.size();
  for (std::size_t i = 0; i < value.data.size(); ++i) {
    constexpr std::size_t kByteLength = 3;  // two digits and the comma
    if (i > 0 && length + kByteLength + 1 > kRegistryLineLength) {
      text.append("\\").append(line_end).append("  ");
      length = 2;
    }
    text += HexDigits(std::to_integer<std::uint32_t>(value.data[i]), 2);
    if (i + 1 < value.data.size()) text += ',';
    length += kByteLength;
  }
  return text;
}

std::optional<RegistryValue> ParseRegistryValue(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('"')) {
    const auto quoted = TakeQuotedText(text);
    const auto wide = quoted && text.empty() ? Utf8ToUtf16(*quoted) : std::nullopt;
    if (!wide) return std::nullopt;
    return RegistryValue{REG_SZ, BytesFromText(*wide)};
  }
  if (text.starts_with(kDwordTag)) return ParseDword(text.substr(kDwordTag.size()));
  if (text.starts_with(kBinaryTag)) return ParseBytes(REG_BINARY, text.substr(kBinaryTag.size()));
  if (!text.starts_with(kTypedTag)) return std::nullopt;
  text.remove_prefix(kTypedTag.size());
  const std::size_t end = text.find("):");
  const auto type = end != std::string_view::npos ? ParseHex(text.substr(0, end)) : std::nullopt;
  if (!type) return std::nullopt;
  return ParseBytes(*type, text.substr(end + 2));
}

std::vector<std::byte> BytesFromText(std::u16string_view text) {
  std::vector<std::byte> bytes;
  bytes.reserve((text.size() + 1) * 2);
  for (const char16_t unit : text) {
    bytes.push_back(static_cast<std::byte>(unit & 0xFF));
    bytes.push_back(static_cast<std::byte>(unit >> 8));
  }
  bytes.resize(bytes.size() + 2);
  return bytes;
}

std::u16string TextFromBytes(const std::vector<std::byte>& bytes) {
  std::u16string text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto unit = std::to_integer<unsigned>(bytes[i]) | std::to_integer<unsigned>(bytes[i + 1])
                                                                << 8;
    if (unit == 0) break;
    text += static_cast<char16_t>(unit);
  }
  return text;
}

}  // namespace brovanta::platform
