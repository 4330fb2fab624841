#include "server/plain_number.h"

#include <cstddef>

namespace brovanta::server {

std::optional<std::int32_t> PlainNumber(std::string_view text, std::int32_t most) {
  constexpr std::size_t kMostDigits = 10;
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  if (text.size() > 1 && text[0] == '0') return std::nullopt;
  std::int64_t number = 0;
  for (const char character : text) {
    if (character < '0' || character > '9') return std::nullopt;
    number = number * 10 + (character - '0');
  }
  if (number > most) return std::nullopt;
  return static_cast<std::int32_t>(number);
}

}  // namespace brovanta::server
