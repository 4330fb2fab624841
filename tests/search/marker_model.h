// The marker search as it is documented, step by step, at whatever cost.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "search/marker.h"

namespace brovanta::test {

/// The first match at or behind `from`.
inline std::optional<MarkerMatch> ModelMatch(std::string_view text, std::string_view marker,
                                             std::size_t from = 0) {
  for (std::size_t start = from; start <= text.size(); ++start) {
    std::ptrdiff_t count = 0;
    std::size_t m = 0;
    std::size_t t = start;
    bool here = true;
    while (here) {
      const auto length =
          static_cast<std::size_t>(static_cast<std::ptrdiff_t>(marker.size()) + count);
      if (m == marker.size()) return MarkerMatch{start, length};
      if (t == text.size()) return std::nullopt;
      if (marker[m] == '*') {
        if (m + 1 == marker.size()) return MarkerMatch{start, length};
        while (t < text.size() && text[t] != marker[m + 1]) {
          ++t;
          ++count;
        }
        here = t < text.size();
        --count;  // one step back, and the walk goes on with the found character
      } else if (marker[m] == '?' || marker[m] == text[t]) {
        ++t;
      } else {
        here = false;
      }
      ++m;
      // The character behind the "*" has been found as it stands, wildcard or not; a "*" there is
      // looked at again and stands for any run from that place on.
    }
  }
  return std::nullopt;
}

}  // namespace brovanta::test
