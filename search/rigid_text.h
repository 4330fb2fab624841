// Texts with "?" for any one character: what stands between the "*" of a marker.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta {

/// A pattern of a fixed length, prepared once. Immutable.
class RigidText {
 public:
  RigidText() = default;
  explicit RigidText(std::string_view text);

  [[nodiscard]] std::size_t size() const { return text_.size(); }

 private:
  friend class RigidSearch;

  // Up to this many bytes comparing byte by byte is quick enough at every place of a page. Longer
  // ones, which no shop needs, look at each byte of the page once, so that a page full of near
  // matches does not take minutes: without "?" with the length of the beginning that has been seen,
  // with "?" with a bit for each beginning.
  static constexpr std::size_t kLong = 1024;
  static constexpr std::size_t kBits = 64;

  [[nodiscard]] bool is_long() const { return text_.size() > kLong; }
  [[nodiscard]] bool Equals(const char* bytes) const;
  void PrepareLengths();
  void PrepareBits();

  std::string text_;
  std::size_t literal_ = 0;  // bytes before the first "?"
  bool any_ = false;         // there is a "?"
  // Long ones without "?": for each beginning, the length of the next shorter beginning that it
  // ends with.
  std::vector<std::uint32_t> shorter_;
  // Long ones with "?": for each byte value a row of bits, set where the pattern takes that byte.
  std::size_t words_ = 0;  // of a row
  std::vector<std::uint64_t> takes_;
};

/// Looks for one pattern in one text, going forward only. Borrows both: they must outlive it.
class RigidSearch {
 public:
  static constexpr std::size_t kNowhere = std::string_view::npos;

  explicit RigidSearch(const RigidText& pattern) : pattern_(&pattern) {}

  void Reset(std::string_view text);

  /// The first place of the pattern at `from` or behind, or kNowhere. No `from` is before one of an
  /// earlier call of either operation.
  [[nodiscard]] std::size_t Find(std::size_t from);

  /// Whether the pattern stands at the place.
  [[nodiscard]] bool IsAt(std::size_t place);

 private:
  [[nodiscard]] std::size_t FindShort(std::size_t from) const;
  [[nodiscard]] std::size_t FindLong(std::size_t from);
  [[nodiscard]] bool Step(char next);
  [[nodiscard]] bool StepLength(char next);
  [[nodiscard]] bool StepBits(char next);

  const RigidText* pattern_;
  std::string_view text_;
  // Long ones only:
  std::size_t length_ = 0;           // of the longest beginning that ends here
  std::vector<std::uint64_t> ends_;  // which beginnings end here
  std::size_t scanned_ = 0;          // bytes of the text that have been taken in
  std::size_t found_ = 0;            // the last place found
  bool has_found_ = false;
};

}  // namespace brovanta
