// Markers, the patterns that cut a shop's page, and the search for them.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/rigid_text.h"

namespace brovanta {

/// Where a marker was found. The length is that of the marker as written plus one for every
/// character that its wildcards swallowed, less one for each "*".
struct MarkerMatch {
  std::size_t start = 0;
  std::size_t length = 0;

  friend bool operator==(const MarkerMatch&, const MarkerMatch&) = default;
};

/// A marker made ready for any number of searches. "*" stands for any run of characters up to the
/// first one that follows the "*" in the marker, "?" for any one character, everything else for
/// itself. Kept: behind a "*" a "*" or "?" is looked for as that very character, and a "*" at the
/// end counts for exactly one character, which must be there. Immutable.
class Marker {
 public:
  explicit Marker(std::string_view text);

  /// The bytes of the marker as written.
  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  friend class MarkerSearch;

  // A "*" that is not at the end.
  struct Star {
    char first;      // the character that it looks for
    RigidText rest;  // what must stand there, from that character to the next "*"
  };

  std::size_t size_;
  std::size_t least_ = 0;  // bytes that every match takes up at least: not fewer than stars
  RigidText head_;         // before the first "*"
  std::vector<Star> stars_;
  bool ends_with_star_ = false;
};

/// Whoever waits for a search sets it to give up; nullptr: nobody can.
using CancelFlag = const std::atomic<std::int32_t>*;

/// Searches one text for one marker, from front to back. For each "*" of the marker (several in a
/// row count as two) all searches of a text together look at each of its bytes a bounded number of
/// times, whatever stands in it. A marker that is longer than the text costs nothing. Borrows
/// marker, text and flag.
class MarkerSearch {
 public:
  explicit MarkerSearch(const Marker& marker, CancelFlag cancel_flag = nullptr);

  /// Turns to another text.
  void Reset(std::string_view text);

  /// The first match that starts at `from` or behind. Calls for one text go forward: no `from`
  /// before the last match that was found. Nothing as soon as the flag is set.
  [[nodiscard]] std::optional<MarkerMatch> Find(std::size_t from);

  /// Whether the last search gave up for the flag.
  [[nodiscard]] bool gave_up() const { return gave_up_; }

 private:
  enum class Outcome { kMatch, kNotHere, kNowhere };

  [[nodiscard]] Outcome FollowStars(std::size_t& at);
  [[nodiscard]] std::size_t NextFirst(std::size_t star, std::size_t from);

  struct StarState {
    RigidSearch rest;
    std::size_t first = 0;  // where the star's character was found last
    bool searched = false;  // in this text
  };

  const Marker& marker_;
  const CancelFlag cancel_flag_;
  std::string_view text_;
  RigidSearch head_;
  std::vector<StarState> stars_;
  bool gave_up_ = false;
};

/// The first match of the marker in the text.
[[nodiscard]] std::optional<MarkerMatch> MatchMarker(std::string_view text,
                                                     std::string_view marker);

}  // namespace brovanta
