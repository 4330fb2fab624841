#include "util/clock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace brovanta {
namespace {

std::int64_t Fortieth() { return 40; }

TEST(ClockTest, ShowsTheSystemsTime) {
  const std::int64_t before = std::time(nullptr);
  const std::int64_t now = CurrentSeconds();
  EXPECT_LE(before, now);
  EXPECT_LE(now, std::time(nullptr));
}

TEST(ClockTest, AReplacementIsShownUntilTheSystemsClockComesBack) {
  EXPECT_EQ(SetClock(Fortieth), nullptr);
  EXPECT_EQ(CurrentSeconds(), 40);
  EXPECT_EQ(SetClock(nullptr), &Fortieth);
  EXPECT_GT(CurrentSeconds(), 1700000000);
}

}  // namespace
}  // namespace brovanta
