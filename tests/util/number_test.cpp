#include "util/number.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <limits>
#include <optional>

#include "tests/support/comma_locale.h"

namespace brovanta {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

TEST(LeadingDoubleTest, ReadsEachFormOfDecimalNumber) {
  EXPECT_EQ(LeadingDouble("1"), 1.0);
  EXPECT_EQ(LeadingDouble("1.5"), 1.5);
  EXPECT_EQ(LeadingDouble("1."), 1.0);
  EXPECT_EQ(LeadingDouble(".5"), 0.5);
  EXPECT_EQ(LeadingDouble("-.5"), -0.5);
  EXPECT_EQ(LeadingDouble("+2.25"), 2.25);
  EXPECT_EQ(LeadingDouble("-3e2"), -300.0);
  EXPECT_EQ(LeadingDouble("25E-1"), 2.5);
  EXPECT_EQ(LeadingDouble("007"), 7.0);
}

TEST(LeadingDoubleTest, LeadingBlanksAreSkipped) {
  EXPECT_EQ(LeadingDouble("  4.5"), 4.5);
  EXPECT_EQ(LeadingDouble(" \t\r\n\v\f4.5"), 4.5);
  EXPECT_EQ(LeadingDouble("\xA0"
                          "4.5"),
            0.0);
}

TEST(LeadingDoubleTest, WhatFollowsTheNumberIsIgnored) {
  EXPECT_EQ(LeadingDouble("12 kg"), 12.0);
  EXPECT_EQ(LeadingDouble("1.2.3"), 1.2);
  EXPECT_EQ(LeadingDouble("1,5"), 1.0);
  EXPECT_EQ(LeadingDouble("8e"), 8.0);
  EXPECT_EQ(LeadingDouble("8e+"), 8.0);
  EXPECT_EQ(LeadingDouble("8e+x"), 8.0);
}

TEST(LeadingDoubleTest, NoNumberIsZero) {
  for (const char* text :
       {"", "   ", "-", "+", ".", "-.", "e5", ".e5", "abc", "$5", "--5", "+-5", "- 5", "\xFF"}) {
    EXPECT_EQ(LeadingDouble(text), 0.0) << text;
  }
}

TEST(LeadingDoubleTest, NamesOfNumbersAndHexadecimalFormsAreNoNumbers) {
  for (const char* text : {"nan", "NaN", "-nan(1)", "inf", "-inf", "INFINITY", "0x1p3", "0x10"}) {
    EXPECT_EQ(LeadingDouble(text), 0.0) << text;
  }
}

TEST(LeadingDoubleTest, WhatIsNotFiniteIsZero) {
  EXPECT_EQ(LeadingDouble("1e400"), 0.0);
  EXPECT_EQ(LeadingDouble("-1e400"), 0.0);
  EXPECT_EQ(LeadingDouble("1e99999999999999999999"), 0.0);
  EXPECT_EQ(LeadingDouble(std::string(400, '9')), 0.0);
  EXPECT_EQ(LeadingDouble("1e308"), 1e308);
  EXPECT_EQ(LeadingDouble("1e-400"), 0.0);
}

TEST(LeadingDoubleTest, ReadsTheNearestDouble) {
  EXPECT_EQ(std::bit_cast<std::uint64_t>(LeadingDouble("0.1")), 0x3FB999999999999Au);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(LeadingDouble("8.25")), 0x4020800000000000u);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(LeadingDouble("5e-324")), 1u);
}

TEST(LeadingIntTest, ReadsTheLeadingDigits) {
  EXPECT_EQ(LeadingInt("42"), 42);
  EXPECT_EQ(LeadingInt(" \r\n-7 pieces"), -7);
  EXPECT_EQ(LeadingInt("+3.9"), 3);
  EXPECT_EQ(LeadingInt("1e3"), 1);
  EXPECT_EQ(LeadingInt("0x10"), 0);
}

TEST(LeadingIntTest, NoNumberIsZero) {
  for (const char* text : {"", " ", "-", "abc", "--1", "- 1", ".5"}) {
    EXPECT_EQ(LeadingInt(text), 0) << text;
  }
}

TEST(LeadingIntTest, LargeNumbersAreSaturated) {
  EXPECT_EQ(LeadingInt("2147483647"), kHighest);
  EXPECT_EQ(LeadingInt("2147483648"), kHighest);
  EXPECT_EQ(LeadingInt("-2147483648"), kLowest);
  EXPECT_EQ(LeadingInt("-2147483649"), kLowest);
  EXPECT_EQ(LeadingInt(std::string(1000, '9')), kHighest);
  EXPECT_EQ(LeadingInt("-" + std::string(1000, '9')), kLowest);
}

TEST(FormatTwoDecimalsTest, WritesTwoDecimalsWithAPoint) {
  EXPECT_EQ(FormatTwoDecimals(0.0), "0.00");
  EXPECT_EQ(FormatTwoDecimals(1.5), "1.50");
  EXPECT_EQ(FormatTwoDecimals(-12.345), "-12.35");
  EXPECT_EQ(FormatTwoDecimals(1234567.0), "1234567.00");
}

TEST(FormatTwoDecimalsTest, RoundsTheExactValue) {
  EXPECT_EQ(FormatTwoDecimals(0.125), "0.12");  // exactly between: to the even digit
  EXPECT_EQ(FormatTwoDecimals(0.375), "0.38");
  EXPECT_EQ(FormatTwoDecimals(1.005), "1.00");  // the double lies below 1.005
  EXPECT_EQ(FormatTwoDecimals(-0.001), "-0.00");
}

TEST(FormatTwoDecimalsTest, WritesEveryDigitOfAHugeNumber) {
  EXPECT_EQ(FormatTwoDecimals(std::ldexp(1.0, 70)), "1180591620717411303424.00");
  const std::string huge = FormatTwoDecimals(-1e308);
  EXPECT_EQ(huge.size(), 1 + 309 + 3);
  EXPECT_EQ(huge.substr(0, 18), "-10000000000000000");
  EXPECT_EQ(LeadingDouble(huge), -1e308);
  EXPECT_EQ(FormatTwoDecimals(std::numeric_limits<double>::lowest()).size(), 1 + 309 + 3);
}

TEST(NumberLocaleTest, ACommaLocaleChangesNothing) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no localedef";
  const test::CommaLocale locale;
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(LeadingDouble("1.5"), 1.5);
  EXPECT_EQ(LeadingDouble("1,5"), 1.0);
  EXPECT_EQ(FormatTwoDecimals(1234.5), "1234.50");
}

}  // namespace
}  // namespace brovanta
