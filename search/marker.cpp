#include "search/marker.h"

#include <cstring>
#include <string>

namespace brovanta {

namespace {

// The second "*" in a row looks for a "*", finds the one that the first has found, and stays there.
// So does each further one: they change nothing.
std::string WithoutIdleStars(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  for (const char character : text) {
    if (character != '*' || !kept.ends_with("**")) kept += character;
  }
  return kept;
}

}  // namespace

// The character behind a "*" belongs to what follows it, unless it is a "*" itself: that one is
// looked for, found, and then stands for any run again, from that very place.
Marker::Marker(std::string_view text) : size_(text.size()) {
  const std::string kept = WithoutIdleStars(text);
  const std::string_view marker = kept;
  std::size_t star = marker.find('*');
  head_ = RigidText(marker.substr(0, star));
  least_ = head_.size();
  while (star != std::string_view::npos) {
    if (star + 1 == marker.size()) {
      ends_with_star_ = true;
      ++least_;
      return;
    }
    const std::size_t next = marker.find('*', star + 1);
    stars_.push_back({marker[star + 1], RigidText(marker.substr(star + 1, next - star - 1))});
    // A "*" that was looked for stands before what the next one looks for, unless that is the end.
    const bool found_star = next == star + 1 && next + 1 < marker.size();
    least_ += stars_.back().rest.size() + (found_star ? 1 : 0);
    star = next;
  }
}

MarkerSearch::MarkerSearch(const Marker& marker, CancelFlag cancel_flag)
    : marker_(marker), cancel_flag_(cancel_flag), head_(marker.head_) {}

void MarkerSearch::Reset(std::string_view text) {
  text_ = text;
  if (text.size() < marker_.least_) return;  // nor is anything looked at
  head_.Reset(text);
  if (stars_.empty()) {
    stars_.reserve(marker_.stars_.size());
    for (const Marker::Star& star : marker_.stars_) stars_.push_back({RigidSearch(star.rest)});
  }
  for (StarState& star : stars_) {
    star.rest.Reset(text);
    star.searched = false;
  }
}

std::optional<MarkerMatch> MarkerSearch::Find(std::size_t from) {
  for (;;) {
    gave_up_ = cancel_flag_ != nullptr && *cancel_flag_ != 0;
    if (gave_up_) return std::nullopt;
    if (from > text_.size() || text_.size() - from < marker_.least_) return std::nullopt;
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
