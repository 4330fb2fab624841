#include "ui/product/product_numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/comma_locale.h"

namespace brovanta {
namespace {

TEST(ProductNumbersTest, AStoredQuantityOfZeroLeavesTheFieldEmpty) {
  EXPECT_EQ(QuantityText(0.0), QString());
  EXPECT_EQ(QuantityText(-0.0), QString());
}

TEST(ProductNumbersTest, AWholeQuantityShowsAsZero) {
  EXPECT_EQ(QuantityText(3.0), QStringLiteral("0"));
  EXPECT_EQ(QuantityText(-12.0), QStringLiteral("0"));
}

// The image of 0.1 is 3FB99999 9999999A; 9999999A as a signed number is -1717986918.
TEST(ProductNumbersTest, AQuantityOfOneTenthShowsItsLowWord) {
  EXPECT_EQ(QuantityText(0.1), QStringLiteral("-1717986918"));
  EXPECT_EQ(QuantityText(-0.1), QStringLiteral("-1717986918"));
}

// 1.3 is 3FF4CCCC CCCCCCCD, the smallest number above 0 is 00000000 00000001.
TEST(ProductNumbersTest, OtherImages) {
  EXPECT_EQ(QuantityText(1.3), QStringLiteral("-858993459"));
  EXPECT_EQ(QuantityText(std::numeric_limits<double>::denorm_min()), QStringLiteral("1"));
}

TEST(ProductNumbersTest, AmountsHaveTwoDecimalsAndZeroIsEmpty) {
  EXPECT_EQ(AmountText(8.25), QStringLiteral("8.25"));
  EXPECT_EQ(AmountText(7.0), QStringLiteral("7.00"));
  EXPECT_EQ(AmountText(0.0), QString());
}

TEST(ProductNumbersTest, TheLeadingNumberOfTheFieldCounts) {
  EXPECT_EQ(FieldNumber(QStringLiteral("1.5 kg")), 1.5);
  EXPECT_EQ(FieldNumber(QStringLiteral(" -3")), -3.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("abc")), 0.0);
  EXPECT_EQ(FieldNumber(QString()), 0.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("1,5")), 1.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("nan")), 0.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("0x10")), 0.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("1e400")), 0.0);
}

TEST(ProductNumbersTest, OnlyTheFirst20CharactersAreRead) {
  EXPECT_EQ(FieldNumber(QStringLiteral("12345678901234567890")), 12345678901234567890.0);
  EXPECT_EQ(FieldNumber(QStringLiteral("123456789012345678901")), 12345678901234567890.0);
}

TEST(ProductNumbersTest, ACommaLocaleChangesNothing) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  EXPECT_EQ(AmountText(8.25), QStringLiteral("8.25"));
  EXPECT_EQ(FieldNumber(QStringLiteral("1.5")), 1.5);
}

}  // namespace
}  // namespace brovanta
