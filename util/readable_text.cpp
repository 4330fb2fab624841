#include "util/readable_text.h"

#include <cstddef>

#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

void AppendEscaped(unsigned char character, std::string& text) {
  switch (character) {
    case '\n':
      text += "\\n";
      return;
    case '\r':
      text += "\\r";
      return;
    case '\t':
      text += "\\t";
      return;
    default:
      text += "\\x";
      text += kDigits[character >> 4];
      text += kDigits[character & 15];
  }
}

}  // namespace

std::string Utf8Text(std::string_view bytes) {
  if (Utf8ToUtf16(bytes)) return std::string(bytes);
  return Utf8FromWindows1252(bytes);
}

std::string Quoted(std::string_view bytes) {
  const std::string readable = Utf8Text(bytes);
  std::string text = "\"";
  for (std::size_t i = 0; i < readable.size(); ++i) {
    const auto character = static_cast<unsigned char>(readable[i]);
    const auto next = static_cast<unsigned char>(i + 1 < readable.size() ? readable[i + 1] : '\0');
    if (character == '"' || character == '\\') {
      text += '\\';
      text += readable[i];
    } else if (character < 0x20 || character == 0x7F) {
      AppendEscaped(character, text);
    } else if (character == 0xC2 && next >= 0x80 && next < 0xA0) {
      AppendEscaped(next, text);  // the control characters above 127, two bytes in UTF-8
      ++i;
    } else {
      text += readable[i];
    }
  }
  return text + "\"";
}

}  // namespace brovanta
