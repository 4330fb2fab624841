#include "util/local_zone.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <mutex>
#include <optional>
#include <string>

namespace brovanta {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;
// No zone is further than this from universal time.
constexpr std::int64_t kLargestOffset = 26 * kHour;
constexpr std::int64_t kFirst = std::numeric_limits<std::int32_t>::min() - kLargestOffset;
constexpr std::int64_t kLast = std::numeric_limits<std::int32_t>::max() + kLargestOffset;
// Shorter than the shortest time any zone kept an offset then: 21 days before 1938 (Honolulu,
// 1933), four in the years of war (Freetown, 1939), 17 before 2000 (El Aaiun, 1976), seven in 2000
// (Recife), 21 since 2005 (Cairo, 2010).
struct Era {
  std::int64_t end;
  std::int64_t step;
};
constexpr std::array kEras{
    Era{-1009843200, 16 * kDay},  // 1938-01-01
    Era{-757382400, 3 * kDay},    // 1946-01-01
    Era{946684800, 16 * kDay},    // 2000-01-01
    Era{1104537600, 6 * kDay},    // 2005-01-01
    Era{kLast, 16 * kDay},
};

std::int64_t StepFrom(std::int64_t seconds) {
  for (const Era& era : kEras) {
    if (seconds < era.end) return std::min(era.step, era.end - seconds);
  }
  return kDay;
}

std::int64_t SystemOffset(std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm local{};
  return localtime_r(&moment, &local) != nullptr ? local.tm_gmtoff : 0;
}

// The first moment after `low` with another offset than there; `high` has one.
std::int64_t FindChange(std::int64_t low, std::int64_t high) {
  const std::int64_t offset = SystemOffset(low);
  while (high - low > 1) {
    const std::int64_t middle = low + (high - low) / 2;
    (SystemOffset(middle) == offset ? low : high) = middle;
  }
  return high;
}

// Days since 1970-01-01 of a date of the Gregorian calendar. Years are counted from March, so that
// the leap day is the last day of a year; an era is the 400 years after which all repeats.
std::int64_t DaysFromDate(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t from_march = month > 2 ? month - 3 : month + 9;
  if (month <= 2) --year;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t year_of_era = year - era * 400;
  const std::int64_t day_of_year = (153 * from_march + 2) / 5 + day - 1;
  return era * 146097 + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year -
         719468;
}

// The inverse of DaysFromDate.
void SetDate(std::int64_t days, CalendarTime& time) {
  const std::int64_t shifted = days + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t day_of_era = shifted - era * 146097;
  const std::int64_t year_of_era =
      (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year =
      day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t from_march = (5 * day_of_year + 2) / 153;
  const std::int64_t month = from_march < 10 ? from_march + 3 : from_march - 9;
  time.year = static_cast<std::uint16_t>(year_of_era + era * 400 + (month <= 2 ? 1 : 0));
  time.month = static_cast<std::uint16_t>(month);
  time.day = static_cast<std::uint16_t>(day_of_year - (153 * from_march + 2) / 5 + 1);
}

// What the zone depends on, to notice that it changed.
struct ZoneSource {
  std::optional<std::string> variable;
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  std::time_t seconds = 0;
  long nanoseconds = 0;

  // Brings the source up to date without allocating while nothing changed; whether it did.
  bool Refresh() {
    const char* value = std::getenv("TZ");
    ZoneSource now;
    struct stat status {};
    // With TZ set the C library never looks at the file.
    if (value == nullptr && stat("/etc/localtime", &status) == 0) {
      now.device = status.st_dev;
      now.inode = status.st_ino;
      now.size = status.st_size;
      now.seconds = status.st_mtim.tv_sec;
      now.nanoseconds = status.st_mtim.tv_nsec;
    }
    const bool same_variable = variable ? value != nullptr && *variable == value : value == nullptr;
    if (same_variable && device == now.device && inode == now.inode && size == now.size &&
        seconds == now.seconds && nanoseconds == now.nanoseconds) {
      return false;
    }
    if (value != nullptr) now.variable = value;
    *this = std::move(now);
    return true;
  }
};

}  // namespace

std::shared_ptr<const LocalZone> LocalZone::Current() {
  static std::mutex mutex;
  static ZoneSource source;                      // guarded by mutex
  static std::shared_ptr<const LocalZone> zone;  // guarded by mutex
  const std::lock_guard lock(mutex);
  if (source.Refresh() || zone == nullptr) zone.reset(new LocalZone());
  return zone;
}

LocalZone::LocalZone() {
  tzset();
  std::int64_t low = kFirst;
  spans_.push_back({low, SystemOffset(low)});
  while (low < kLast) {
    const std::int64_t high = low + StepFrom(low);
    const std::int64_t offset = SystemOffset(high);
    if (offset == spans_.back().offset) {
      low = high;
      continue;
    }
    low = FindChange(low, high);
    spans_.push_back({low, SystemOffset(low)});
  }
}

std::size_t LocalZone::SpanAt(std::int64_t seconds) const {
  const auto after =
      std::upper_bound(spans_.begin() + 1, spans_.end(), seconds,
                       [](std::int64_t moment, const Span& span) { return moment < span.from; });
  return static_cast<std::size_t>(after - spans_.begin()) - 1;
}

CalendarTime LocalZone::ToCalendar(std::int64_t seconds) const {
  const std::int64_t local = seconds + spans_[SpanAt(seconds)].offset;
  const std::int64_t days = (local >= 0 ? local : local - (kDay - 1)) / kDay;
  const std::int64_t second_of_day = local - days * kDay;
  CalendarTime time;
  SetDate(days, time);
  // 1970-01-01 was a Thursday.
  time.day_of_week = static_cast<std::uint16_t>(((days + 4) % 7 + 7) % 7);
  time.hour = static_cast<std::uint16_t>(second_of_day / 3600);
  time.minute = static_cast<std::uint16_t>(second_of_day / 60 % 60);
  time.second = static_cast<std::uint16_t>(second_of_day % 60);
  return time;
}

std::int64_t LocalZone::ToSeconds(const CalendarTime& time) const {
  // Month 0 is the December before.
  const std::int64_t months = std::int64_t{time.year} * 12 + time.month - 1;
  const std::int64_t year = months >= 0 ? months / 12 : -1;
  const std::int64_t days = DaysFromDate(year, months - year * 12 + 1, time.day);
  const std::int64_t local = days * kDay + time.hour * kHour + time.minute * kMinute + time.second;
  // The first span that reaches the local time holds the earliest moment that shows it; where the
  // span before ended below it and this one starts above it, it lies in the gap between them.
  std::size_t index = SpanAt(local - kLargestOffset);
  while (index + 1 < spans_.size() && local - spans_[index].offset >= spans_[index + 1].from) {
    const Span& next = spans_[index + 1];
    if (local - next.offset < next.from) break;
    ++index;
  }
  return local - spans_[index].offset;
}

}  // namespace brovanta
