// Stored 8-bit text (Windows-1252) to and from the wide text of the screens.
#pragma once

#include <string>
#include <string_view>

namespace brovanta {

/// Narrows UTF-16 text. A character without a counterpart becomes "?", a surrogate pair one "?".
/// The five bytes that the code page leaves open stand for the control characters of equal value.
[[nodiscard]] std::string NarrowToWindows1252(std::u16string_view text);

/// Widens stored bytes; every byte has a counterpart, so that narrowing gives it back.
[[nodiscard]] std::u16string WidenFromWindows1252(std::string_view text);

/// Stored bytes as UTF-8, each byte the character that every screen shows for it.
[[nodiscard]] std::string Utf8FromWindows1252(std::string_view text);

/// The same as WidenFromWindows1252 into `wide`, which has room for as many units as the text has
/// bytes.
void WidenFromWindows1252(std::string_view text, char16_t* wide);

}  // namespace brovanta
