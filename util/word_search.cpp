#include "util/word_search.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace brovanta {
namespace {

constexpr unsigned char Fold(unsigned char character) {
  const bool ascii = character >= 'a' && character <= 'z';
  // The accented letters lie 32 above their capitals; 0xF7 is the division sign.
  const bool accented = character >= 0xE0 && character <= 0xFE && character != 0xF7;
  if (ascii || accented) return static_cast<unsigned char>(character - 32);
  if (character == 0x9A || character == 0x9C || character == 0x9E) {
    return static_cast<unsigned char>(character - 16);
  }
  return character == 0xFF ? 0x9F : character;
}

using Table = std::array<unsigned char, 256>;

constexpr Table MakeUpper() {
  Table table{};
  for (unsigned i = 0; i < table.size(); ++i) table[i] = Fold(static_cast<unsigned char>(i));
  return table;
}

constexpr Table kUpper = MakeUpper();

// The one other character that folds to the given upper-case one, or that one itself.
constexpr Table MakeLower() {
  Table table{};
  for (unsigned i = 0; i < table.size(); ++i) table[i] = static_cast<unsigned char>(i);
  for (unsigned i = 0; i < table.size(); ++i) {
    if (kUpper[i] != i) table[kUpper[i]] = static_cast<unsigned char>(i);
  }
  return table;
}

constexpr Table kLower = MakeLower();

constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighBits = 0x8080808080808080;

// Whether any of the eight bytes is zero.
constexpr bool HasZero(std::uint64_t bytes) { return ((bytes - kOnes) & ~bytes & kHighBits) != 0; }

// Whether the text at `at` continues with the folded word, whose first letter is known to match.
bool Continues(const unsigned char* at, std::string_view word) {
  for (std::size_t i = 1; i < word.size(); ++i) {
    if (kUpper[at[i]] != static_cast<unsigned char>(word[i])) return false;
  }
  return true;
}

// Looks for either case of the first letter eight bytes at a time, then compares.
bool Occurs(std::string_view text, std::string_view word) {
  if (word.size() > text.size()) return false;
  const auto* at = reinterpret_cast<const unsigned char*>(text.data());
  const unsigned char* const end = at + (text.size() - word.size()) + 1;
  const unsigned char upper = static_cast<unsigned char>(word[0]);
  const unsigned char lower = kLower[upper];
  while (at != end) {
    std::ptrdiff_t candidates = end - at;
    if (candidates >= 8) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, at, sizeof bytes);
      if (!HasZero(bytes ^ (kOnes * upper)) && !HasZero(bytes ^ (kOnes * lower))) {
        at += 8;
        continue;
      }
      candidates = 8;
    }
    for (; candidates > 0; --candidates, ++at) {
      if ((*at == upper || *at == lower) && Continues(at, word)) return true;
    }
  }
  return false;
}

}  // namespace

unsigned char UpperCase(unsigned char character) { return kUpper[character]; }

WordSearch::WordSearch(std::string_view words) {
  while (!words.empty()) {
    const std::size_t length = std::min(words.find(' '), words.size());
    if (length > 0) {
      std::string& word = words_.emplace_back(words.substr(0, length));
      for (char& character : word) {
        character = static_cast<char>(kUpper[static_cast<unsigned char>(character)]);
      }
    }
    words.remove_prefix(std::min(length + 1, words.size()));
  }
}

bool WordSearch::AllIn(std::string_view text) const {
  return std::all_of(words_.begin(), words_.end(),
                     [text](const std::string& word) { return Occurs(text, word); });
}

bool WordSearch::AnyIn(std::string_view text) const {
  return std::any_of(words_.begin(), words_.end(),
                     [text](const std::string& word) { return Occurs(text, word); });
}

}  // namespace brovanta
