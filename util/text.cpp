#include "util/text.h"

#include <cstddef>
#include <string_view>

#include "util/number.h"
#include "util/word_search.h"

namespace brovanta {
namespace {

bool StaysAsItIs(unsigned char character) {
  return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
         (character >= '0' && character <= '9') || character == '-' || character == '*' ||
         character == '.' || character == '_';
}

// TagText in place.
std::optional<std::string_view> BetweenTags(const char* text, const char* open, const char* close) {
  if (text == nullptr || open == nullptr || close == nullptr) return std::nullopt;
  const std::string_view whole(text);
  const std::size_t opening = whole.find(open);
  const std::size_t end = whole.find(close);
  if (opening == std::string_view::npos || end == std::string_view::npos) return std::nullopt;
  const std::size_t start = opening + std::string_view(open).size();
  if (end < start) return std::nullopt;
  return whole.substr(start, end - start);
}

}  // namespace

int AllWordsIn(const char* text, const char* words) {
  if (text == nullptr || words == nullptr) return -1;
  return WordSearch(words).AllIn(text) ? 0 : -1;
}

int AnyWordIn(const char* text, const char* words) {
  if (text == nullptr || words == nullptr) return -1;
  return WordSearch(words).AnyIn(text) ? 0 : -1;
}

std::optional<std::string> TagText(const char* text, const char* open, const char* close) {
  const auto between = BetweenTags(text, open, close);
  if (!between) return std::nullopt;
  return std::string(*between);
}

std::int32_t TagInt(const char* text, const char* open, const char* close) {
  return LeadingInt(BetweenTags(text, open, close).value_or(std::string_view()));
}

double TagDouble(const char* text, const char* open, const char* close) {
  return LeadingDouble(BetweenTags(text, open, close).value_or(std::string_view()));
}

std::optional<std::string> UrlEncode(const char* text) {
  if (text == nullptr) return std::nullopt;
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string encoded;
  for (const char* at = text; *at != '\0'; ++at) {
    const auto character = static_cast<unsigned char>(*at);
    if (StaysAsItIs(character)) {
      encoded += *at;
    } else if (character == ' ') {
      encoded += '+';
    } else if (character > 127) {
      encoded += "%ff";  // kept: the first two digits of the negative value
    } else {
      encoded += '%';
      if (character >= 16) encoded += kDigits[character >> 4];
      encoded += kDigits[character & 15];
      if (character < 16) break;  // kept: one digit, and the encoded text ends
    }
  }
  return encoded;
}

}  // namespace brovanta
