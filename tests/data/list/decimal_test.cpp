#include "data/list/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace brovanta::data_tool {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Decimal Of(double number) { return Decimal::From(number).value(); }

TEST(DecimalTest, TakesWhatWasTypedAndNotItsBinaryNeighbour) {
  EXPECT_EQ(Of(0.1), Decimal(1, -1));
  EXPECT_EQ(Of(1.15), Decimal(115, -2));
  EXPECT_EQ(Of(1200), Decimal(12, 2));
  EXPECT_EQ(Of(0.1 + 0.2), Decimal(30000000000000004, -17));
  EXPECT_EQ(Of(1e300), Decimal(1, 300));
  EXPECT_EQ(Of(5e-324), Decimal(5, -324));
}

TEST(DecimalTest, IsNothingForWhatIsNotFinite) {
  EXPECT_FALSE(Decimal::From(kInfinity));
  EXPECT_FALSE(Decimal::From(-kInfinity));
  EXPECT_FALSE(Decimal::From(std::numeric_limits<double>::quiet_NaN()));
}

TEST(DecimalTest, KnowsItsSignAndThatZeroHasNone) {
  EXPECT_TRUE(Of(-0.01).IsNegative());
  EXPECT_FALSE(Of(0.01).IsNegative());
  EXPECT_FALSE(Of(-0.0).IsNegative());
  EXPECT_TRUE(Of(-0.0).IsZero());
}

TEST(DecimalTest, RoundsAHalfAwayFromZero) {
  // As binary numbers 1.005 and 2.675 lie below the half.
  EXPECT_EQ(Of(1.005).Rounded(), 101);
  EXPECT_EQ(Of(2.675).Rounded(), 268);
  EXPECT_EQ(Of(1.0049).Rounded(), 100);
  EXPECT_EQ(Of(0.005).Rounded(), 1);
  EXPECT_EQ(Of(0.00499999).Rounded(), 0);
}

TEST(DecimalTest, MultipliesExactlyAndRoundsOnce) {
  EXPECT_EQ(Of(3).Times(Of(1.15)), 345);
  EXPECT_EQ(Of(0.35).Times(Of(1.10)), 39);  // 0.385
  EXPECT_EQ(Of(1.5).Times(Of(0.333)), 50);  // 0.4995
  EXPECT_EQ(Of(0).Times(Of(9.99)), 0);
  // 17 digits each: 0.30000000000000004 squared is 0.0900000000000000240...
  EXPECT_EQ(Of(0.1 + 0.2).Times(Of(0.1 + 0.2)), 9);
}

TEST(DecimalTest, TakesPercentExactly) {
  EXPECT_EQ(Of(8.25).PercentOf(1000), 83);  // 82.5 cents
  EXPECT_EQ(Of(10).PercentOf(5), 1);        // half a cent
  EXPECT_EQ(Of(9.99).PercentOf(5), 0);
  EXPECT_EQ(Of(100).PercentOf(kLargestAmount), kLargestAmount);
  EXPECT_EQ(Of(1e-300).PercentOf(kLargestAmount), 0);
}

TEST(DecimalTest, RefusesWhatIsTooLarge) {
  EXPECT_EQ(Of(999999999.99).Rounded(), kLargestAmount);
  EXPECT_FALSE(Of(1000000000).Rounded());
  EXPECT_FALSE(Of(999999999.995).Rounded());
  EXPECT_FALSE(Of(1e300).Rounded());
  EXPECT_FALSE(Of(1e300).Times(Of(1e300)));
  EXPECT_FALSE(Of(1e5).Times(Of(1e5)));
  EXPECT_FALSE(Of(101).PercentOf(kLargestAmount));
  EXPECT_EQ(Of(1e300).Times(Of(0)), 0);
  EXPECT_EQ(Of(1e300).Times(Of(1e-300)), 100);
  EXPECT_EQ(Of(5e-324).Times(Of(5e-324)), 0);
}

TEST(DecimalTest, IsWrittenWithTheDecimalsItHas) {
  EXPECT_EQ(Of(3).Text(0), "3");
  EXPECT_EQ(Of(3).Text(2), "3.00");
  EXPECT_EQ(Of(0.5).Text(2), "0.50");
  EXPECT_EQ(Of(1.999).Text(2), "1.999");
  EXPECT_EQ(Of(0.001).Text(0), "0.001");
  EXPECT_EQ(Of(1200).Text(0), "1200");
  EXPECT_EQ(Of(-1.5).Text(2), "-1.50");
  EXPECT_EQ(Of(0).Text(2), "0.00");
  EXPECT_EQ(Of(999999999.99).Text(2), "999999999.99");
}

TEST(DecimalTest, ShowsSixDecimalsAndTellsThatThereAreMore) {
  EXPECT_EQ(Of(0.000001).Text(0), "0.000001");
  EXPECT_EQ(Of(1.0 / 3).Text(2), "~0.333333");
  EXPECT_EQ(Of(1e-300).Text(2), "~0.00");
  EXPECT_EQ(Of(0.99999999).Text(2), "~1.00");
}

TEST(AddToTest, RefusesWhatDoesNotFit) {
  Cents sum = 5;
  EXPECT_TRUE(AddTo(sum, -7));
  EXPECT_EQ(sum, -2);
  sum = std::numeric_limits<Cents>::max() - 1;
  EXPECT_TRUE(AddTo(sum, 1));
  EXPECT_FALSE(AddTo(sum, 1));
  EXPECT_EQ(sum, std::numeric_limits<Cents>::max());
}

TEST(AmountTextTest, HasTwoDecimals) {
  EXPECT_EQ(AmountText(0), "0.00");
  EXPECT_EQ(AmountText(5), "0.05");
  EXPECT_EQ(AmountText(123450), "1234.50");
  EXPECT_EQ(AmountText(-105), "-1.05");
  EXPECT_EQ(AmountText(std::numeric_limits<Cents>::min()), "-92233720368547758.08");
}

// Numbers of two and three decimals, worked out in whole numbers beside.
TEST(DecimalTest, AgreesWithWholeNumbers) {
  std::mt19937 random(20261121);
  for (int i = 0; i < 20000; ++i) {
    const auto price = static_cast<std::int64_t>(random() % 1000000);     // cents
    const auto quantity = static_cast<std::int64_t>(random() % 1000000);  // thousandths
    const std::int64_t exact = price * quantity;                          // thousandths of a cent
    const auto line =
        Of(static_cast<double>(quantity) / 1000).Times(Of(static_cast<double>(price) / 100));
    EXPECT_EQ(line, (exact + 500) / 1000) << price << " x " << quantity;
  }
}

}  // namespace
}  // namespace brovanta::data_tool
