#include "ui/base/period.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/fixed_clock.h"
#include "tests/support/german.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

// Seconds of 2026-01-01 00:00:00 UTC: 56 years of which 14 are leap years.
constexpr std::int64_t kYear2026 = (56 * 365 + 14) * 86400LL;

Period Get(QDate date, int mode) {
  const auto period = PeriodOf(date, mode);
  EXPECT_TRUE(period.has_value());
  return period.value_or(Period{});
}

std::string Heading(QDate date, int mode) { return Get(date, mode).heading.toStdString(); }

class PeriodTest : public testing::Test {
 private:
  test::ZoneGuard zone_{"UTC"};
};

TEST_F(PeriodTest, DayRunsFromMidnightToItsLastSecond) {
  const Period day = Get({2026, 1, 1}, kDailyView);
  EXPECT_EQ(day.start, kYear2026);
  EXPECT_EQ(day.end, kYear2026 + 86399);
  EXPECT_EQ(day.heading.toStdString(), "Jan 01, 2026");
}

TEST_F(PeriodTest, WeekRunsFromSundayToSaturday) {
  // 2026-01-01 is a Thursday: the Sunday before is four days back.
  const Period week = Get({2026, 1, 1}, kWeeklyView);
  EXPECT_EQ(week.start, kYear2026 - 4 * 86400);
  EXPECT_EQ(week.end, kYear2026 + 3 * 86400 - 1);
}

TEST_F(PeriodTest, WeekOfASundayStartsOnItAndThatOfASaturdaySixDaysEarlier) {
  const Period sunday = Get({2026, 11, 15}, kWeeklyView);
  const Period saturday = Get({2026, 11, 21}, kWeeklyView);
  EXPECT_EQ(sunday.start, saturday.start);
  EXPECT_EQ(sunday.end, saturday.end);
  EXPECT_EQ(sunday.start, Get({2026, 11, 15}, kDailyView).start);
  EXPECT_EQ(saturday.end, Get({2026, 11, 21}, kDailyView).end);
}

TEST_F(PeriodTest, WeekFromSundayThe27thToSaturdayThe2ndShowsTheFirstMonthsName) {
  // May 2029 has 31 days and its 27th is a Sunday.
  EXPECT_EQ(Heading({2029, 5, 27}, kWeeklyView), "May 27 - 02, 2029");
  EXPECT_EQ(Heading({2029, 6, 2}, kWeeklyView), "May 27 - 02, 2029");
}

TEST_F(PeriodTest, WeekAtTheEndOfAMonthOf30DaysEndsOnThe3rd) {
  EXPECT_EQ(Heading({2026, 9, 30}, kWeeklyView), "Sep 27 - 03, 2026");
}

TEST_F(PeriodTest, WeekAcrossNewYearShowsDecemberWithTheJanuaryYear) {
  EXPECT_EQ(Heading({2026, 12, 29}, kWeeklyView), "Dec 27 - 02, 2027");
  EXPECT_EQ(Heading({2025, 12, 31}, kWeeklyView), "Dec 28 - 03, 2026");
  EXPECT_EQ(Heading({2026, 1, 3}, kWeeklyView), "Dec 28 - 03, 2026");
}

TEST_F(PeriodTest, MonthRunsFromTheFirstToTheLastSecondOfItsLastDay) {
  const Period month = Get({2026, 1, 17}, kMonthlyView);
  EXPECT_EQ(month.start, kYear2026);
  EXPECT_EQ(month.end, kYear2026 + 31 * 86400 - 1);
  EXPECT_EQ(month.heading.toStdString(), "Jan 2026");
}

TEST_F(PeriodTest, FebruaryOfALeapYearEndsOnThe29th) {
  const Period february = Get({2028, 2, 10}, kMonthlyView);
  const CalendarTime end = CalendarFromStamp(february.end);
  EXPECT_EQ(end.month, 2);
  EXPECT_EQ(end.day, 29);
  EXPECT_EQ(end.hour, 23);
  EXPECT_EQ(end.minute, 59);
  EXPECT_EQ(end.second, 59);
  EXPECT_EQ(CalendarFromStamp(Get({2026, 2, 10}, kMonthlyView).end).day, 28);
}

TEST_F(PeriodTest, UnknownModeHasNoPeriod) {
  EXPECT_FALSE(PeriodOf({2026, 1, 1}, 3000).has_value());
  EXPECT_FALSE(PeriodOf({2026, 1, 1}, 3004).has_value());
}

TEST_F(PeriodTest, FirstAndLastPickableDatesStayWithinAStamp) {
  EXPECT_GT(Get(FirstPickableDate(), kDailyView).start, 0);
  EXPECT_EQ(Heading(FirstPickableDate(), kDailyView), "Jan 02, 1970");
  EXPECT_EQ(Get(LastPickableDate(), kWeeklyView).end, std::numeric_limits<DateStamp>::max());
  EXPECT_LT(Get(LastPickableDate(), kDailyView).end, std::numeric_limits<DateStamp>::max());
}

TEST(PeriodZoneTest, WeekWithAChangeOfTheClocksStillRunsFromSundayToSaturday) {
  const test::ZoneGuard zone("America/New_York");
  // Clocks go forward on Sunday 2024-03-10 at 02:00: the week has 167 hours.
  const Period week = Get({2024, 3, 13}, kWeeklyView);
  EXPECT_EQ(week.start, Get({2024, 3, 10}, kDailyView).start);
  EXPECT_EQ(week.end, Get({2024, 3, 16}, kDailyView).end);
  EXPECT_EQ(week.end - week.start, 167 * 3600 - 1);
  EXPECT_EQ(week.heading.toStdString(), "Mar 10 - 16, 2024");
}

TEST(PeriodZoneTest, TodayIsTheLocalDateOfTheProgramsClock) {
  const test::ZoneGuard zone("Pacific/Auckland");  // 13 hours ahead in January
  const test::FixedClock clock(kYear2026 - 3600);
  EXPECT_EQ(TodayDate(), QDate(2026, 1, 1));
  EXPECT_EQ(DateOfStamp(static_cast<DateStamp>(kYear2026 + 12 * 3600)), QDate(2026, 1, 2));
}

TEST_F(PeriodTest, CalendarValueOfADateIsItsMidnight) {
  const CalendarTime time = CalendarOfDate({2026, 11, 15});
  EXPECT_EQ(time, (CalendarTime{.year = 2026, .month = 11, .day_of_week = 0, .day = 15}));
}

TEST_F(PeriodTest, AViewModeHasItsWords) {
  EXPECT_EQ(PeriodWords(kDailyView), QStringLiteral("on this day"));
  EXPECT_EQ(PeriodWords(kWeeklyView), QStringLiteral("in this week"));
  EXPECT_EQ(PeriodWords(kMonthlyView), QStringLiteral("in this month"));
}

TEST_F(PeriodTest, AnotherLanguageHasItsOwnHeadingsForTheSameTimes) {
  const DateStamp start = Get({2026, 11, 21}, kWeeklyView).start;
  const test::German german;
  EXPECT_EQ(Heading({2026, 3, 5}, kDailyView), "5. M\u00E4rz 2026");
  EXPECT_EQ(Heading({2026, 11, 30}, kWeeklyView), "29.11. - 5.12.2026");
  EXPECT_EQ(Heading({2026, 11, 21}, kMonthlyView), "November 2026");
  EXPECT_EQ(Get({2026, 11, 21}, kWeeklyView).start, start);
  EXPECT_EQ(PeriodWords(kWeeklyView), QStringLiteral("in dieser Woche"));
}

}  // namespace
}  // namespace brovanta
