#include "server/narrow_text.h"

#include "util/utf16.h"
#include "util/windows_1252.h"

namespace brovanta::server {

std::optional<char> NarrowByte(char16_t unit) {
  if (unit >= 0x80 && unit <= 0x9F) return std::nullopt;
  const char byte = NarrowToWindows1252({&unit, 1})[0];
  if (byte == '?' && unit != u'?') return std::nullopt;
  return byte;
}

std::string NarrowText(std::string_view utf8) {
  return NarrowToWindows1252(Utf8ToUtf16(utf8).value_or(std::u16string()));
}

}  // namespace brovanta::server
