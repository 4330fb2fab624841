#include "ui/base/discount_words.h"

#include <gtest/gtest.h>

#include "tests/support/german.h"
#include "tests/support/zone_guard.h"

namespace brovanta {
namespace {

constexpr DateStamp kFirst = 1793494800;  // 2026-11-01 01:00:00 UTC
constexpr DateStamp kLast = 1796000400;   // 2026-11-30 01:00:00 UTC

std::string Words(std::uint16_t value_type, double value, DateStamp start, DateStamp end) {
  DiscountRecord discount;
  discount.ValueType = value_type;
  discount.Value = value;
  discount.StartDate = start;
  discount.EndDate = end;
  return DiscountWords(discount).toStdString();
}

std::string Brief(std::uint16_t value_type, double value, DateStamp start, DateStamp end) {
  DiscountRecord discount;
  discount.ValueType = value_type;
  discount.Value = value;
  discount.StartDate = start;
  discount.EndDate = end;
  return DiscountNoteOf(discount).brief.toStdString();
}

class DiscountWordsTest : public testing::Test {
 private:
  test::ZoneGuard zone_{"UTC"};
};

TEST_F(DiscountWordsTest, PercentIsWrittenWithoutEmptyDecimals) {
  EXPECT_EQ(Words(1, 20, 0, 0), "20% off");
  EXPECT_EQ(Words(1, 12.5, 0, 0), "12.50% off");
}

TEST_F(DiscountWordsTest, AmountHasTwoDecimals) {
  EXPECT_EQ(Words(2, 1.5, 0, 0), "1.50 off");
  EXPECT_EQ(Words(2, 5, 0, 0), "5.00 off");
}

TEST_F(DiscountWordsTest, LastDayIsNamedBeforeTheFirst) {
  EXPECT_EQ(Words(2, 5, 0, kLast), "5.00 off, until 11/30/2026");
  EXPECT_EQ(Words(2, 5, kFirst, kLast), "5.00 off, until 11/30/2026");
  EXPECT_EQ(Words(2, 5, kFirst, 0), "5.00 off, from 11/1/2026");
}

TEST_F(DiscountWordsTest, AnotherLanguageWritesDatesItsWayAndKeepsThePointOfTheForms) {
  const test::German german;
  EXPECT_EQ(Words(1, 12.5, 0, 0), "12.50 % Rabatt");
  EXPECT_EQ(Words(2, 5, 0, kLast), "5.00 Rabatt, bis 30.11.2026");
  EXPECT_EQ(Words(2, 5, kFirst, 0), "5.00 Rabatt, ab 1.11.2026");
}

TEST_F(DiscountWordsTest, ACountryThatIsAskedForHasItsDates) {
  SpeakLanguage(QStringLiteral("en_GB"));
  EXPECT_EQ(Words(2, 5, 0, kLast), "5.00 off, until 30/11/2026");
  SpeakLanguage(QStringLiteral("en"));
}

TEST_F(DiscountWordsTest, ANarrowRowHasABriefForm) {
  EXPECT_EQ(Brief(1, 20, 0, kLast), "-20% until 11/30/2026");
  EXPECT_EQ(Brief(2, 1234.5, 0, kLast), "-1234.50 until 11/30/2026");
  EXPECT_EQ(Brief(2, 5, kFirst, 0), "-5.00 from 11/1/2026");
  EXPECT_EQ(Brief(2, 5, 0, 0), "") << "short anyway";
  const test::German german;
  EXPECT_EQ(Brief(1, 20, 0, kLast), "-20 % bis 30.11.2026");
  EXPECT_EQ(Brief(2, 5, kFirst, 0), "-5.00 ab 1.11.2026");
}

}  // namespace
}  // namespace brovanta
