#include "data/calendar/calendar_text.h"

#include <gmock/gmock.h>

namespace brovanta::data_tool {
namespace {

using std::chrono::sys_days;

std::string Written(std::string_view property, std::string_view text) {
  CalendarText file;
  file.AddText(property, text);
  return file.text();
}

TEST(CalendarTextTest, LinesEndWithCarriageReturnAndLineFeed) {
  CalendarText file;
  file.Add("BEGIN", "VEVENT");
  file.Add("END", "VEVENT");
  EXPECT_EQ(file.text(), "BEGIN:VEVENT\r\nEND:VEVENT\r\n");
}

TEST(CalendarTextTest, TextIsEscaped) {
  EXPECT_EQ(Written("SUMMARY", "a;b,c\\d\ne:f\"g"), "SUMMARY:a\\;b\\,c\\\\d\\ne:f\"g\r\n");
}

TEST(CalendarTextTest, LinesAreFoldedAt75Bytes) {
  // "X:" and 73 letters are 75 bytes.
  EXPECT_EQ(Written("X", std::string(73, 'a')), "X:" + std::string(73, 'a') + "\r\n");
  EXPECT_EQ(Written("X", std::string(74, 'a')), "X:" + std::string(73, 'a') + "\r\n a\r\n");
  EXPECT_EQ(Written("X", std::string(73 + 74 + 1, 'a')),
            "X:" + std::string(73, 'a') + "\r\n " + std::string(74, 'a') + "\r\n a\r\n");
}

TEST(CalendarTextTest, NoCharacterIsFoldedApart) {
  // The two bytes of the letter would be the 75th and the 76th.
  EXPECT_EQ(Written("X", std::string(72, 'a') + "äb"), "X:" + std::string(72, 'a') + "\r\n äb\r\n");
  EXPECT_EQ(Written("X", std::string(70, 'a') + "🥛"),
            "X:" + std::string(70, 'a') + "\r\n 🥛\r\n");
}

TEST(CalendarTextTest, DaysHaveEightDigits) {
  EXPECT_EQ(DateValue(sys_days{std::chrono::year{2026} / 3 / 7}), "20260307");
  EXPECT_EQ(DateValue(sys_days{std::chrono::year{1970} / 12 / 31}), "19701231");
}

TEST(CalendarTextTest, LinesOfNotesAreKept) {
  EXPECT_EQ(PlainLines("one\r\ntwo\n\nthree\rfour\x01 "), "one\ntwo\nthree\nfour");
  EXPECT_EQ(PlainLines("K\xE4se"), "Käse");
  EXPECT_EQ(PlainLines("\r\n"), "");
}

}  // namespace
}  // namespace brovanta::data_tool
