// The text forms of names and values in the registry's file; docs/formats/registry.md has them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace brovanta::platform {

/// Characters of a line of the file, a continuation mark included.
inline constexpr std::size_t kRegistryLineLength = 80;

/// Whether the two names are equal but for the case of ASCII letters.
[[nodiscard]] bool SameRegistryName(std::string_view one, std::string_view other);

/// Whether a name can stand in the file: it has no control character.
[[nodiscard]] bool IsRegistryName(std::string_view name);

/// The text in quotation marks.
[[nodiscard]] std::string QuotedText(std::string_view text);

/// Takes a text in quotation marks off the front of `line`. Nothing, and the line as it was, when
/// none stands there or it has an escape that is not known.
[[nodiscard]] std::optional<std::string> TakeQuotedText(std::string_view& line);

/// What stands behind the name and "=": one line, or several that end with the continuation mark
/// and `line_end`. `column` is the length of what stands in front of it on its first line.
[[nodiscard]] std::string FormatRegistryValue(const RegistryValue& value, std::size_t column,
                                              std::string_view line_end);

/// The value of what stands behind "=", continuation lines already joined. Nothing when the form is
/// not known.
[[nodiscard]] std::optional<RegistryValue> ParseRegistryValue(std::string_view text);

/// The bytes of a REG_SZ: UTF-16LE with a terminating zero.
[[nodiscard]] std::vector<std::byte> BytesFromText(std::u16string_view text);

/// The code units of a REG_SZ up to its first zero; an odd last byte does not count.
[[nodiscard]] std::u16string TextFromBytes(const std::vector<std::byte>& bytes);

}  // namespace brovanta::platform
