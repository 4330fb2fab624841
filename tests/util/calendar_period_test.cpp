#include "util/calendar_period.h"

#include <gtest/gtest.h>

#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

// Seconds of 2026-01-01 00:00:00 UTC: 56 years of which 14 are leap years.
constexpr std::int64_t kYear2026 = (56 * 365 + 14) * 86400LL;

CalendarTime Date(int year, int month, int day) {
  CalendarTime date;
  date.year = static_cast<std::uint16_t>(year);
  date.month = static_cast<std::uint16_t>(month);
  date.day = static_cast<std::uint16_t>(day);
  return date;
}

std::string Heading(int year, int month, int day, PeriodKind kind) {
  return PeriodAround(Date(year, month, day), kind).heading;
}

TEST(CalendarPeriodTest, ADayRunsFromMidnightToItsLastSecond) {
  const test::ZoneGuard zone("UTC");
  const CalendarPeriod day = PeriodAround(Date(2026, 1, 1), PeriodKind::kDay);
  EXPECT_EQ(day.start, kYear2026);
  EXPECT_EQ(day.end, kYear2026 + 86399);
  EXPECT_EQ(day.heading, "Jan 01, 2026");
}

TEST(CalendarPeriodTest, AWeekRunsFromSundayToSaturday) {
  const test::ZoneGuard zone("UTC");
  // 2026-01-01 is a Thursday: the Sunday before is four days back.
  const CalendarPeriod week = PeriodAround(Date(2026, 1, 1), PeriodKind::kWeek);
  EXPECT_EQ(week.start, kYear2026 - 4 * 86400);
  EXPECT_EQ(week.end, kYear2026 + 3 * 86400 - 1);
  EXPECT_EQ(week.heading, "Dec 28 - 03, 2026");
}

TEST(CalendarPeriodTest, AWeekShowsTheFirstMonthAndTheLastYear) {
  EXPECT_EQ(Heading(2029, 5, 27, PeriodKind::kWeek), "May 27 - 02, 2029");
  EXPECT_EQ(Heading(2029, 6, 2, PeriodKind::kWeek), "May 27 - 02, 2029");
}

TEST(CalendarPeriodTest, FebruaryOfALeapYearEndsOnThe29th) {
  const test::ZoneGuard zone("UTC");
  const CalendarPeriod month = PeriodAround(Date(2028, 2, 10), PeriodKind::kMonth);
  EXPECT_EQ(month.heading, "Feb 2028");
  EXPECT_EQ(month.end - month.start, 29 * 86400 - 1);
}

TEST(CalendarPeriodTest, AWeekWithAChangeOfTheClocksEndsAtMidnightAllTheSame) {
  const test::ZoneGuard zone("Europe/Vienna");
  // On 2026-10-25 a day has 25 hours.
  const CalendarPeriod week = PeriodAround(Date(2026, 10, 26), PeriodKind::kWeek);
  EXPECT_EQ(week.end - week.start, 7 * 86400 + 3600 - 1);
  EXPECT_EQ(CalendarFromStamp(week.end).hour, 23);
  EXPECT_EQ(CalendarFromStamp(week.end).day, 31);
}

}  // namespace
}  // namespace brovanta
