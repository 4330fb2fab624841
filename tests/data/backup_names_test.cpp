#include "data/backup_names.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/support/fixed_clock.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kNoon = 1795262400 - 1795262400 % kDay + kDay / 2;  // 2026-11-21

TEST(TodaysCopyNameTest, IsTheLocalDate) {
  const test::ZoneGuard zone("UTC");
  const test::FixedClock clock(kNoon);
  EXPECT_EQ(TodaysCopyName(), "2026-11-21");
}

TEST(TodaysCopyNameTest, FollowsTheZone) {
  const test::ZoneGuard zone("Asia/Tokyo");  // nine hours ahead
  test::FixedClock clock(kNoon);
  EXPECT_EQ(TodaysCopyName(), "2026-11-21");
  clock.Set(kNoon + 4 * 3600);
  EXPECT_EQ(TodaysCopyName(), "2026-11-22");
}

TEST(DayOfCopyTest, CountsDays) {
  EXPECT_EQ(DayOfCopy("1970-01-01"), 0);
  EXPECT_EQ(DayOfCopy("1970-02-01"), 31);
  EXPECT_EQ(DayOfCopy("1971-01-01"), 365);
  EXPECT_EQ(DayOfCopy("2000-02-29"), 11016);
  EXPECT_EQ(DayOfCopy("2000-03-01"), 11017);
  EXPECT_EQ(DayOfCopy("2026-11-21"), kNoon / kDay);
}

TEST(DayOfCopyTest, OtherNamesHaveNone) {
  for (const char* const name :
       {"", "2026-11-2", "2026-11-211", "2026-13-01", "2026-00-01", "2026-11-31", "2025-02-29",
        "2026-11-00", "2026/11/21", "2026-11-2x", "-026-11-21", "2026--1-21", "2026-11-21.part"}) {
    EXPECT_EQ(DayOfCopy(name), std::nullopt) << name;
    EXPECT_FALSE(IsCopyName(name)) << name;
  }
}

TEST(BeforeRestoreNameTest, HasTheDayAndANumber) {
  EXPECT_EQ(BeforeRestoreName("2026-11-21", 1), "2026-11-21.before-restore");
  EXPECT_EQ(BeforeRestoreName("2026-11-21", 2), "2026-11-21.before-restore2");
  for (const char* const name : {"2026-11-21.before-restore", "2026-11-21.before-restore2",
                                 "2026-11-21.before-restore117"}) {
    EXPECT_TRUE(IsBeforeRestoreName(name)) << name;
    EXPECT_TRUE(IsCopyName(name));
  }
  for (const char* const name :
       {"2026-11-21", "2026-11-31.before-restore", "2026-11-21.before-restore1",
        "2026-11-21.before-restore02", "2026-11-21.before-restore-2", "before-restore",
        "2026-11-21.before-restore.part"}) {
    EXPECT_FALSE(IsBeforeRestoreName(name)) << name;
  }
}

constexpr auto kLaterThanAll = 1796126400;  // 2026-12-01, 12:00:00

TEST(CopiesToRemoveTest, DaysToComeNeitherCountNorGo) {
  const test::FixedClock clock(1795262400);  // 2026-11-21, 12:00:00
  std::vector<std::string> names = {"2026-11-13", "2026-11-21"};
  for (int year = 2030; year < 2050; ++year) names.push_back(std::to_string(year) + "-01-01");
  EXPECT_THAT(CopiesToRemove(names), IsEmpty());
  for (int day = 14; day < 21; ++day) names.push_back("2026-11-" + std::to_string(day));
  // Seven days to 15; of the two before it, in one week, the first.
  EXPECT_THAT(CopiesToRemove(names), ElementsAre("2026-11-14"));
}

TEST(CopiesToRemoveTest, SevenDaysStay) {
  const test::FixedClock clock(kLaterThanAll);
  EXPECT_THAT(CopiesToRemove({"2026-11-21", "2026-11-20", "2026-11-19", "2026-11-18", "2026-11-17",
                              "2026-11-16", "2026-11-15"}),
              IsEmpty());
}

TEST(CopiesToRemoveTest, OfOlderWeeksTheFirstDayStays) {
  const test::FixedClock clock(kLaterThanAll);
  // 2026-11-09 was a Monday, and so were 02 and 16.
  EXPECT_THAT(CopiesToRemove({"2026-11-22", "2026-11-21", "2026-11-20", "2026-11-19", "2026-11-18",
                              "2026-11-17", "2026-11-16", "2026-11-15", "2026-11-14", "2026-11-11",
                              "2026-11-08", "2026-11-02"}),
              ElementsAre("2026-11-08", "2026-11-14", "2026-11-15"));
}

TEST(CopiesToRemoveTest, WhatIsNoDailyCopyIsNeverNamed) {
  const test::FixedClock clock(kLaterThanAll);
  std::vector<std::string> names = {"letters", "2026-01-01.before-restore", "2026-01-02.part"};
  for (int day = 10; day < 30; ++day) names.push_back("2026-10-" + std::to_string(day));
  for (const std::string& name : CopiesToRemove(names)) EXPECT_TRUE(DayOfCopy(name)) << name;
}

// What is there after each of sixty days with a start, and with starts on some days only.
void LiveThrough(const std::vector<std::int64_t>& days) {
  std::vector<std::string> names;
  std::size_t started = 0;
  for (const std::int64_t day : days) {
    const test::FixedClock clock(kNoon + day * kDay);
    names.push_back(TodaysCopyName());
    ++started;
    for (const std::string& old : CopiesToRemove(names)) std::erase(names, old);
    // The seven newest are the seven latest days with a start.
    std::sort(names.begin(), names.end());
    const std::size_t daily = std::min<std::size_t>(started, kDailyCopies);
    ASSERT_GE(names.size(), daily);
    ASSERT_LE(names.size(), kDailyCopies + kWeeklyCopies);
    for (std::size_t i = 0; i < daily; ++i) {
      const test::FixedClock then(kNoon + days[started - 1 - i] * kDay);
      ASSERT_EQ(names[names.size() - 1 - i], TodaysCopyName());
    }
    // Those before stand for weeks of their own.
    for (std::size_t i = 1; i + daily < names.size(); ++i) {
      const std::int64_t one = (*DayOfCopy(names[i - 1]) + 3) / 7;
      const std::int64_t next = (*DayOfCopy(names[i]) + 3) / 7;
      ASSERT_LT(one, next) << names[i];
    }
  }
  ASSERT_EQ(names.size(), kDailyCopies + kWeeklyCopies);
  // Four weeks back at least.
  EXPECT_GE(*DayOfCopy(names.back()) - *DayOfCopy(names.front()), 4 * 7);
}

TEST(CopiesToRemoveTest, SixtyDaysInARow) {
  const test::ZoneGuard zone("UTC");
  std::vector<std::int64_t> days;
  for (std::int64_t day = 0; day < 60; ++day) days.push_back(day);
  LiveThrough(days);
}

TEST(CopiesToRemoveTest, SixtyStartsWithGaps) {
  const test::ZoneGuard zone("Europe/London");
  std::vector<std::int64_t> days;
  for (std::int64_t i = 0; i < 60; ++i) days.push_back(i * 3 + i % 2);
  LiveThrough(days);
}

}  // namespace
}  // namespace brovanta
