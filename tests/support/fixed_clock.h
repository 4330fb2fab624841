// A clock that stands still until the test moves it.
#pragma once

#include <cstdint>

#include "util/clock.h"

namespace brovanta::test {

/// While it lives, the program's clock shows what the test sets. One at a time.
class FixedClock {
 public:
  /// Universal seconds since 1970.
  explicit FixedClock(std::int64_t seconds);
  FixedClock(const FixedClock&) = delete;
  FixedClock& operator=(const FixedClock&) = delete;
  ~FixedClock();

  void Set(std::int64_t seconds);

 private:
  ClockFunction previous_;
};

}  // namespace brovanta::test
