#include "data/csv_writer.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>

#include "tests/support/comma_locale.h"
#include "tests/support/zone_guard.h"

namespace brovanta::data_tool {
namespace {

std::string Line(const std::function<void(CsvWriter&)>& write) {
  CsvWriter csv({"a"});
  write(csv);
  csv.EndLine();
  EXPECT_EQ(csv.text().substr(0, 3), "a\r\n");
  return csv.text().substr(3);
}

TEST(CsvWriterTest, CellsAreSeparatedAndLinesEnded) {
  CsvWriter csv({"one", "two"});
  csv.Text("x").Integer(-5).EndLine();
  csv.Empty().Text("").EndLine();
  EXPECT_EQ(csv.text(), "one,two\r\nx,-5\r\n,\r\n");
}

TEST(CsvWriterTest, WhatNeedsQuotationMarksGetsThem) {
  EXPECT_EQ(Line([](CsvWriter& csv) { csv.Text("a,b").Text("a\"b").Text("a\nb").Text("a\r\nb"); }),
            "\"a,b\",\"a\"\"b\",\"a\nb\",\"a\r\nb\"\r\n");
  EXPECT_EQ(Line([](CsvWriter& csv) { csv.Text(" a").Text("b ").Text("c d").Text("e;f"); }),
            "\" a\",\"b \",c d,e;f\r\n");
  EXPECT_EQ(Line([](CsvWriter& csv) { csv.Text("caf\xC3\xA9"); }), "caf\xC3\xA9\r\n");
}

TEST(CsvWriterTest, NoTextIsTakenForAFormula) {
  EXPECT_EQ(Line([](CsvWriter& csv) { csv.Text("=1+1").Text("+49").Text("-10 %").Text("@x"); }),
            "'=1+1,'+49,'-10 %,'@x\r\n");
  EXPECT_EQ(
      Line([](CsvWriter& csv) { csv.Text("\t=1").Text("\r=1").Text("=\"a\",b").Text("a=b"); }),
      "'\t=1,\"'\r=1\",\"'=\"\"a\"\",b\",a=b\r\n");
  // Numbers stay numbers.
  EXPECT_EQ(Line([](CsvWriter& csv) { csv.Integer(-5).Number(-1.5); }), "-5,-1.5\r\n");
}

TEST(CsvWriterTest, NumbersHaveAPointInAnyLocale) {
  const auto numbers = [](CsvWriter& csv) {
    csv.Number(1.99).Number(2).Number(std::numeric_limits<double>::infinity());
  };
  EXPECT_EQ(Line(numbers), "1.99,2,\r\n");
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale locale;
  EXPECT_EQ(Line(numbers), "1.99,2,\r\n");
}

TEST(CsvWriterTest, DatesAreLocal) {
  const test::ZoneGuard zone("Europe/Berlin");
  EXPECT_EQ(Line([](CsvWriter& csv) {
              csv.Day(1112137200).Moment(1112137200).Day(0).Moment(0).Flag(true).Flag(false);
            }),
            "2005-03-30,2005-03-30T01:00:00,,,true,false\r\n");
}

}  // namespace
}  // namespace brovanta::data_tool
