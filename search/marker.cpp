#include "search/marker.h"

#include <cstring>

namespace brovanta {

// The character behind a "*" belongs to what follows it, unless it is a "*" itself: that one is
// looked for, found, and then stands for any run again, from that very place.
Marker::Marker(std::string_view text) : size_(text.size()) {
  std::size_t star = text.find('*');
  head_ = RigidText(text.substr(0, star));
  while (star != std::string_view::npos) {
    if (star + 1 == text.size()) {
      ends_with_star_ = true;
      return;
    }
    const std::size_t next = text.find('*', star + 1);
    stars_.push_back({text[star + 1], RigidText(text.substr(star + 1, next - star - 1))});
    star = next;
  }
}

MarkerSearch::MarkerSearch(const Marker& marker) : marker_(marker), head_(marker.head_) {
  stars_.reserve(marker.stars_.size());
  for (const Marker::Star& star : marker.stars_) stars_.push_back({RigidSearch(star.rest)});
}

void MarkerSearch::Reset(std::string_view text) {
  text_ = text;
  head_.Reset(text);
  for (StarState& star : stars_) {
    star.rest.Reset(text);
    star.searched = false;
  }
}

std::optional<MarkerMatch> MarkerSearch::Find(std::size_t from) {
  for (;;) {
    const std::size_t start = head_.Find(from);
    if (start == RigidSearch::kNowhere) return std::nullopt;
    std::size_t at = start + marker_.head_.size();
    switch (FollowStars(at)) {
      case Outcome::kMatch:
        return MarkerMatch{start, at - start};
      case Outcome::kNowhere:
        return std::nullopt;
      case Outcome::kNotHere:
        // All that comes behind the first "*" depends on where its character was found. A start
        // from which it is found there again fails again.
        from = stars_.front().first + 1 - marker_.head_.size();
    }
  }
}

// Every place here only moves on when the start moves on. So where something is missing up to the
// end of the text it is missing for each later start as well.
MarkerSearch::Outcome MarkerSearch::FollowStars(std::size_t& at) {
  for (std::size_t i = 0; i < stars_.size(); ++i) {
    at = NextFirst(i, at);
    const std::size_t length = marker_.stars_[i].rest.size();
    if (at == RigidSearch::kNowhere || length > text_.size() - at) return Outcome::kNowhere;
    if (!stars_[i].rest.IsAt(at)) return Outcome::kNotHere;
    at += length;
  }
  if (!marker_.ends_with_star_) return Outcome::kMatch;
  if (at == text_.size()) return Outcome::kNowhere;
  ++at;
  return Outcome::kMatch;
}

// Remembers what it found: for all starts together the text is looked through once.
std::size_t MarkerSearch::NextFirst(std::size_t star, std::size_t from) {
  StarState& state = stars_[star];
  if (state.searched && state.first >= from) return state.first;
  const void* found = nullptr;
  if (from < text_.size()) {
    found = std::memchr(text_.data() + from, static_cast<unsigned char>(marker_.stars_[star].first),
                        text_.size() - from);
  }
  state.searched = true;
  state.first = found == nullptr
                    ? RigidSearch::kNowhere
                    : static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
  return state.first;
}

std::optional<MarkerMatch> MatchMarker(std::string_view text, std::string_view marker) {
  const Marker prepared(marker);
  MarkerSearch search(prepared);
  search.Reset(text);
  return search.Find(0);
}

}  // namespace brovanta
