// The word test behind every search box, prepared once and run over many texts without allocating.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brovanta {

/// The upper-case form of a Windows-1252 character, accented letters included.
[[nodiscard]] unsigned char UpperCase(unsigned char character);

/// The words of a search, split at single blanks and folded to upper case. Immutable once built.
class WordSearch {
 public:
  explicit WordSearch(std::string_view words);

  /// Whether there is no word at all.
  [[nodiscard]] bool empty() const { return words_.empty(); }

  /// Whether every word occurs in the text; true when there is no word.
  [[nodiscard]] bool AllIn(std::string_view text) const;

  /// Whether at least one word occurs in the text; false when there is no word.
  [[nodiscard]] bool AnyIn(std::string_view text) const;

 private:
  std::vector<std::string> words_;
};

}  // namespace brovanta
