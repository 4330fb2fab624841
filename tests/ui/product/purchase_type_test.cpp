#include "ui/product/purchase_type.h"

#include <gtest/gtest.h>

#include <string>

namespace brovanta {
namespace {

TEST(PurchaseTypeTest, ThirteenTypesInTheirOrder) {
  const struct {
    int code;
    const char* text;
    int kind;
    int every;
  } expected[] = {
      {1, "One Time", 1, 0},         {2, "Every Few Days", 2, 0},  {3, "Every Week", 3, 1},
      {4, "Every 2 Weeks", 3, 2},    {5, "Every 3 Weeks", 3, 3},   {6, "Every 4 Weeks", 3, 4},
      {7, "Every Month", 4, 1},      {8, "Every 2 Months", 4, 2},  {9, "Every 3 Months", 4, 3},
      {10, "Every 4 Months", 4, 4},  {11, "Every 5 Months", 4, 5}, {12, "Every 6 Months", 4, 6},
      {13, "Every 12 Months", 4, 12}};
  ASSERT_EQ(PurchaseTypes().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const PurchaseType& type = PurchaseTypes()[i];
    EXPECT_EQ(type.code, expected[i].code);
    EXPECT_STREQ(type.text, expected[i].text);
    EXPECT_EQ(type.kind, expected[i].kind) << type.text;
    EXPECT_EQ(type.every, expected[i].every) << type.text;
  }
}

TEST(PurchaseTypeTest, EveryTypeIsFoundAgainFromItsSchedule) {
  for (const PurchaseType& type : PurchaseTypes()) {
    EXPECT_EQ(PurchaseTypeCode(type.kind, type.every), type.code) << type.text;
    EXPECT_EQ(FindPurchaseType(type.code), &type);
  }
}

TEST(PurchaseTypeTest, TwelveMonthsIsCode13AndSixIs12) {
  EXPECT_EQ(PurchaseTypeCode(4, 12), 13);
  EXPECT_EQ(PurchaseTypeCode(4, 6), 12);
}

TEST(PurchaseTypeTest, OtherKindsHaveNoCode) {
  EXPECT_EQ(PurchaseTypeCode(0, 0), kNoPurchaseType);
  EXPECT_EQ(PurchaseTypeCode(5, 1), kNoPurchaseType);
  EXPECT_EQ(PurchaseTypeCode(65535, 65535), kNoPurchaseType);
}

TEST(PurchaseTypeTest, ADamagedIntervalMayGiveNoTypesCode) {
  EXPECT_EQ(FindPurchaseType(PurchaseTypeCode(3, 40)), nullptr);
  EXPECT_EQ(FindPurchaseType(PurchaseTypeCode(4, 65535)), nullptr);
  EXPECT_EQ(FindPurchaseType(0), nullptr);
  EXPECT_EQ(FindPurchaseType(14), nullptr);
}

TEST(PurchaseTypeTest, DayFieldsAskForTheirKind) {
  EXPECT_EQ(DayChoiceOfKind(1), nullptr);
  EXPECT_EQ(DayChoiceOfKind(5), nullptr);
  const struct {
    int kind;
    const char* label;
    int last;
    const char* missing;
  } expected[] = {
      {2, "Days Interval:", 6, "You must select the days interval for this daily purchase."},
      {3, "Day of Week:", 7, "You must select the day of the week for this weekly purchase."},
      {4, "Day of Month:", 31, "You must select the day of the month for this monthly purchase."}};
  for (const auto& row : expected) {
    const DayChoice* choice = DayChoiceOfKind(row.kind);
    ASSERT_NE(choice, nullptr);
    EXPECT_STREQ(choice->label, row.label);
    EXPECT_EQ(choice->last, row.last);
    EXPECT_STREQ(choice->missing, row.missing);
  }
}

}  // namespace
}  // namespace brovanta
