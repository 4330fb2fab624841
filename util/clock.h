// The one source of the current time; nothing else in the program asks the system for it.
#pragma once

#include <cstdint>

namespace brovanta {

/// Gives the current moment as seconds since 1970-01-01 00:00:00 UTC.
using ClockFunction = std::int64_t (*)();

/// The current moment as seconds since 1970-01-01 00:00:00 UTC. Any thread may call it.
[[nodiscard]] std::int64_t CurrentSeconds();

/// Puts `clock` in the place of the system's clock (tests step time with it); nullptr brings the
/// system's clock back. Returns what was in place before, nullptr for the system's clock.
ClockFunction SetClock(ClockFunction clock);

}  // namespace brovanta
