#include "data/list/line_price.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace brovanta::data_tool {
namespace {

constexpr std::uint16_t kPercent = 1;

struct Value {
  PriceState state = PriceState::kPriced;
  Cents cents = 0;
};

Value PriceOf(const ProductRecord& product) {
  const auto price = Decimal::From(product.UnitPrice);
  const auto quantity = Decimal::From(CountedQuantity(product));
  if (!price) return {PriceState::kPriceNoNumber};
  if (price->IsNegative()) return {PriceState::kPriceNegative};
  if (price->IsZero()) return {PriceState::kNoPrice};
  if (!quantity) return {PriceState::kQuantityNoNumber};
  if (quantity->IsNegative()) return {PriceState::kQuantityNegative};
  const auto cents = price->Times(*quantity);
  if (!cents || !price->Rounded() || !quantity->Rounded()) return {PriceState::kTooLarge};
  return {PriceState::kPriced, *cents};
}

// The coupons of one line, worked out slot by slot.
class SlotWalk {
 public:
  SlotWalk(const ProductRecord& product, const CouponBook& book, DateStamp day) {
    for (const AppliedDiscount& slot : product.Discounts) {
      if (slot.Id == 0 || slot.Type < 1) continue;
      const DiscountRecord* const discount = book.Linked(slot);
      LineCoupon coupon;
      if (discount != nullptr) coupon.name = discount->Name.view();
      coupon.state = book.Usable(slot, discount, product, day);
      if (IsUsable(coupon) && IsUsed(discount)) coupon.state = CouponState::kRepeated;
      discounts_.push_back(discount);
      coupons_.push_back(std::move(coupon));
    }
  }

  // Takes all coupons of a state off the amount: so much is taken off.
  Cents TakeOff(CouponState state, Cents amount) {
    Cents left = amount;
    for (std::size_t i = 0; i < coupons_.size(); ++i) {
      if (coupons_[i].state != state) continue;
      Use(*discounts_[i], coupons_[i], left);
      left -= coupons_[i].amount;
    }
    return amount - left;
  }

  // The product has no price: a coupon that could be used is of no use.
  void GiveUp() {
    for (LineCoupon& coupon : coupons_) {
      if (IsUsable(coupon)) coupon.state = CouponState::kNoPrice;
    }
  }

  [[nodiscard]] std::vector<LineCoupon> Coupons() { return std::move(coupons_); }

 private:
  static bool IsUsable(const LineCoupon& coupon) {
    return coupon.state == CouponState::kTaken || coupon.state == CouponState::kRebate;
  }

  [[nodiscard]] bool IsUsed(const DiscountRecord* discount) const {
    for (std::size_t i = 0; i < coupons_.size(); ++i) {
      if (discounts_[i] == discount && IsUsable(coupons_[i])) return true;
    }
    return false;
  }

  static void Use(const DiscountRecord& discount, LineCoupon& coupon, Cents left) {
    const auto value = Decimal::From(discount.Value);
    if (!value || value->IsNegative()) {
      coupon.state = CouponState::kBadValue;
    } else if (value->IsZero()) {
      coupon.state = CouponState::kNoValue;
    } else if (left == 0) {
      coupon.state = CouponState::kNothingLeft;
    } else {
      // What is too large takes everything. The feeds have no other kind of value than these two.
      const auto off = discount.ValueType == kPercent ? value->PercentOf(left) : value->Rounded();
      coupon.amount = std::min(off.value_or(left), left);
    }
  }

  std::vector<LineCoupon> coupons_;
  std::vector<const DiscountRecord*> discounts_;  // of each coupon; nullptr when it is gone
};

TaxState AddTax(const ProductRecord& product, Amounts& amounts) {
  const auto rate = Decimal::From(product.TaxPercent);
  if (!rate) return TaxState::kNoNumber;
  if (rate->IsNegative()) return TaxState::kNegative;
  const auto before = rate->PercentOf(amounts.price);
  const auto after = rate->PercentOf(amounts.price - amounts.coupons);
  if (!before || !after || !rate->Rounded()) return TaxState::kTooLarge;
  amounts.tax_before = *before;
  amounts.tax = *after;
  return TaxState::kFine;
}

}  // namespace

bool Amounts::Add(const Amounts& other) {
  return AddTo(price, other.price) && AddTo(tax_before, other.tax_before) &&
         AddTo(coupons, other.coupons) && AddTo(tax, other.tax) && AddTo(rebates, other.rebates) &&
         price <= INT64_MAX - tax_before && price <= INT64_MAX - tax;
}

double CountedQuantity(const ProductRecord& product) {
  return product.Quantity == 0.0 ? 1.0 : product.Quantity;
}

LinePrice PriceLine(const ProductRecord& product, const CouponBook& coupons, DateStamp day) {
  LinePrice line;
  SlotWalk slots(product, coupons, day);
  const Value price = PriceOf(product);
  line.state = price.state;
  if (price.state == PriceState::kPriced) {
    line.amounts.price = price.cents;
    line.amounts.coupons = slots.TakeOff(CouponState::kTaken, price.cents);
    line.tax_state = AddTax(product, line.amounts);
    line.amounts.rebates = slots.TakeOff(CouponState::kRebate, price.cents - line.amounts.coupons);
  } else {
    slots.GiveUp();
  }
  line.coupons = slots.Coupons();
  return line;
}

}  // namespace brovanta::data_tool
