// The feeds that a handheld imports: spans of tagged fields in Windows-1252, without any escaping.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "server/entries.h"
#include "util/local_zone.h"

namespace brovanta::server {

/// A handheld takes a feed of this size whole. Of one beyond 639,998 bytes it keeps no more than
/// this, cut in the middle of an entry if need be.
inline constexpr std::size_t kMaxFeedBytes = 638'976;

/// "<IT>...</IT>" and a line feed.
[[nodiscard]] std::string ListSpan(const ListEntry& entry);

/// "<CP>...</CP>" and a line feed. Dates are noon of their day in the zone, 0 for none.
[[nodiscard]] std::string CouponSpan(const Coupon& coupon, const LocalZone& zone);

/// Gathers whole spans up to a limit; the rest has to wait for the next update.
class FeedText {
 public:
  explicit FeedText(std::size_t limit = kMaxFeedBytes) : limit_(limit) {}

  /// Whether the span still fitted. Nothing may be added behind one that did not, or the handheld
  /// would never ask for it again.
  [[nodiscard]] bool Add(const std::string& span);

  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  std::size_t limit_;
  std::string text_;
};

}  // namespace brovanta::server
