#include "data/calendar/recurrence.h"

#include <gmock/gmock.h>

#include <limits>
#include <random>

#include "db/product_filter.h"
#include "db/schedule.h"
#include "tests/data/calendar/calendar_reader.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

using std::chrono::sys_days;
using std::chrono::year;
using testing::ElementsAre;
using testing::IsEmpty;

DateStamp At(int year_number, int month, int day, int hour = 1) {
  CalendarTime time;
  time.year = static_cast<std::uint16_t>(year_number);
  time.month = static_cast<std::uint16_t>(month);
  time.day = static_cast<std::uint16_t>(day);
  time.hour = static_cast<std::uint16_t>(hour);
  return StampFromCalendar(time);
}

ProductRecord Product(std::uint16_t kind, int every, int day, DateStamp start) {
  ProductRecord product;
  product.PurchaseKind = kind;
  product.Every = static_cast<std::uint16_t>(every);
  product.DayValue = static_cast<std::uint16_t>(day);
  product.StartDate = start;
  return product;
}

Recurrence Of(const ProductRecord& product) { return RecurrenceOf(product, *LocalZone::Current()); }

// The due days as the product list computes them, each bought when it is due.
std::vector<sys_days> ByTheList(ProductRecord product, std::size_t most) {
  ProductFilter filter;
  filter.to = std::numeric_limits<DateStamp>::max();
  const ProductListMatcher matcher(filter);
  std::vector<sys_days> days;
  while (days.size() < most && matcher.Passes(product)) {
    const CalendarTime due = CalendarFromStamp(product.NextDate);
    const sys_days day = year{due.year} / int{due.month} / int{due.day};
    if (product.NextDate <= product.LastPurchased) break;
    if (days.empty() || day != days.back()) days.push_back(day);
    product.LastPurchased = product.NextDate;
  }
  return days;
}

void ExpectTheListsDays(const ProductRecord& product, std::size_t most) {
  const std::vector<sys_days> expected = ByTheList(product, most);
  const Recurrence recurrence = Of(product);
  ASSERT_FALSE(recurrence.rule.empty());
  EXPECT_EQ(test::ExpandRule(recurrence.rule, recurrence.first, expected.size()), expected)
      << recurrence.rule;
}

class RecurrenceTest : public testing::Test {
 private:
  test::ZoneGuard zone_{"Europe/Vienna"};
};

TEST_F(RecurrenceTest, OneTimeHasADayAndNoRule) {
  const Recurrence once = Of(Product(kOneTime, 0, 0, At(2026, 11, 21)));
  EXPECT_EQ(once.first, sys_days{year{2026} / 11 / 21});
  EXPECT_EQ(once.rule, "");
  EXPECT_THAT(once.further, IsEmpty());
}

TEST_F(RecurrenceTest, EveryPurchaseTypeHasItsRule) {
  const DateStamp start = At(2026, 11, 21);  // a Saturday
  EXPECT_EQ(Of(Product(kDaily, 0, 1, start)).rule, "FREQ=DAILY");
  EXPECT_EQ(Of(Product(kDaily, 0, 6, start)).rule, "FREQ=DAILY;INTERVAL=6");
  EXPECT_EQ(Of(Product(kWeekly, 1, 1, start)).rule, "FREQ=WEEKLY;BYDAY=MO");
  EXPECT_EQ(Of(Product(kWeekly, 4, 6, start)).rule, "FREQ=WEEKLY;INTERVAL=4;BYDAY=SA");
  EXPECT_EQ(Of(Product(kWeekly, 2, 7, start)).rule, "FREQ=WEEKLY;INTERVAL=2;BYDAY=SU");
  EXPECT_EQ(Of(Product(kMonthly, 1, 21, start)).rule, "FREQ=MONTHLY;BYMONTHDAY=21");
  EXPECT_EQ(Of(Product(kMonthly, 12, 28, start)).rule, "FREQ=MONTHLY;INTERVAL=12;BYMONTHDAY=28");
  EXPECT_EQ(Of(Product(kMonthly, 1, 29, start)).rule, "FREQ=MONTHLY;BYMONTHDAY=28,29;BYSETPOS=-1");
  EXPECT_EQ(Of(Product(kMonthly, 3, 30, start)).rule,
            "FREQ=MONTHLY;INTERVAL=3;BYMONTHDAY=28,29,30;BYSETPOS=-1");
  EXPECT_EQ(Of(Product(kMonthly, 6, 31, start)).rule, "FREQ=MONTHLY;INTERVAL=6;BYMONTHDAY=-1");
}

TEST_F(RecurrenceTest, BeginsWithTheNextDueDay) {
  ProductRecord product = Product(kWeekly, 1, 6, At(2026, 10, 3));
  EXPECT_EQ(Of(product).first, sys_days{year{2026} / 10 / 3});
  product.LastPurchased = At(2026, 11, 21);
  EXPECT_EQ(Of(product).first, sys_days{year{2026} / 11 / 28});
}

TEST_F(RecurrenceTest, TheDayOfAShortMonthIsItsLast) {
  const ProductRecord product = Product(kMonthly, 1, 31, At(2028, 1, 31));
  EXPECT_THAT(DueDays(product, *LocalZone::Current(), 4),
              ElementsAre(sys_days{year{2028} / 1 / 31}, sys_days{year{2028} / 2 / 29},
                          sys_days{year{2028} / 3 / 31}, sys_days{year{2028} / 4 / 30}));
}

TEST_F(RecurrenceTest, AScheduleThatDoesNotGoOnIsOneDay) {
  for (const std::uint16_t kind : {kDaily, kWeekly, kMonthly}) {
    const Recurrence stuck = Of(Product(kind, 0, 0, At(2026, 11, 21)));
    EXPECT_EQ(stuck.rule, "") << kind;
    EXPECT_THAT(stuck.further, IsEmpty());
  }
}

TEST_F(RecurrenceTest, WithoutADueDateThereAreNoDays) {
  EXPECT_THAT(DueDays(Product(kUnscheduled, 0, 0, At(2026, 11, 21)), *LocalZone::Current(), 5),
              IsEmpty());
}

// Half past midnight and a change of the clocks: the program's days are not evenly spaced.
TEST_F(RecurrenceTest, DaysWithoutARuleAreListed) {
  const ProductRecord product = Product(kDaily, 0, 3, At(2026, 6, 1, 0));
  const Recurrence recurrence = Of(product);
  EXPECT_EQ(recurrence.rule, "");
  ASSERT_EQ(recurrence.further.size(), kListedDays - 1);
  std::vector<sys_days> days{recurrence.first};
  days.insert(days.end(), recurrence.further.begin(), recurrence.further.end());
  EXPECT_EQ(days, ByTheList(product, kListedDays));
  EXPECT_EQ(days[48] - days[47], std::chrono::days{3});
  EXPECT_EQ(days[49] - days[48], std::chrono::days{2});  // over 2026-10-25, back by an hour
}

TEST_F(RecurrenceTest, EveryScheduleOfTheDialogHasTheListsDaysOverYears) {
  const DateStamp start = At(2026, 1, 31);
  for (int interval = 1; interval <= 6; ++interval) {
    ExpectTheListsDays(Product(kDaily, 0, interval, start), 2000);
  }
  for (int every = 1; every <= 4; ++every) {
    for (int day = 1; day <= 7; ++day) ExpectTheListsDays(Product(kWeekly, every, day, start), 400);
  }
  for (const int every : {1, 2, 3, 4, 5, 6, 12}) {
    for (int day = 1; day <= 31; ++day) {
      ExpectTheListsDays(Product(kMonthly, every, day, start), 140);
    }
  }
}

TEST_F(RecurrenceTest, SoHaveSchedulesThatHaveBeenBoughtBefore) {
  std::mt19937 random(20261121);
  const auto upto = [&](unsigned most) { return static_cast<int>(random() % (most + 1)); };
  for (int i = 0; i < 300; ++i) {
    const auto kind = static_cast<std::uint16_t>(kDaily + upto(2));
    const int every = kind == kMonthly ? 1 + upto(11) : 1 + upto(3);
    const int day = kind == kMonthly ? 1 + upto(30) : 1 + upto(6);
    ProductRecord product =
        Product(kind, every, day, At(2024 + upto(3), 1 + upto(11), 1 + upto(27)));
    product.LastPurchased = product.StartDate + static_cast<DateStamp>(upto(900) * kSecondsPerDay);
    ExpectTheListsDays(product, 100);
  }
}

}  // namespace
}  // namespace brovanta::data_tool
