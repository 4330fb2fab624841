// What must hold in a fuzz target.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace brovanta::fuzz {

/// Ends the process, which is how a fuzzer notices.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace brovanta::fuzz
