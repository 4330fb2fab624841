// Operations on 8-bit, zero-terminated text: word tests, tag extraction and form encoding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brovanta {

/// 0 when every blank-separated word of `words` occurs in `text` as a substring, in any order and
/// any letter case (Windows-1252); also when there is no word at all. -1 otherwise, or when either
/// argument is nullptr.
[[nodiscard]] int AllWordsIn(const char* text, const char* words);

/// 0 when at least one word occurs in `text`; -1 when none does, when there is no word, or when
/// either argument is nullptr. Deliberately unlike AllWordsIn: no words match nothing.
[[nodiscard]] int AnyWordIn(const char* text, const char* words);

/// What lies between the first `open` and the first `close`, both searched from the start of the
/// text. Nothing when an argument is nullptr, a tag is missing, or the closing tag stands before
/// the end of the opening one.
[[nodiscard]] std::optional<std::string> TagText(const char* text, const char* open,
                                                 const char* close);

/// TagText as a decimal integer: leading number, 0 when absent, saturated to 32 bits.
[[nodiscard]] std::int32_t TagInt(const char* text, const char* open, const char* close);

/// TagText as a floating-point number: leading number, 0.0 when absent or not finite, always with a
/// point whatever the locale.
[[nodiscard]] double TagDouble(const char* text, const char* open, const char* close);

/// The text in form encoding, nothing for nullptr. Letters, digits and "-*._" stay, a blank becomes
/// "+", anything else "%" and its code in lower-case hexadecimal. Two quirks are kept, because the
/// query addresses that shops see depend on them: a byte above 127 is written "%ff", and a byte
/// below 16 writes "%", one digit, and ends the result there.
[[nodiscard]] std::optional<std::string> UrlEncode(const char* text);

}  // namespace brovanta
