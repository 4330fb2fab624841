#include "server/query.h"

#include <limits>
#include <utility>

namespace brovanta::server {
namespace {

// The value of a hexadecimal digit, or nothing.
std::optional<unsigned> HexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a') + 10;
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A') + 10;
  return std::nullopt;
}

// Cuts the piece in front of the separator off the text; the whole text where there is none.
std::string_view TakeUpTo(std::string_view& text, char separator) {
  const std::size_t at = text.find(separator);
  const std::string_view piece = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return piece;
}

bool AddParameter(Target& target, std::string_view piece) {
  const std::size_t equals = piece.find('=');
  if (equals == std::string_view::npos) return false;
  auto name = FormDecoded(piece.substr(0, equals));
  auto value = FormDecoded(piece.substr(equals + 1));
  if (!name || !value) return false;
  return target.parameters.try_emplace(*std::move(name), *std::move(value)).second;
}

}  // namespace

std::optional<Target> ParseTarget(std::string_view text) {
  Target target;
  target.path = TakeUpTo(text, '?');
  if (!target.path.starts_with('/')) return std::nullopt;
  while (!text.empty()) {
    if (!AddParameter(target, TakeUpTo(text, '&'))) return std::nullopt;
  }
  return target;
}

std::optional<std::string> FormDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      decoded += text[i] == '+' ? ' ' : text[i];
      continue;
    }
    if (text.size() - i < 3) return std::nullopt;
    const auto high = HexDigit(text[i + 1]);
    const auto low = HexDigit(text[i + 2]);
    if (!high || !low) return std::nullopt;
    decoded += static_cast<char>(*high * 16 + *low);
    i += 2;
  }
  return decoded;
}

std::string_view WithoutCutEscape(std::string_view text) {
  const std::size_t percent = text.rfind('%');
  const bool cut = percent != std::string_view::npos && text.size() - percent < 3;
  return cut ? text.substr(0, percent) : text;
}

std::optional<std::int32_t> IdParameter(const Target& target, const std::string& name) {
  const auto found = target.parameters.find(name);
  if (found == target.parameters.end() || found->second.empty()) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : found->second) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
    if (number > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

std::string LoggedTarget(std::string_view text) {
  constexpr std::size_t kMost = 200;
  std::string logged;
  bool in_user = false;
  for (std::size_t i = 0; i < text.size() && logged.size() < kMost; ++i) {
    const char character = text[i];
    if (character == '&') in_user = false;
    if (in_user) continue;
    logged += character > ' ' && character < 0x7F ? character : '?';
    if (logged.ends_with("?user=") || logged.ends_with("&user=")) {
      in_user = true;
      logged += '-';
    }
  }
  return logged;
}

}  // namespace brovanta::server
