// Any sixteen bytes as a calendar value, any four as a stamp, in several zones: there and back.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "fuzz/require.h"
#include "util/date_stamp.h"

namespace brovanta {
namespace {

using fuzz::Require;
using Zones = std::array<std::shared_ptr<const LocalZone>, 5>;

Zones LoadZones() {
  constexpr std::array<const char*, 5> kNames = {"Europe/London", "America/New_York",
                                                 "Australia/Lord_Howe", "Pacific/Apia",
                                                 "AAA-14:30BBB-13,M3.2.0,M11.1.0"};
  Zones zones;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    setenv("TZ", kNames[i], 1);
    zones[i] = LocalZone::Current();
  }
  return zones;
}

// The calendar value with every field in its range.
CalendarTime InRange(CalendarTime time) {
  time.year = static_cast<std::uint16_t>(1902 + time.year % 136);
  time.month = static_cast<std::uint16_t>(1 + time.month % 12);
  const auto days = static_cast<unsigned>(DaysInMonth(time.month, time.year));
  time.day = static_cast<std::uint16_t>(1 + time.day % days);
  time.hour %= 24;
  time.minute %= 60;
  time.second %= 60;
  time.millisecond = 0;
  return time;
}

void RunCalendar(const LocalZone& zone, const CalendarTime& any) {
  const std::int64_t far = zone.ToSeconds(any);
  Require(far > -70'000'000'000 && far < 3'000'000'000'000, "any fields give a moment");
  CalendarTime time = InRange(any);
  const std::int64_t seconds = zone.ToSeconds(time);
  const CalendarTime shown = zone.ToCalendar(seconds);
  time.day_of_week = shown.day_of_week;
  if (shown == time) return;
  // The local time does not exist: it came to lie behind the gap, a day at most.
  const std::int64_t later = zone.ToSeconds(shown);
  Require(later == seconds, "behind the gap the time exists");
  Require(shown.year > time.year || shown.month > time.month || shown.day > time.day ||
              shown.hour > time.hour || shown.minute > time.minute,
          "later, never earlier");
}

void RunStamp(const LocalZone& zone, DateStamp stamp) {
  const CalendarTime time = zone.ToCalendar(stamp);
  Require(time.month >= 1 && time.month <= 12 && time.day >= 1 && time.hour < 24, "in range");
  Require(time.day <= DaysInMonth(time.month, time.year), "a day of its month");
  const std::int64_t back = zone.ToSeconds(time);
  Require(back <= stamp && stamp - back <= 2 * kSecondsPerDay, "the earlier of two, if any");
  Require(zone.ToCalendar(back) == time, "of the same local time");
}

}  // namespace
}  // namespace brovanta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const brovanta::Zones zones = brovanta::LoadZones();
  brovanta::CalendarTime time;
  brovanta::DateStamp stamp = 0;
  std::memcpy(&time, data, std::min(size, sizeof time));
  std::memcpy(&stamp, data, std::min(size, sizeof stamp));
  for (const auto& zone : zones) {
    brovanta::RunCalendar(*zone, time);
    brovanta::RunStamp(*zone, stamp);
  }
  return 0;
}
