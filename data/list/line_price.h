// What one line of the shopping list costs, to the cent.
#pragma once

#include <string>
#include <vector>

#include "data/list/coupon_book.h"
#include "data/list/decimal.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// Amounts of a line, of a group or of a list; sums of such are added cent by cent, nothing is
/// rounded again.
struct Amounts {
  Cents price = 0;       ///< before coupons and tax
  Cents tax_before = 0;  ///< of that price
  Cents coupons = 0;     ///< taken off at the till
  Cents tax = 0;         ///< of what is left of the price
  Cents rebates = 0;     ///< back by mail afterwards

  [[nodiscard]] Cents WithoutCoupons() const { return price + tax_before; }
  [[nodiscard]] Cents ToPay() const { return price - coupons + tax; }
  [[nodiscard]] Cents AfterRebates() const { return ToPay() - rebates; }

  /// False when a sum would be more than Cents can hold; the amounts are of no use then.
  [[nodiscard]] bool Add(const Amounts& other);

  friend bool operator==(const Amounts&, const Amounts&) = default;
};

/// Whether a line counts, and if not, why.
enum class PriceState {
  kPriced,
  kNoPrice,        ///< none was entered: 0
  kPriceNoNumber,  ///< not finite
  kPriceNegative,
  kQuantityNoNumber,  ///< not finite
  kQuantityNegative,
  kTooLarge,  ///< price, quantity or amount above kLargestAmount
};

/// How the tax rate of a line that counts is taken; anything but kFine counts as no tax.
enum class TaxState { kFine, kNoNumber, kNegative, kTooLarge };

struct LineCoupon {
  std::string name;  ///< as stored; empty when the coupon is gone
  CouponState state = CouponState::kGone;
  Cents amount = 0;  ///< what it takes off; 0 but for kTaken and kRebate
};

struct LinePrice {
  PriceState state = PriceState::kNoPrice;
  TaxState tax_state = TaxState::kFine;
  Amounts amounts;                  ///< zeros unless the line is priced
  std::vector<LineCoupon> coupons;  ///< of the slots that are filled, in their order
};

/// The quantity that counts: 0 means that none was entered, and one is bought.
[[nodiscard]] double CountedQuantity(const ProductRecord& product);

/// Every step is exact and rounded to cents where it stands here, half away from zero:
/// 1. price = quantity x unit price;
/// 2. the usable coupons in the order of their slots, each once: an amount as it stands, once for
///    the line; so many percent (100 at most) of what the slots before it have left; never more
///    than is left;
/// 3. tax = so many percent of the price, and of what is left of it;
/// 4. mail-in rebates likewise, from what is left without tax; the tax stays.
[[nodiscard]] LinePrice PriceLine(const ProductRecord& product, const CouponBook& coupons,
                                  DateStamp day);

}  // namespace brovanta::data_tool
