// Stored 8-bit text to and from the screens' wide text.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace brovanta {

/// Stored Windows-1252 bytes as wide text.
[[nodiscard]] QString WideText(std::string_view stored);

/// Bytes from the web as wide text: as UTF-8 where they are well-formed UTF-8, else as
/// Windows-1252.
[[nodiscard]] QString WebText(std::string_view bytes);

/// Wide text, composed first, as Windows-1252 bytes; a character without a counterpart becomes "?".
[[nodiscard]] std::string NarrowText(const QString& text);

/// A text for one line, as it may come out of the clipboard or off the web: up to the first U+0000,
/// where its stored form would end, and with blanks for line breaks, tabs and the other control
/// characters of ASCII; the controls above stand for bytes of a stored text and stay.
[[nodiscard]] QString OneLine(QString text);

/// OneLine as Windows-1252 bytes: what is stored of a one-line field.
[[nodiscard]] std::string NarrowLine(const QString& text);

}  // namespace brovanta
