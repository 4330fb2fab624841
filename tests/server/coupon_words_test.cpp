#include "server/coupon_words.h"

#include <gtest/gtest.h>

namespace brovanta::server {
namespace {

TEST(CouponWords, EveryWordLeadsBackToItsValue) {
  EXPECT_EQ(SourceFromWord(Word(CouponSource::kCoupon)), CouponSource::kCoupon);
  EXPECT_EQ(SourceFromWord(Word(CouponSource::kDeal)), CouponSource::kDeal);
  for (const auto type :
       {CouponType::kInternetCode, CouponType::kStoreCoupon, CouponType::kMailInRebate}) {
    EXPECT_EQ(TypeFromWord(Word(type)), type);
  }
  EXPECT_EQ(ValueTypeFromWord("percent"), ValueType::kPercent);
  EXPECT_EQ(ValueTypeFromWord("amount"), ValueType::kAmount);
}

TEST(CouponWords, UnknownWordsMeanNothing) {
  EXPECT_EQ(SourceFromWord("Coupon"), std::nullopt);
  EXPECT_EQ(TypeFromWord(""), std::nullopt);
  EXPECT_EQ(ValueTypeFromWord("$"), std::nullopt);
}

TEST(CouponWords, NumbersAreThoseOfTheFeed) {
  EXPECT_EQ(SourceFromNumber(1), CouponSource::kCoupon);
  EXPECT_EQ(SourceFromNumber(2), CouponSource::kDeal);
  EXPECT_EQ(SourceFromNumber(3), std::nullopt);
  EXPECT_EQ(TypeFromNumber(1), CouponType::kInternetCode);
  EXPECT_EQ(TypeFromNumber(2), CouponType::kStoreCoupon);
  EXPECT_EQ(TypeFromNumber(3), CouponType::kMailInRebate);
  EXPECT_EQ(TypeFromNumber(0), std::nullopt);
  EXPECT_EQ(ValueTypeFromNumber(1), ValueType::kPercent);
  EXPECT_EQ(ValueTypeFromNumber(2), ValueType::kAmount);
  EXPECT_EQ(ValueTypeFromNumber(-1), std::nullopt);
}

TEST(CouponWords, TitlesAreThoseOfTheProgram) {
  EXPECT_EQ(Title(CouponType::kInternetCode), "Internet Code");
  EXPECT_EQ(Title(CouponType::kStoreCoupon), "Store Coupon");
  EXPECT_EQ(Title(CouponType::kMailInRebate), "Mail In Rebate");
}

TEST(ValueInWords, SaysPercentOrDollars) {
  Coupon coupon;
  coupon.value = "20";
  coupon.value_type = ValueType::kPercent;
  EXPECT_EQ(ValueInWords(coupon), "20% off");
  coupon.value = "1.50";
  coupon.value_type = ValueType::kAmount;
  EXPECT_EQ(ValueInWords(coupon), "$1.50 off");
}

}  // namespace
}  // namespace brovanta::server
