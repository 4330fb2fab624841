#include "server/calendar_day.h"

#include <gtest/gtest.h>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta::server {
namespace {

Day MakeDay(int year, unsigned month, unsigned day) {
  return {std::chrono::year(year), std::chrono::month(month), std::chrono::day(day)};
}

TEST(ParseDay, ReadsTheOneForm) {
  EXPECT_EQ(ParseDay("2025-05-01"), MakeDay(2025, 5, 1));
  EXPECT_EQ(ParseDay("2024-02-29"), MakeDay(2024, 2, 29));
}

TEST(ParseDay, RefusesDaysThatAreNotInTheCalendar) {
  EXPECT_EQ(ParseDay("2025-02-29"), std::nullopt);
  EXPECT_EQ(ParseDay("2025-13-01"), std::nullopt);
  EXPECT_EQ(ParseDay("2025-00-10"), std::nullopt);
  EXPECT_EQ(ParseDay("2025-04-31"), std::nullopt);
}

TEST(ParseDay, RefusesOtherForms) {
  for (const char* text : {"", "2025-5-1", "01.05.2025", "2025/05/01", "2025-05-01 ", "2025-05-0x",
                           "+025-05-01", "20250501"}) {
    EXPECT_EQ(ParseDay(text), std::nullopt) << text;
  }
}

TEST(ParseDay, KeepsWithinWhatAStampCanHold) {
  EXPECT_EQ(ParseDay("1970-01-01"), std::nullopt);
  EXPECT_EQ(ParseDay("1970-01-02"), kFirstDay);
  EXPECT_EQ(ParseDay("2038-01-18"), kLastDay);
  EXPECT_EQ(ParseDay("2038-01-19"), std::nullopt);
}

TEST(FormatDay, WritesWhatParseDayReads) {
  EXPECT_EQ(FormatDay(MakeDay(2025, 5, 1)), "2025-05-01");
}

TEST(DayInWords, IsEnglish) { EXPECT_EQ(DayInWords(MakeDay(2025, 9, 3)), "Sep 3, 2025"); }

TEST(NoonStamp, IsNoonOfTheLocalDay) {
  // 2025-05-01 12:00:00 UTC is 1746100800; Berlin is two hours ahead then, one in January.
  EXPECT_EQ(NoonStamp(*LocalZone::Current(), MakeDay(2025, 5, 1)), 1746100800);
  const test::ZoneGuard zone("Europe/Berlin");
  EXPECT_EQ(NoonStamp(*LocalZone::Current(), MakeDay(2025, 5, 1)), 1746100800 - 7200);
  EXPECT_EQ(NoonStamp(*LocalZone::Current(), MakeDay(2025, 1, 1)), 1735732800 - 3600);
}

TEST(NoonStamp, FitsAStampOnTheFirstAndLastDayOfEveryZone) {
  for (const char* name : {"Pacific/Kiritimati", "Etc/GMT+12"}) {
    const test::ZoneGuard zone(name);
    EXPECT_GT(NoonStamp(*LocalZone::Current(), kFirstDay), 0) << name;
    EXPECT_LT(NoonStamp(*LocalZone::Current(), kLastDay), 2147483647) << name;
  }
}

TEST(Today, IsTheLocalDate) {
  const test::FixedClock clock(1746140000);  // 2025-05-01 22:53:20 UTC
  EXPECT_EQ(Today(), MakeDay(2025, 5, 1));
  const test::ZoneGuard zone("Asia/Tokyo");
  EXPECT_EQ(Today(), MakeDay(2025, 5, 2));
}

TEST(DayOf, TakesTheDateOfACalendarValue) {
  EXPECT_EQ(DayOf({.year = 2025, .month = 5, .day = 1, .hour = 23}), MakeDay(2025, 5, 1));
}

TEST(DaysLater, CrossesMonthsAndYears) {
  EXPECT_EQ(DaysLater(MakeDay(2024, 2, 28), 2), MakeDay(2024, 3, 1));
  EXPECT_EQ(DaysLater(MakeDay(2025, 1, 1), -1), MakeDay(2024, 12, 31));
}

}  // namespace
}  // namespace brovanta::server
