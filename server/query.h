// The target of a request line, taken apart.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace brovanta::server {

struct Target {
  std::string path;  ///< as it came, not decoded
  std::map<std::string, std::string> parameters;
};

/// "/path?name=value&name=value" with the values form-decoded. Nothing for a broken "%", a
/// parameter without "=", a name twice, or a path that does not start with "/".
[[nodiscard]] std::optional<Target> ParseTarget(std::string_view text);

/// "+" as a blank and "%41" as "A"; nothing for a "%" without two hexadecimal digits.
[[nodiscard]] std::optional<std::string> FormDecoded(std::string_view text);

/// The text without a "%" and perhaps one digit at its end: handhelds cut long addresses anywhere.
[[nodiscard]] std::string_view WithoutCutEscape(std::string_view text);

/// The parameter as an id, 0 to the largest 32-bit number; nothing when it is missing or anything
/// else. Leading zeros are accepted.
[[nodiscard]] std::optional<std::int32_t> IdParameter(const Target& target,
                                                      const std::string& name);

/// The target for the log: what follows "user=" left out, since it says where people live; control
/// and non-ASCII characters replaced, long ones cut.
[[nodiscard]] std::string LoggedTarget(std::string_view text);

}  // namespace brovanta::server
