#include "db/schedule.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "db/records.h"
#include "tests/db/stored_product.h"
#include "tests/support/zone_guard.h"
#include "util/local_zone.h"

namespace brovanta {
namespace {

using test::At;
using test::kDay;
using test::ZoneGuard;

constexpr DateStamp kEarliest = std::numeric_limits<DateStamp>::min();
constexpr DateStamp kLatest = std::numeric_limits<DateStamp>::max();

ProductRecord Scheduled(std::uint16_t kind, std::uint16_t every, std::uint16_t day_value,
                        DateStamp start, DateStamp last = 0) {
  ProductRecord product;
  product.PurchaseKind = kind;
  product.Every = every;
  product.DayValue = day_value;
  product.StartDate = start;
  product.LastPurchased = last;
  return product;
}

DateStamp Due(const ProductRecord& product) { return NextDueDate(product, *LocalZone::Current()); }

class ScheduleTest : public testing::Test {
 private:
  ZoneGuard zone_{"UTC"};
};

TEST_F(ScheduleTest, KindsWithoutAScheduleHaveNoDueDate) {
  EXPECT_EQ(Due(Scheduled(kUnscheduled, 0, 0, At(2024, 5, 6))), 0);
  EXPECT_EQ(Due(Scheduled(5, 1, 1, At(2024, 5, 6))), 0);
  EXPECT_EQ(Due(Scheduled(65535, 1, 1, At(2024, 5, 6))), 0);
}

TEST_F(ScheduleTest, OneTimeProductIsDueOnItsStartDateUntilItIsBought) {
  EXPECT_EQ(Due(Scheduled(kOneTime, 0, 0, At(2024, 5, 6))), At(2024, 5, 6));
  EXPECT_EQ(Due(Scheduled(kOneTime, 0, 0, At(2024, 5, 6), At(2024, 5, 1))), 0);
  EXPECT_EQ(Due(Scheduled(kOneTime, 0, 0, At(2024, 5, 6), -1)), 0);
}

TEST_F(ScheduleTest, DailyProductBoughtADayAfterItsStartIsDueAfterItsInterval) {
  const DateStamp start = At(2024, 5, 6);
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 3, start, start + kDay)), start + 3 * kDay);
}

TEST_F(ScheduleTest, DailyProductNeverBoughtIsDueOnItsStartDate) {
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 3, At(2024, 5, 6))), At(2024, 5, 6));
}

TEST_F(ScheduleTest, ADueDateEqualToTheLastPurchaseMovesOn) {
  const DateStamp start = At(2024, 5, 6);  // a Monday
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 2, start, start)), start + 2 * kDay);
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 2, start, start + 2 * kDay)), start + 4 * kDay);
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 2, start, start + 2 * kDay - 1)), start + 2 * kDay);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 1, start, start)), start + 7 * kDay);
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 6, start, start)), At(2024, 6, 6));
}

TEST_F(ScheduleTest, WeeklyDayValuesOneToSixAreMondayToSaturday) {
  const DateStamp wednesday = At(2024, 5, 1);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 1, wednesday)), At(2024, 5, 6));
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 2, wednesday)), At(2024, 5, 7));
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 3, wednesday)), wednesday);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 4, wednesday)), At(2024, 5, 2));
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 5, wednesday)), At(2024, 5, 3));
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 6, wednesday)), At(2024, 5, 4));
}

TEST_F(ScheduleTest, WeeklyDayValueZeroIsSunday) {
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 0, At(2024, 5, 1))), At(2024, 5, 5));
}

TEST_F(ScheduleTest, WeeklyDayValueSevenIsSundayAndDoesNotHang) {
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 7, At(2024, 5, 1))), At(2024, 5, 5));
  EXPECT_EQ(Due(Scheduled(kWeekly, 2, 7, At(2024, 5, 1), At(2024, 5, 5))), At(2024, 5, 19));
}

TEST_F(ScheduleTest, WeeklyDayValueAboveSevenStaysOnTheStartsWeekday) {
  const DateStamp wednesday = At(2024, 5, 1);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 8, wednesday)), wednesday);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 65535, wednesday, wednesday)), At(2024, 5, 8));
}

TEST_F(ScheduleTest, WeeklyProductReachesItsWeekdayBeforeWeeksAreCounted) {
  // Bought before the first Friday: that Friday, although two weeks lie between purchases.
  EXPECT_EQ(Due(Scheduled(kWeekly, 2, 5, At(2024, 5, 1), At(2024, 5, 2))), At(2024, 5, 3));
  EXPECT_EQ(Due(Scheduled(kWeekly, 2, 5, At(2024, 5, 1), At(2024, 5, 3))), At(2024, 5, 17));
}

TEST_F(ScheduleTest, WeekdayIsThatOfTheLocalDate) {
  const ZoneGuard zone("Asia/Kathmandu");
  const DateStamp saturday_evening = At(2024, 5, 4, 20);  // already Sunday 01:45 there
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 0, saturday_evening)), saturday_evening);
}

TEST_F(ScheduleTest, AWeekdayThatClocksSkipIsFoundAWeekLater) {
  const ZoneGuard zone("Pacific/Apia");  // had no Friday 2011-12-30
  const DateStamp thursday = At(2011, 12, 29, 22);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 5, thursday)), thursday + 7 * kDay);
}

TEST_F(ScheduleTest, MonthlyProductOnDay31IsLoweredToEachMonthsLength) {
  const DateStamp start = At(2023, 1, 31);
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 31, start, At(2023, 1, 31))), At(2023, 2, 28));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 31, start, At(2023, 3, 31))), At(2023, 4, 30));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 31, start, At(2024, 1, 31))), At(2024, 2, 29));
}

TEST_F(ScheduleTest, MonthlyDayIsLoweredFromTheProductsDayAndNotFromTheLastDate) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 31, At(2023, 1, 31), At(2023, 2, 28))), At(2023, 3, 31));
}

TEST_F(ScheduleTest, MonthlyDayAtOrAfterTheStartStaysInItsMonth) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 15, At(2024, 5, 15))), At(2024, 5, 15));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 20, At(2024, 5, 15))), At(2024, 5, 20));
}

TEST_F(ScheduleTest, MonthlyDayBeforeTheStartFallsInTheNextMonth) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 14, At(2024, 5, 15))), At(2024, 6, 14));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 14, At(2024, 12, 15))), At(2025, 1, 14));
}

TEST_F(ScheduleTest, MonthlyDateKeepsTheTimeOfDayOfTheStart) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 3, At(2024, 5, 15, 22, 41, 7))), At(2024, 6, 3, 22, 41, 7));
}

TEST_F(ScheduleTest, MonthlyStepsCrossTheYear) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 3, 10, At(2024, 11, 10), At(2024, 11, 10))), At(2025, 2, 10));
  EXPECT_EQ(Due(Scheduled(kMonthly, 6, 10, At(2024, 7, 10), At(2025, 7, 9))), At(2025, 7, 10));
}

TEST_F(ScheduleTest, TwelveMonthsAfterADecemberIsTheNextDecember) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 12, 24, At(2024, 12, 24), At(2024, 12, 24))), At(2025, 12, 24));
  EXPECT_EQ(Due(Scheduled(kMonthly, 12, 24, At(2024, 12, 24), At(2030, 12, 24))), At(2031, 12, 24));
}

TEST_F(ScheduleTest, MonthlyIntervalsOfManyYearsAreAdded) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 120, 29, At(2024, 2, 29), At(2024, 2, 29))), At(2034, 2, 28));
  EXPECT_EQ(Due(Scheduled(kMonthly, 24, 5, At(2024, 12, 5), At(2024, 12, 5))), At(2026, 12, 5));
}

TEST_F(ScheduleTest, MonthlyDayZeroCountsAsTheFirst) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 0, At(2024, 5, 15))), At(2024, 6, 1));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 0, At(2024, 5, 1))), At(2024, 5, 1));
}

TEST_F(ScheduleTest, MonthlyDayAbove31IsTheLastOfEachMonth) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 65535, At(2024, 4, 15))), At(2024, 4, 30));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 32, At(2024, 4, 15), At(2024, 4, 30))), At(2024, 5, 31));
}

TEST_F(ScheduleTest, AnIntervalOfZeroLeavesTheDateWhereItIs) {
  const DateStamp monday = At(2024, 5, 6);
  const DateStamp later = At(2025, 1, 1);
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 0, monday, later)), monday);
  EXPECT_EQ(Due(Scheduled(kWeekly, 0, 3, monday, later)), At(2024, 5, 8));
  EXPECT_EQ(Due(Scheduled(kMonthly, 0, 9, monday, later)), At(2024, 5, 9));
}

TEST_F(ScheduleTest, AStepBeyondTheRangeStopsAtTheLastDateThatFits) {
  const DateStamp start = kLatest - 10 * kDay;
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 3, start, kLatest)), start + 9 * kDay);
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 65535, start, start)), start);
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 9, start, kLatest)), start + 7 * kDay);
  EXPECT_EQ(Due(Scheduled(kWeekly, 65535, 9, start, start)), start);
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 5, At(2037, 11, 5), kLatest)), At(2038, 1, 5));
  EXPECT_EQ(Due(Scheduled(kMonthly, 65535, 5, At(2037, 11, 5), At(2037, 11, 5))), At(2037, 11, 5));
}

TEST_F(ScheduleTest, TheWalkToTheWeekdayStopsAtTheLastDateThatFits) {
  // The range ends on Tuesday 2038-01-19 at 03:14:07.
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 3, At(2038, 1, 16))), At(2038, 1, 19));
  EXPECT_EQ(Due(Scheduled(kWeekly, 1, 3, At(2038, 1, 16, 4))), At(2038, 1, 18, 4));
}

TEST_F(ScheduleTest, AFirstMonthlyDateBeyondTheRangeLeavesTheStartDate) {
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 31, At(2038, 1, 10))), At(2038, 1, 10));
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 5, At(2038, 1, 10), kLatest)), At(2038, 1, 10));
}

TEST_F(ScheduleTest, SchedulesFromTheEarliestStampReachTheLatest) {
  EXPECT_EQ(Due(Scheduled(kDaily, 0, 1, kEarliest, kLatest)),
            kEarliest + 49710 * std::int64_t{kDay});
  const DateStamp monthly = Due(Scheduled(kMonthly, 1, 13, kEarliest, kLatest));
  EXPECT_EQ(monthly, At(2038, 1, 13, 20, 45, 52));  // the range starts 1901-12-13 20:45:52
}

TEST_F(ScheduleTest, DailyStepsAreSecondsSoThatTheHourMovesWithDaylightSaving) {
  const ZoneGuard zone("Europe/London");
  const DateStamp winter = At(2024, 3, 30);  // 01:00, clocks go forward the night after
  const DateStamp due = Due(Scheduled(kDaily, 0, 1, winter, winter));
  EXPECT_EQ(due, winter + kDay);
  EXPECT_EQ(LocalZone::Current()->ToCalendar(due).hour, 2);
}

TEST_F(ScheduleTest, MonthlyDatesKeepTheirLocalHourOverDaylightSaving) {
  const ZoneGuard zone("Europe/London");
  const DateStamp winter = At(2024, 3, 15, 9);
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 15, winter, winter)), At(2024, 4, 15, 8));
}

TEST_F(ScheduleTest, AMonthlyLocalTimeThatComesTwiceIsTheEarlierOne) {
  const ZoneGuard zone("Europe/London");
  EXPECT_EQ(Due(Scheduled(kMonthly, 1, 27, At(2024, 9, 28, 0))), At(2024, 10, 27, 0));
}

TEST_F(ScheduleTest, OverdueDaysAreWhole) {
  const DateStamp now = At(2024, 5, 6, 12);
  EXPECT_EQ(OverdueDays(now, now), 0);
  EXPECT_EQ(OverdueDays(now - kDay + 1, now), 0);
  EXPECT_EQ(OverdueDays(now - kDay, now), 1);
  EXPECT_EQ(OverdueDays(now - 2 * kDay, now), 2);
}

TEST_F(ScheduleTest, OverdueDaysOfALaterDateWrapAround) {
  const DateStamp now = At(2024, 5, 6, 12);
  EXPECT_EQ(OverdueDays(now + kDay, now), 49709);
  EXPECT_EQ(OverdueDays(now + 1, now), 49710);
  EXPECT_EQ(OverdueDays(kLatest, kEarliest), 0);  // the difference is 1 modulo 2^32
}

}  // namespace
}  // namespace brovanta
