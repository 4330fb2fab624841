#include "util/date_stamp.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

using test::FixedClock;
using test::ZoneGuard;

constexpr std::int64_t kNewYear2024 = 1704067200;   // 2024-01-01 00:00 UTC
constexpr std::int64_t kApril6Of2005 = 1112745600;  // 2005-04-06 00:00 UTC
constexpr DateStamp kLowest = std::numeric_limits<DateStamp>::min();
constexpr DateStamp kHighest = std::numeric_limits<DateStamp>::max();

std::string DayDate(DateStamp stamp) {
  std::array<char, kDayDateSize> buffer;
  EXPECT_EQ(FormatDayDate(stamp, buffer), 0);
  return buffer.data();
}

TEST(DateStampTest, LeapYearsFollowTheGregorianRule) {
  EXPECT_EQ(IsLeapYear(2000), 1);
  EXPECT_EQ(IsLeapYear(2004), 1);
  EXPECT_EQ(IsLeapYear(1900), 0);
  EXPECT_EQ(IsLeapYear(2005), 0);
}

TEST(DateStampTest, FebruaryHas29DaysInLeapYearsOnly) {
  EXPECT_EQ(DaysInMonth(2, 2004), 29);
  EXPECT_EQ(DaysInMonth(2, 1900), 28);
}

TEST(DateStampTest, EveryOtherMonthHasItsDays) {
  const std::array<int, 12> days = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) {
    EXPECT_EQ(DaysInMonth(month, 2000), days[static_cast<std::size_t>(month - 1)]) << month;
  }
}

TEST(DateStampTest, TodayIsTheSameHalfAnHourAfterAndBeforeMidnight) {
  const ZoneGuard zone("UTC");
  FixedClock clock(kNewYear2024 + 1800);
  const DateStamp morning = TodayStamp();
  clock.Set(kNewYear2024 + std::int64_t{23} * 3600 + 1800);
  EXPECT_EQ(morning, TodayStamp());
  EXPECT_EQ(morning, kNewYear2024 + 3600);
}

TEST(DateStampTest, TodayIsOneOClockLocalTime) {
  const ZoneGuard zone("America/New_York");
  const FixedClock clock(kNewYear2024);  // 19:00 of the last evening of 2023 there
  EXPECT_EQ(TodayStamp(), kNewYear2024 - std::int64_t{18} * 3600);
}

TEST(DateStampTest, TodayIsTheSameAllDayWhereOneOClockComesTwice) {
  const ZoneGuard zone("Europe/London");
  const std::int64_t midnight = 1729983600;  // 2024-10-27 00:00 BST
  FixedClock clock(midnight + 60);
  const DateStamp first = TodayStamp();
  EXPECT_EQ(first, 1729987200);  // 00:00 UTC, the first of the two
  for (std::int64_t second = 0; second < std::int64_t{25} * 3600; second += 900) {
    clock.Set(midnight + second);
    EXPECT_EQ(TodayStamp(), first) << second;
  }
}

TEST(DateStampTest, TodayIsTwoOClockWhereOneOClockIsSkipped) {
  const ZoneGuard zone("Europe/London");
  const std::int64_t midnight = 1711843200;  // 2024-03-31 00:00 GMT
  FixedClock clock(midnight);
  EXPECT_EQ(TodayStamp(), 1711846800);
  clock.Set(midnight + std::int64_t{20} * 3600);
  EXPECT_EQ(TodayStamp(), 1711846800);
  const CalendarTime today = CalendarFromStamp(TodayStamp());
  EXPECT_EQ(today.day, 31);
  EXPECT_EQ(today.hour, 2);
}

TEST(DateStampTest, NowKeepsTheTimeOfDay) {
  const ZoneGuard zone("Asia/Kathmandu");
  const FixedClock clock(kNewYear2024 + 12345);
  EXPECT_EQ(NowStamp(), kNewYear2024 + 12345);
}

TEST(DateStampTest, NowIsTheFirstOfTwoEqualLocalTimes) {
  const ZoneGuard zone("Europe/London");
  const FixedClock clock(1729990800 + 60);  // 01:01 GMT, an hour after 01:01 BST
  EXPECT_EQ(NowStamp(), 1729990800 + 60 - 3600);
}

TEST(DateStampTest, AMomentBeyond32BitsBecomesTheNearestStamp) {
  const ZoneGuard zone("UTC");
  const FixedClock clock(std::int64_t{kHighest} + 1000000);
  EXPECT_EQ(NowStamp(), kHighest);
  EXPECT_EQ(TodayStamp(), kHighest);
}

TEST(DateStampTest, StampsAndCalendarValuesConvertBothWays) {
  const ZoneGuard zone("America/New_York");
  const CalendarTime time{2024, 7, 4, 4, 13, 30, 15, 0};  // a Thursday, UTC-4
  const DateStamp stamp = 1720114215;
  EXPECT_EQ(StampFromCalendar(time), stamp);
  EXPECT_EQ(CalendarFromStamp(stamp), time);
}

TEST(DateStampTest, TheDayOfWeekOfACalendarValueDoesNotCount) {
  const ZoneGuard zone("UTC");
  CalendarTime time{2024, 7, 0, 4, 13, 30, 15, 999};
  const DateStamp stamp = StampFromCalendar(time);
  time.day_of_week = 6;
  EXPECT_EQ(StampFromCalendar(time), stamp);
  EXPECT_EQ(CalendarFromStamp(stamp).day_of_week, 4);
  EXPECT_EQ(CalendarFromStamp(stamp).millisecond, 0);
}

TEST(DateStampTest, DatesOutside32BitsAreBounded) {
  const ZoneGuard zone("UTC");
  EXPECT_EQ(StampFromCalendar({2038, 1, 0, 19, 3, 14, 7, 0}), kHighest);
  EXPECT_EQ(StampFromCalendar({2038, 1, 0, 19, 3, 14, 8, 0}), kHighest);
  EXPECT_EQ(StampFromCalendar({65535, 12, 0, 31, 0, 0, 0, 0}), kHighest);
  EXPECT_EQ(StampFromCalendar({1901, 12, 0, 13, 20, 45, 52, 0}), kLowest);
  EXPECT_EQ(StampFromCalendar({1601, 1, 0, 1, 0, 0, 0, 0}), kLowest);
}

TEST(DateStampTest, SaturatedStampKeepsWhatFits) {
  EXPECT_EQ(SaturatedStamp(5), 5);
  EXPECT_EQ(SaturatedStamp(std::int64_t{kHighest} + 1), kHighest);
  EXPECT_EQ(SaturatedStamp(std::int64_t{kLowest} - 1), kLowest);
}

TEST(DateStampTest, DayDateHasTheWeekdayAndNoLeadingZeros) {
  const ZoneGuard zone("UTC");
  EXPECT_EQ(DayDate(static_cast<DateStamp>(kApril6Of2005)), "Wednesday 4/6/2005");
}

TEST(DateStampTest, DayDateNamesAllSevenDays) {
  const ZoneGuard zone("UTC");
  const auto day = [](std::int64_t count) {
    return DayDate(static_cast<DateStamp>(kApril6Of2005 + count * kSecondsPerDay));
  };
  EXPECT_EQ(day(1), "Thursday 4/7/2005");
  EXPECT_EQ(day(2), "Friday 4/8/2005");
  EXPECT_EQ(day(3), "Saturday 4/9/2005");
  EXPECT_EQ(day(4), "Sunday 4/10/2005");
  EXPECT_EQ(day(5), "Monday 4/11/2005");
  EXPECT_EQ(day(6), "Tuesday 4/12/2005");
}

TEST(DateStampTest, DayDateTellsTheLocalDay) {
  const ZoneGuard zone("America/New_York");
  EXPECT_EQ(DayDate(static_cast<DateStamp>(kApril6Of2005)), "Tuesday 4/5/2005");
}

TEST(DateStampTest, DayDateOfBothEndsOf32Bits) {
  const ZoneGuard zone("UTC");
  EXPECT_EQ(DayDate(kHighest), "Tuesday 1/19/2038");
  EXPECT_EQ(DayDate(kLowest), "Friday 12/13/1901");
}

TEST(DateStampTest, TheLongestDayDateFits21Bytes) {
  const ZoneGuard zone("UTC");
  const std::string longest = DayDate(StampFromCalendar({2036, 12, 0, 31, 12, 0, 0, 0}));
  EXPECT_EQ(longest, "Wednesday 12/31/2036");
  EXPECT_EQ(longest.size() + 1, kDayDateSize);
}

TEST(DateStampTest, DayDateIsCutToASmallBuffer) {
  const ZoneGuard zone("UTC");
  std::array<char, 8> buffer{'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_EQ(FormatDayDate(0, std::span(buffer).first(5)), 0);
  EXPECT_STREQ(buffer.data(), "Thur");
  EXPECT_EQ(buffer[5], 'x');
  EXPECT_EQ(FormatDayDate(0, {}), 0);
}

TEST(DateStampTest, MonthAbbrevNamesTheTwelveMonths) {
  const std::array<const char*, 12> names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  for (int month = 1; month <= 12; ++month) {
    std::array<char, 4> buffer{};
    EXPECT_EQ(MonthAbbrev(month, buffer), 0);
    EXPECT_STREQ(buffer.data(), names[static_cast<std::size_t>(month - 1)]);
  }
}

TEST(DateStampTest, MonthAbbrevOutOfRangeLeavesTheBufferAsItWas) {
  for (const int month : {13, 0, -1, std::numeric_limits<int>::max()}) {
    std::array<char, 4> buffer{'o', 'l', 'd', '\0'};
    EXPECT_EQ(MonthAbbrev(month, buffer), 0);
    EXPECT_STREQ(buffer.data(), "old") << month;
  }
}

}  // namespace
}  // namespace brovanta
