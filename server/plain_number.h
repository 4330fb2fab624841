// Whole numbers as tables and addresses have them, without any tolerance.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brovanta::server {

/// Digits without leading zeros, up to `most`; nothing for any other text. 0 is a number.
[[nodiscard]] std::optional<std::int32_t> PlainNumber(std::string_view text, std::int32_t most);

}  // namespace brovanta::server
