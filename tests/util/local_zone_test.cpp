#include "util/local_zone.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

using test::ZoneGuard;

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();

// What the C library says.
CalendarTime SystemCalendar(std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm local{};
  localtime_r(&moment, &local);
  const auto narrow = [](int value) { return static_cast<std::uint16_t>(value); };
  return {narrow(local.tm_year + 1900), narrow(local.tm_mon + 1),
          narrow(local.tm_wday),        narrow(local.tm_mday),
          narrow(local.tm_hour),        narrow(local.tm_min),
          narrow(local.tm_sec),         0};
}

std::string Print(const CalendarTime& time) {
  return std::to_string(time.year) + "-" + std::to_string(time.month) + "-" +
         std::to_string(time.day) + " " + std::to_string(time.hour) + ":" +
         std::to_string(time.minute) + ":" + std::to_string(time.second) + " weekday " +
         std::to_string(time.day_of_week);
}

void ExpectAgreement(const LocalZone& zone, std::int64_t seconds) {
  const CalendarTime time = zone.ToCalendar(seconds);
  const CalendarTime expected = SystemCalendar(seconds);
  ASSERT_EQ(time, expected) << seconds << ": " << Print(time) << " for " << Print(expected);
  // Back again: the same moment, or an earlier one that shows the same local time.
  const std::int64_t back = zone.ToSeconds(time);
  ASSERT_LE(back, seconds);
  if (back != seconds) {
    ASSERT_EQ(SystemCalendar(back), expected) << seconds;
  }
}

class LocalZoneTest : public testing::TestWithParam<const char*> {};

TEST_P(LocalZoneTest, AgreesWithTheSystemOverTheWhole32Bits) {
  const ZoneGuard guard(GetParam());
  const auto zone = LocalZone::Current();
  // Steps of a little more than three days, at every time of day.
  for (std::int64_t seconds = kLowest; seconds <= kHighest; seconds += 271828) {
    ExpectAgreement(*zone, seconds);
    if (HasFatalFailure()) return;
  }
  ExpectAgreement(*zone, kHighest);
}

TEST_P(LocalZoneTest, AgreesWithTheSystemToTheSecondAroundEachChange) {
  const ZoneGuard guard(GetParam());
  const auto zone = LocalZone::Current();
  const auto offset = [](std::int64_t seconds) {
    const std::time_t moment = seconds;
    std::tm local{};
    localtime_r(&moment, &local);
    return local.tm_gmtoff;
  };
  constexpr std::int64_t kHour = 3600;
  for (std::int64_t hour = kLowest; hour <= kHighest - kHour; hour += kHour) {
    if (offset(hour) == offset(hour + kHour)) continue;
    for (std::int64_t second = -1; second <= kHour + 1; ++second) {
      ExpectAgreement(*zone, hour + second);
      if (HasFatalFailure()) return;
    }
  }
}

// The letters and digits of a zone.
std::string NameOfCase(const testing::TestParamInfo<const char*>& zone) {
  std::string name;
  for (const char* at = zone.param; *at != '\0'; ++at) {
    if (std::isalnum(static_cast<unsigned char>(*at)) != 0) name += *at;
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Zones, LocalZoneTest,
                         testing::Values("Europe/London", "America/New_York", "Australia/Lord_Howe",
                                         "Asia/Kathmandu", "UTC", "Pacific/Apia",
                                         "Africa/Casablanca", "Africa/Freetown", "America/Recife",
                                         "Asia/Gaza", "America/Argentina/San_Luis",
                                         "Africa/El_Aaiun", "Africa/Cairo", "Pacific/Honolulu",
                                         "AAA-14:30BBB-13,M3.2.0,M11.1.0"),
                         NameOfCase);

TEST(LocalZoneRulesTest, AnAmbiguousTimeIsTheEarlierWhateverWasConvertedBefore) {
  const ZoneGuard guard("Europe/London");
  const CalendarTime ambiguous{2024, 10, 0, 27, 1, 0, 0, 0};
  const std::int64_t earlier = 1729987200;  // 00:00 UTC; the later one is 01:00 UTC
  for (const std::uint16_t month : std::array<std::uint16_t, 3>{1, 7, 12}) {
    // The C library's own conversion remembers the last one; ours must not.
    std::tm other{};
    other.tm_year = 124;
    other.tm_mon = month - 1;
    other.tm_mday = 15;
    other.tm_isdst = -1;
    ASSERT_NE(std::mktime(&other), -1);
    const auto zone = LocalZone::Current();
    ASSERT_NE(zone->ToSeconds({2024, month, 0, 15, 12, 0, 0, 0}), 0);
    EXPECT_EQ(zone->ToSeconds(ambiguous), earlier);
  }
}

TEST(LocalZoneRulesTest, TheLastAmbiguousSecondIsTheEarlierToo) {
  const ZoneGuard guard("Europe/London");
  const auto zone = LocalZone::Current();
  EXPECT_EQ(zone->ToSeconds({2024, 10, 0, 27, 1, 59, 59, 0}), 1729990799);
  EXPECT_EQ(zone->ToSeconds({2024, 10, 0, 27, 2, 0, 0, 0}), 1729994400);
}

TEST(LocalZoneRulesTest, AMissingTimeIsReadOnTheLaterSideOfTheGap) {
  const ZoneGuard guard("Europe/London");
  const auto zone = LocalZone::Current();
  EXPECT_EQ(zone->ToSeconds({2024, 3, 0, 31, 0, 59, 59, 0}), 1711846799);
  const std::int64_t one = zone->ToSeconds({2024, 3, 0, 31, 1, 0, 0, 0});
  EXPECT_EQ(one, 1711846800);
  EXPECT_EQ(zone->ToCalendar(one).hour, 2);
  const std::int64_t half_past = zone->ToSeconds({2024, 3, 0, 31, 1, 30, 0, 0});
  EXPECT_EQ(half_past, 1711846800 + 1800);
  EXPECT_EQ(zone->ToCalendar(half_past).hour, 2);
  EXPECT_EQ(zone->ToCalendar(half_past).minute, 30);
  EXPECT_EQ(zone->ToSeconds({2024, 3, 0, 31, 2, 0, 0, 0}), 1711846800);
}

TEST(LocalZoneRulesTest, ASkippedDayLeadsToTheNextOne) {
  const ZoneGuard guard("Pacific/Apia");  // 2011-12-30 was left out there
  const auto zone = LocalZone::Current();
  const std::int64_t seconds = zone->ToSeconds({2011, 12, 0, 30, 1, 0, 0, 0});
  EXPECT_EQ(zone->ToCalendar(seconds), (CalendarTime{2011, 12, 6, 31, 1, 0, 0, 0}));
}

TEST(LocalZoneRulesTest, HalfHourChangesAreFound) {
  const ZoneGuard guard("Australia/Lord_Howe");  // back from 2:00 (+11) to 1:30 (+10:30)
  const auto zone = LocalZone::Current();
  EXPECT_EQ(zone->ToSeconds({2024, 4, 0, 7, 1, 45, 0, 0}), 1712414700);
  EXPECT_EQ(zone->ToSeconds({2024, 4, 0, 7, 2, 0, 0, 0}), 1712417400);
}

TEST(LocalZoneRulesTest, FieldsBeyondTheirRangeCarry) {
  const ZoneGuard guard("UTC");
  const auto zone = LocalZone::Current();
  const auto seconds = [&](const CalendarTime& time) { return zone->ToSeconds(time); };
  EXPECT_EQ(seconds({2024, 13, 0, 1, 0, 0, 0, 0}), seconds({2025, 1, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(seconds({2024, 0, 0, 1, 0, 0, 0, 0}), seconds({2023, 12, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(seconds({2024, 2, 0, 30, 0, 0, 0, 0}), seconds({2024, 3, 0, 1, 0, 0, 0, 0}));
  EXPECT_EQ(seconds({2024, 3, 0, 0, 24, 60, 60, 0}), seconds({2024, 3, 0, 1, 1, 1, 0, 0}));
  EXPECT_EQ(seconds({0, 0, 0, 0, 0, 0, 0, 0}), -62169984000);  // November 30 before year 0
}

TEST(LocalZoneCurrentTest, AChangedVariableGivesANewZoneAndTheOldOneStays) {
  const ZoneGuard outer("Europe/London");
  const auto london = LocalZone::Current();
  EXPECT_EQ(london, LocalZone::Current());
  {
    const ZoneGuard inner("America/New_York");
    EXPECT_EQ(LocalZone::Current()->ToCalendar(0).hour, 19);
    EXPECT_EQ(london->ToCalendar(0).hour, 1);  // British Standard Time
  }
  EXPECT_EQ(LocalZone::Current()->ToCalendar(0).hour, 1);
}

TEST(LocalZoneCurrentTest, WithoutAVariableTheSystemsZoneCounts) {
  const ZoneGuard guard("Asia/Kathmandu");
  ASSERT_EQ(LocalZone::Current()->ToCalendar(0).hour, 5);
  unsetenv("TZ");
  const auto zone = LocalZone::Current();
  EXPECT_EQ(zone->ToCalendar(1720114215), SystemCalendar(1720114215));
  EXPECT_EQ(zone, LocalZone::Current());
}

TEST(LocalZoneCurrentTest, ManyThreadsMayAskAtOnce) {
  const ZoneGuard guard("Europe/London");
  std::vector<std::thread> threads;
  std::vector<std::int64_t> results(4);
  for (std::size_t i = 0; i < results.size(); ++i) {
    threads.emplace_back([&results, i] {
      for (int round = 0; round < 200; ++round) {
        results[i] = LocalZone::Current()->ToSeconds({2024, 10, 0, 27, 1, 0, 0, 0});
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(results, std::vector<std::int64_t>(4, 1729987200));
}

}  // namespace
}  // namespace brovanta
