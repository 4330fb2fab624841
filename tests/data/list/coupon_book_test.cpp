#include "data/list/coupon_book.h"

#include <gtest/gtest.h>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;

class CouponBookTest : public testing::Test {
 protected:
  CouponState StateOf(const DiscountRecord& coupon, DateStamp day = kToday) {
    ProductRecord product = Product("Milk", 1, 1);
    product.StoreId = 7;
    product.CategoryId = 3;
    Link(product, 0, coupon);
    const CouponBook book({&coupon, 1});
    return book.Usable(product.Discounts[0], book.Linked(product.Discounts[0]), product, day);
  }

 private:
  AtNoon noon_;
};

TEST_F(CouponBookTest, TypesTellWhatIsTakenAtTheTillAndWhatComesBack) {
  EXPECT_EQ(StateOf(Coupon(5, kCode, kAmount, 1)), CouponState::kTaken);
  EXPECT_EQ(StateOf(Coupon(5, kStoreCoupon, kAmount, 1)), CouponState::kTaken);
  EXPECT_EQ(StateOf(Coupon(5, kRebate, kAmount, 1)), CouponState::kRebate);
  EXPECT_EQ(StateOf(Coupon(5, 4, kAmount, 1)), CouponState::kTaken);
}

TEST_F(CouponBookTest, FirstAndLastDayCountWhole) {
  DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  coupon.StartDate = kToday;
  coupon.EndDate = kToday;
  EXPECT_EQ(StateOf(coupon, kMidnight), CouponState::kTaken);
  EXPECT_EQ(StateOf(coupon, kMidnight + kDay - 1), CouponState::kTaken);
  EXPECT_EQ(StateOf(coupon, kMidnight - 1), CouponState::kNotYet);
  EXPECT_EQ(StateOf(coupon, kMidnight + kDay), CouponState::kExpired);
}

TEST_F(CouponBookTest, WithoutDatesItIsAlwaysGood) {
  const DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  EXPECT_EQ(StateOf(coupon, kDay), CouponState::kTaken);
  EXPECT_EQ(StateOf(coupon, kToday + 4000 * kDay), CouponState::kTaken);
}

TEST_F(CouponBookTest, AnotherStoreTakesNoCouponButTheCategoryDoesNotMatter) {
  DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  coupon.CategoryId = 99;
  EXPECT_EQ(StateOf(coupon), CouponState::kTaken);
  coupon.StoreId = 7;
  EXPECT_EQ(StateOf(coupon), CouponState::kTaken);
  coupon.StoreId = 8;
  EXPECT_EQ(StateOf(coupon), CouponState::kOtherStore);
}

TEST_F(CouponBookTest, AProductWithoutAStoreTakesTheCouponOfAny) {
  DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  coupon.StoreId = 8;
  ProductRecord product = Product("Milk", 1, 1);
  Link(product, 0, coupon);
  const CouponBook book({&coupon, 1});
  EXPECT_EQ(book.Usable(product.Discounts[0], &coupon, product, kToday), CouponState::kTaken);
}

TEST_F(CouponBookTest, WhatTheSearchFoundIsAProposal) {
  const DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  const CouponBook book({&coupon, 1});
  const AppliedDiscount found{5, 0, 102};
  ASSERT_EQ(book.Linked(found), &coupon);
  EXPECT_EQ(book.Usable(found, &coupon, Product("Milk", 1, 1), kToday), CouponState::kProposed);
}

TEST_F(CouponBookTest, TheExactKeyComesFirstThenTheTypeThatWasFound) {
  std::vector<DiscountRecord> coupons{Coupon(5, kRebate, kAmount, 1), Coupon(5, kCode, kAmount, 1),
                                      Coupon(5, kStoreCoupon, kAmount, 1)};
  coupons[0].Source = 1;
  coupons[1].Source = 2;
  coupons[2].Source = 0;
  {
    const CouponBook book(coupons);
    EXPECT_EQ(book.Linked({5, 2, 1}), &coupons[1]);
    EXPECT_EQ(book.Linked({5, 0, 103}), &coupons[2]);
    EXPECT_EQ(book.Linked({5, 3, 1}), nullptr);
    EXPECT_EQ(book.Linked({6, 0, 1}), nullptr);
  }
  coupons[2].Deleted = 1;
  const CouponBook book(coupons);
  EXPECT_EQ(book.Linked({5, 0, 101}), &coupons[1]);
  EXPECT_EQ(book.Linked({5, 0, 102}), nullptr);
  EXPECT_EQ(book.Linked({5, 0, 2}), nullptr);
}

TEST_F(CouponBookTest, ADeletedCouponIsGone) {
  DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  coupon.Deleted = 1;
  EXPECT_EQ(StateOf(coupon), CouponState::kGone);
}

}  // namespace
}  // namespace brovanta::data_tool
