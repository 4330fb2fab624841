// Due dates against a plain walk in single steps, for many random products in several zones.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <ctime>
#include <limits>
#include <random>

#include "db/records.h"
#include "db/schedule.h"
#include "tests/support/zone_guard.h"
#include "util/date_stamp.h"
#include "util/local_zone.h"

namespace brovanta {
namespace {

constexpr std::int64_t kEarliest = std::numeric_limits<DateStamp>::min();
constexpr std::int64_t kLatest = std::numeric_limits<DateStamp>::max();

std::tm LocalTime(std::int64_t seconds) {
  const std::time_t time = seconds;
  std::tm local{};
  localtime_r(&time, &local);
  return local;
}

std::int64_t WalkInSteps(std::int64_t date, std::int64_t last, std::int64_t step) {
  while (date <= last && step != 0 && date + step <= kLatest) date += step;
  return date;
}

std::int64_t WalkWeekly(const ProductRecord& product) {
  std::int64_t date = product.StartDate;
  const int weekday = product.DayValue == 7 ? 0 : product.DayValue;
  while (weekday < 7 && LocalTime(date).tm_wday != weekday && date + 86400 <= kLatest) {
    date += 86400;
  }
  return WalkInSteps(date, product.LastPurchased, std::int64_t{product.Every} * 604800);
}

std::int64_t MonthlyDate(int year, int month, int day_value, const std::tm& start,
                         const LocalZone& zone) {
  const int real_year = month == 0 ? year - 1 : year;
  const int real_month = month == 0 ? 12 : month;
  const int length = DaysInMonth(real_month, real_year);
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(real_year);
  time.month = static_cast<std::uint16_t>(real_month);
  time.day = static_cast<std::uint16_t>(day_value > length ? length : day_value);
  time.hour = static_cast<std::uint16_t>(start.tm_hour);
  time.minute = static_cast<std::uint16_t>(start.tm_min);
  time.second = static_cast<std::uint16_t>(start.tm_sec);
  return zone.ToSeconds(time);
}

std::int64_t WalkMonthly(const ProductRecord& product, const LocalZone& zone) {
  const std::tm start = LocalTime(product.StartDate);
  const int day_value = product.DayValue == 0 ? 1 : product.DayValue;
  int year = start.tm_year + 1900;
  int month = start.tm_mon + 1;
  if (day_value < start.tm_mday) ++month;
  if (month == 13) {
    month = 1;
    ++year;
  }
  std::int64_t date = MonthlyDate(year, month, day_value, start, zone);
  if (date > kLatest) return product.StartDate;
  while (date <= product.LastPurchased && product.Every != 0) {
    month += product.Every;
    if (month > 12) {
      year += month / 12;
      month %= 12;
    }
    // Month 0 is December of the year before; from there on it is counted as that.
    if (month == 0) {
      --year;
      month = 12;
    }
    const std::int64_t next = MonthlyDate(year, month, day_value, start, zone);
    if (next > kLatest) break;
    date = next;
  }
  return date;
}

std::int64_t Walk(const ProductRecord& product, const LocalZone& zone) {
  switch (product.PurchaseKind) {
    case kOneTime:
      return product.LastPurchased != 0 ? 0 : product.StartDate;
    case kDaily:
      return WalkInSteps(product.StartDate, product.LastPurchased,
                         std::int64_t{product.DayValue} * 86400);
    case kWeekly:
      return WalkWeekly(product);
    case kMonthly:
      return WalkMonthly(product, zone);
    default:
      return 0;
  }
}

class RandomProducts {
 public:
  explicit RandomProducts(std::uint32_t seed) : random_(seed) {}

  ProductRecord Next() {
    ProductRecord product;
    product.PurchaseKind = static_cast<std::uint16_t>(Number(0, 5));
    product.Every = Interval();
    product.DayValue = Interval();
    product.StartDate = Stamp();
    product.LastPurchased = Number(0, 3) == 0 ? 0 : Stamp();
    return product;
  }

 private:
  std::int64_t Number(std::int64_t from, std::int64_t to) {
    return std::uniform_int_distribution<std::int64_t>(from, to)(random_);
  }
  std::uint16_t Interval() {
    const std::int64_t choice = Number(0, 9);
    if (choice < 6) return static_cast<std::uint16_t>(Number(0, 8));
    if (choice < 9) return static_cast<std::uint16_t>(Number(0, 40));
    return static_cast<std::uint16_t>(Number(0, 65535));
  }
  /// Mostly within the years of ordinary lists, now and then at either end of the range.
  DateStamp Stamp() {
    const std::int64_t choice = Number(0, 9);
    if (choice == 0) return static_cast<DateStamp>(Number(kEarliest, kLatest));
    if (choice == 1) return static_cast<DateStamp>(kLatest - Number(0, 90) * 43200);
    if (choice == 2) return static_cast<DateStamp>(kEarliest + Number(0, 90) * 43200);
    return static_cast<DateStamp>(Number(1'600'000'000, 1'900'000'000));
  }

  std::mt19937 random_;
};

class ScheduleModelTest : public testing::TestWithParam<const char*> {};

TEST_P(ScheduleModelTest, DueDatesAreThoseOfSingleSteps) {
  const test::ZoneGuard zone_guard(GetParam());
  const auto zone = LocalZone::Current();
  RandomProducts products(20240506);
  for (int round = 0; round < 6000; ++round) {
    const ProductRecord product = products.Next();
    const std::int64_t expected = Walk(product, *zone);
    ASSERT_EQ(NextDueDate(product, *zone), expected)
        << "kind " << product.PurchaseKind << " every " << product.Every << " day "
        << product.DayValue << " start " << product.StartDate << " last " << product.LastPurchased;
  }
}

INSTANTIATE_TEST_SUITE_P(Zones, ScheduleModelTest,
                         testing::Values("UTC", "Europe/London", "America/New_York",
                                         "Asia/Kathmandu", "Pacific/Apia"),
                         [](const auto& zone) {
                           std::string name = zone.param;
                           for (char& character : name) {
                             if (character == '/') character = '_';
                           }
                           return name;
                         });

}  // namespace
}  // namespace brovanta
