// Text as people write it in files (UTF-8), as the Windows-1252 bytes of the feeds.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brovanta::server {

/// The Windows-1252 byte of a UTF-16 code unit; nothing when it has none. The control characters
/// between U+0080 and U+009F have none.
[[nodiscard]] std::optional<char> NarrowByte(char16_t unit);

/// The text in Windows-1252, "?" for what has no counterpart; empty when it is no UTF-8.
[[nodiscard]] std::string NarrowText(std::string_view utf8);

}  // namespace brovanta::server
