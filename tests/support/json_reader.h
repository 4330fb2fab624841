// A strict reader of JSON for tests: one value, and nothing that the standard does not allow.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace brovanta::test {

/// Every string, number, true, false and null of the document by its path, such as
/// "results[0].item.title"; strings decoded, everything else as written. Empty objects and arrays
/// stand there as "{}" and "[]". Nothing when the text is no JSON, holds a key twice or is not
/// UTF-8.
[[nodiscard]] std::optional<std::map<std::string, std::string>> ReadJson(std::string_view text);

}  // namespace brovanta::test
