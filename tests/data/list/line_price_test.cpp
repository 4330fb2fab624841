#include "data/list/line_price.h"

#include <gmock/gmock.h>

#include <limits>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::ElementsAre;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

class LinePriceTest : public testing::Test {
 protected:
  // Puts the coupons into the slots, one by one.
  static LinePrice Price(ProductRecord product, const std::vector<DiscountRecord>& coupons = {}) {
    for (std::size_t slot = 0; slot < coupons.size(); ++slot) Link(product, slot, coupons[slot]);
    return PriceLine(product, CouponBook(coupons), kToday);
  }

  static std::vector<CouponState> States(const LinePrice& line) {
    std::vector<CouponState> states;
    for (const LineCoupon& coupon : line.coupons) states.push_back(coupon.state);
    return states;
  }

  static std::vector<Cents> Taken(const LinePrice& line) {
    std::vector<Cents> amounts;
    for (const LineCoupon& coupon : line.coupons) amounts.push_back(coupon.amount);
    return amounts;
  }

  static ProductRecord Taxed(double quantity, double price, double tax) {
    ProductRecord product = Product("Milk", quantity, price);
    product.TaxPercent = tax;
    return product;
  }

 private:
  AtNoon noon_;
};

TEST_F(LinePriceTest, PriceAndTaxAreRoundedOnceEach) {
  // 3 x 1.15 = 3.45; 8.25 % of it is 0.284625.
  const LinePrice line = Price(Taxed(3, 1.15, 8.25));
  EXPECT_EQ(line.state, PriceState::kPriced);
  EXPECT_EQ(line.amounts, (Amounts{345, 28, 0, 28, 0}));
  EXPECT_EQ(line.amounts.WithoutCoupons(), 373);
  EXPECT_EQ(line.amounts.ToPay(), 373);
}

TEST_F(LinePriceTest, AQuantityThatWasNotEnteredIsOne) {
  EXPECT_EQ(Price(Product("Milk", 0, 1.15)).amounts.price, 115);
}

TEST_F(LinePriceTest, AnAmountIsTakenOffOnceForTheLine) {
  const LinePrice line = Price(Taxed(3, 2, 10), {Coupon(5, kStoreCoupon, kAmount, 0.5)});
  EXPECT_EQ(line.amounts, (Amounts{600, 60, 50, 55, 0}));
  EXPECT_EQ(line.amounts.ToPay(), 605);
  EXPECT_THAT(Taken(line), ElementsAre(50));
  EXPECT_EQ(line.coupons[0].name, "Coupon 5");
}

TEST_F(LinePriceTest, PercentAreOfWhatTheSlotsBeforeHaveLeft) {
  const LinePrice line =
      Price(Product("Milk", 1, 10), {Coupon(5, kCode, kPercent, 10), Coupon(6, kCode, kAmount, 1),
                                     Coupon(7, kCode, kPercent, 12.5)});
  EXPECT_THAT(Taken(line), ElementsAre(100, 100, 100));  // of 10.00, 9.00, 8.00
  EXPECT_EQ(line.amounts.coupons, 300);
}

TEST_F(LinePriceTest, NoCouponTakesMoreThanIsLeft) {
  const LinePrice line = Price(
      Taxed(1, 3, 20), {Coupon(5, kStoreCoupon, kAmount, 2), Coupon(6, kStoreCoupon, kAmount, 2),
                        Coupon(7, kStoreCoupon, kPercent, 50), Coupon(8, kRebate, kAmount, 1)});
  EXPECT_THAT(Taken(line), ElementsAre(200, 100, 0, 0));
  EXPECT_THAT(States(line), ElementsAre(CouponState::kTaken, CouponState::kTaken,
                                        CouponState::kNothingLeft, CouponState::kNothingLeft));
  EXPECT_EQ(line.amounts, (Amounts{300, 60, 300, 0, 0}));
}

TEST_F(LinePriceTest, MoreThanAHundredPercentAreAHundred) {
  for (const double percent : {100.0, 100.01, 250.0, 1e300}) {
    EXPECT_EQ(Price(Product("Milk", 1, 3), {Coupon(5, kCode, kPercent, percent)}).amounts.coupons,
              300)
        << percent;
  }
  EXPECT_EQ(Price(Product("Milk", 1, 3), {Coupon(5, kCode, kAmount, 1e300)}).amounts.coupons, 300);
}

TEST_F(LinePriceTest, ARebateComesBackLaterAndTheTaxStays) {
  // The rebate stands in the first slot, but is of what the till coupon leaves.
  const LinePrice line = Price(
      Taxed(1, 10, 10), {Coupon(5, kRebate, kPercent, 50), Coupon(6, kStoreCoupon, kAmount, 2)});
  EXPECT_EQ(line.amounts, (Amounts{1000, 100, 200, 80, 400}));
  EXPECT_EQ(line.amounts.ToPay(), 880);
  EXPECT_EQ(line.amounts.AfterRebates(), 480);
  EXPECT_THAT(States(line), ElementsAre(CouponState::kRebate, CouponState::kTaken));
}

TEST_F(LinePriceTest, TheSameCouponTwiceCountsOnce) {
  const DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  ProductRecord product = Product("Milk", 1, 10);
  Link(product, 1, coupon);
  Link(product, 3, coupon);
  const LinePrice line = PriceLine(product, CouponBook({&coupon, 1}), kToday);
  EXPECT_THAT(States(line), ElementsAre(CouponState::kTaken, CouponState::kRepeated));
  EXPECT_EQ(line.amounts.coupons, 100);
}

TEST_F(LinePriceTest, AProposalDoesNotKeepTheSameCouponFromCounting) {
  const DiscountRecord coupon = Coupon(5, kStoreCoupon, kAmount, 1);
  ProductRecord product = Product("Milk", 1, 10);
  product.Discounts[0] = {5, 0, 102};
  Link(product, 1, coupon);
  const LinePrice line = PriceLine(product, CouponBook({&coupon, 1}), kToday);
  EXPECT_THAT(States(line), ElementsAre(CouponState::kProposed, CouponState::kTaken));
  EXPECT_EQ(line.amounts.coupons, 100);
}

TEST_F(LinePriceTest, ValuesThatAreNoneAreTold) {
  const LinePrice line =
      Price(Product("Milk", 1, 10),
            {Coupon(5, kCode, kAmount, 0), Coupon(6, kCode, kPercent, -5),
             Coupon(7, kCode, kAmount, kNoNumber), Coupon(8, kRebate, kPercent, kInfinity)});
  EXPECT_THAT(States(line), ElementsAre(CouponState::kNoValue, CouponState::kBadValue,
                                        CouponState::kBadValue, CouponState::kBadValue));
  EXPECT_EQ(line.amounts, (Amounts{1000, 0, 0, 0, 0}));
}

TEST_F(LinePriceTest, PricesThatAreNoneAreTold) {
  EXPECT_EQ(Price(Product("Milk", 1, 0)).state, PriceState::kNoPrice);
  EXPECT_EQ(Price(Product("Milk", 1, kNoNumber)).state, PriceState::kPriceNoNumber);
  EXPECT_EQ(Price(Product("Milk", 1, -kInfinity)).state, PriceState::kPriceNoNumber);
  EXPECT_EQ(Price(Product("Milk", 1, -0.01)).state, PriceState::kPriceNegative);
  EXPECT_EQ(Price(Product("Milk", kInfinity, 1)).state, PriceState::kQuantityNoNumber);
  EXPECT_EQ(Price(Product("Milk", -1, 1)).state, PriceState::kQuantityNegative);
  EXPECT_EQ(Price(Product("Milk", 1, 1e9)).state, PriceState::kTooLarge);
  EXPECT_EQ(Price(Product("Milk", 1e5, 1e5)).state, PriceState::kTooLarge);
  EXPECT_EQ(Price(Product("Milk", 1e300, 1e-300)).state, PriceState::kTooLarge);
  EXPECT_EQ(Price(Product("Milk", 1e-300, 1e300)).state, PriceState::kTooLarge);
  EXPECT_EQ(Price(Product("Milk", -1, 1)).amounts, Amounts());
}

TEST_F(LinePriceTest, WithoutAPriceNoCouponIsUsed) {
  const LinePrice line =
      Price(Product("Milk", 1, 0), {Coupon(5, kCode, kAmount, 1), Coupon(6, kRebate, kPercent, 5)});
  EXPECT_THAT(States(line), ElementsAre(CouponState::kNoPrice, CouponState::kNoPrice));
  EXPECT_EQ(line.amounts, Amounts());
}

TEST_F(LinePriceTest, ATaxRateThatIsNoneLeavesTheLineWithoutTax) {
  EXPECT_EQ(Price(Taxed(1, 10, -1)).tax_state, TaxState::kNegative);
  EXPECT_EQ(Price(Taxed(1, 10, kNoNumber)).tax_state, TaxState::kNoNumber);
  EXPECT_EQ(Price(Taxed(1, 10, 1e300)).tax_state, TaxState::kTooLarge);
  EXPECT_EQ(Price(Taxed(1, 999999999, 101)).tax_state, TaxState::kTooLarge);
  const LinePrice line = Price(Taxed(1, 10, -1));
  EXPECT_EQ(line.state, PriceState::kPriced);
  EXPECT_EQ(line.amounts, (Amounts{1000, 0, 0, 0, 0}));
}

TEST(AmountsTest, AddUpUntilTheyDoNotFit) {
  Amounts sum{1, 2, 3, 4, 5};
  EXPECT_TRUE(sum.Add({10, 20, 30, 40, 50}));
  EXPECT_EQ(sum, (Amounts{11, 22, 33, 44, 55}));
  constexpr Cents kMost = std::numeric_limits<Cents>::max();
  Amounts full{kMost - 10, 0, 0, 0, 0};
  EXPECT_TRUE(full.Add({5, 5, 0, 5, 0}));
  EXPECT_EQ(full.WithoutCoupons(), kMost);
  EXPECT_FALSE(full.Add({0, 1, 0, 0, 0}));
  Amounts most{kMost, 0, 0, 0, 0};
  EXPECT_FALSE(most.Add({1, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace brovanta::data_tool
