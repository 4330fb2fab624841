#include "data/calendar/calendar_export.h"

#include <gmock/gmock.h>

#include "tests/data/calendar/calendar_reader.h"
#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using std::chrono::sys_days;
using std::chrono::year;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class CalendarExportTest : public testing::Test {
 private:
  AtNoon noon_;
};

TEST_F(CalendarExportTest, IsTheFileThatItShouldBe) {
  ShoppingData data;
  Name(data.stores, 1, "Corner; Shop");
  Name(data.categories, 2, "Dairy");
  Name(data.units, 3, "bottle");
  ProductRecord milk = Product("Milk", 2, 1.5);
  milk.Id = 12;
  milk.StoreId = 1;
  milk.CategoryId = 2;
  milk.UnitId = 3;
  milk.PurchaseKind = kWeekly;
  milk.Every = 2;
  milk.DayValue = 1;
  milk.Notes = FixedText<kLongTextSize>("fresh,\r\nnot old");
  data.products = {milk};
  EXPECT_EQ(CalendarOf(data),
            "BEGIN:VCALENDAR\r\n"
            "VERSION:2.0\r\n"
            "PRODID:-//Brovanta//brovanta-data//EN\r\n"
            "CALSCALE:GREGORIAN\r\n"
            "X-WR-CALNAME:Shopping list\r\n"
            "BEGIN:VEVENT\r\n"
            "UID:product-12@brovanta\r\n"
            "DTSTAMP:20261121T120000Z\r\n"
            "DTSTART;VALUE=DATE:20261123\r\n"
            "DTEND;VALUE=DATE:20261124\r\n"
            "RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO\r\n"
            "SUMMARY:Milk\\, 2 bottle\r\n"
            "LOCATION:Corner\\; Shop\r\n"
            "CATEGORIES:Dairy\r\n"
            "DESCRIPTION:fresh\\,\\nnot old\r\n"
            "TRANSP:TRANSPARENT\r\n"
            "END:VEVENT\r\n"
            "END:VCALENDAR\r\n");
}

TEST_F(CalendarExportTest, AnotherReaderFindsEveryTextAndDay) {
  ShoppingData data = SampleData();
  data.products[1].Name = FixedText<kNameSize>("K\xE4se, \\alt; \"reif\"");
  data.products[1].Notes = FixedText<kLongTextSize>(std::string(240, 'n') + ",;\\");
  for (std::size_t i = 0; i < data.products.size(); ++i) {
    data.products[i].Id = static_cast<std::int32_t>(i + 1);
  }
  const test::ReadCalendar calendar = test::ReadCalendarFile(CalendarOf(data), 10);
  ASSERT_TRUE(calendar.sound);
  ASSERT_EQ(calendar.events.size(), 4U);  // the nails have no date
  const test::ReadEvent& cheese = calendar.events[1];
  EXPECT_EQ(cheese.texts.at("SUMMARY"), "Käse, \\alt; \"reif\", 0.35");
  EXPECT_EQ(cheese.texts.at("DESCRIPTION"), std::string(240, 'n') + ",;\\");
  EXPECT_EQ(cheese.texts.at("UID"), "product-2@brovanta");
  EXPECT_THAT(cheese.days, ElementsAre(sys_days{year{2026} / 11 / 18}));
}

TEST_F(CalendarExportTest, DaysWithoutARuleAreListed) {
  const test::ZoneGuard zone("Europe/Vienna");
  ShoppingData data;
  ProductRecord bread = Product("Bread", 1, 1);
  bread.PurchaseKind = kDaily;
  bread.DayValue = 3;
  CalendarTime start = Date(2026, 6, 1);
  bread.StartDate = StampFromCalendar(start);
  data.products = {bread};
  const std::string file = CalendarOf(data);
  EXPECT_THAT(file, Not(HasSubstr("RRULE")));
  const test::ReadCalendar calendar = test::ReadCalendarFile(file, 200);
  ASSERT_TRUE(calendar.sound);
  ASSERT_EQ(calendar.events.size(), 1U);
  EXPECT_EQ(calendar.events[0].days.size(), 100U);
  EXPECT_EQ(calendar.events[0].days[1], sys_days{year{2026} / 6 / 4});
}

TEST_F(CalendarExportTest, WhatIsDeletedBoughtOrWithoutADateIsNotInIt) {
  ShoppingData data;
  data.products = {Product("deleted", 1, 1), Product("bought", 1, 1), Product("dateless", 1, 1)};
  data.products[0].Deleted = 1;
  data.products[1].LastPurchased = kToday;
  data.products[2].PurchaseKind = kUnscheduled;
  const std::string file = CalendarOf(data);
  EXPECT_THAT(file, StartsWith("BEGIN:VCALENDAR\r\n"));
  EXPECT_THAT(file, EndsWith("END:VCALENDAR\r\n"));
  EXPECT_THAT(file, Not(HasSubstr("VEVENT")));
}

TEST_F(CalendarExportTest, EveryByteInANameLeavesItReadable) {
  ShoppingData data;
  for (int byte = 1; byte < 256; ++byte) {
    const std::array name{'a', static_cast<char>(byte), 'z'};
    data.products.push_back(Product({name.data(), name.size()}, 1, 1));
    data.products.back().Id = byte;
  }
  const test::ReadCalendar calendar = test::ReadCalendarFile(CalendarOf(data), 1);
  EXPECT_TRUE(calendar.sound);
  EXPECT_EQ(calendar.events.size(), 255U);
}

TEST_F(CalendarExportTest, NoLineIsLongerThan75Bytes) {
  ShoppingData data;
  data.products = {Product(std::string(49, '\xE4'), 1, 1)};
  data.products[0].Notes = FixedText<kLongTextSize>(std::string(249, '\xE4'));
  const std::string file = CalendarOf(data);
  for (std::size_t at = 0; at < file.size();) {
    const std::size_t end = file.find("\r\n", at);
    ASSERT_NE(end, std::string::npos);
    EXPECT_LE(end - at, 75U);
    at = end + 2;
  }
}

}  // namespace
}  // namespace brovanta::data_tool
