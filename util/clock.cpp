#include "util/clock.h"

#include <atomic>
#include <ctime>

namespace brovanta {
namespace {
std::atomic<ClockFunction> replacement{nullptr};
}  // namespace

std::int64_t CurrentSeconds() {
  const ClockFunction clock = replacement.load();
  return clock != nullptr ? clock() : static_cast<std::int64_t>(std::time(nullptr));
}

ClockFunction SetClock(ClockFunction clock) { return replacement.exchange(clock); }

}  // namespace brovanta
