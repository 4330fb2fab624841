#include "tests/support/fixed_clock.h"

#include <atomic>

namespace brovanta::test {
namespace {
std::atomic<std::int64_t> fixed_seconds;
std::int64_t FixedSeconds() { return fixed_seconds; }
}  // namespace

FixedClock::FixedClock(std::int64_t seconds) {
  fixed_seconds = seconds;
  previous_ = SetClock(FixedSeconds);
}

FixedClock::~FixedClock() { SetClock(previous_); }

void FixedClock::Set(std::int64_t seconds) { fixed_seconds = seconds; }

}  // namespace brovanta::test
