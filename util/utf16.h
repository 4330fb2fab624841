// UTF-8 to and from UTF-16, for settings and paths; screens have their own conversion.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brovanta {

/// Nothing when the text is not well-formed UTF-8 (overlong forms, surrogates and what lies beyond
/// U+10FFFF included).
[[nodiscard]] std::optional<std::u16string> Utf8ToUtf16(std::string_view text);

/// A surrogate without its other half becomes U+FFFD.
[[nodiscard]] std::string Utf16ToUtf8(std::u16string_view text);

/// The first `length` code units at most, never half of a surrogate pair.
[[nodiscard]] std::u16string_view CutUtf16(std::u16string_view text, std::size_t length);

}  // namespace brovanta
