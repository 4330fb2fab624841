// The coupons of a household, and whether one of them can be used for a product on a day.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>

#include "db/records.h"
#include "util/local_zone.h"

namespace brovanta::data_tool {

/// What becomes of a coupon that a product's slot links.
enum class CouponState {
  kTaken,        ///< makes the product cheaper at the till
  kRebate,       ///< a mail-in rebate: paid now, back later
  kProposed,     ///< found by the search, not applied yet by its tick
  kGone,         ///< deleted meanwhile
  kNotYet,       ///< its first day is after the day of buying
  kExpired,      ///< its last day is before it
  kOtherStore,   ///< it is good in another store than the product's
  kRepeated,     ///< an earlier slot holds the same coupon
  kNoValue,      ///< its value is zero
  kBadValue,     ///< its value is below zero or no number
  kNothingLeft,  ///< earlier slots have taken all
  kNoPrice,      ///< the product has no price that it could lower
};

class CouponBook {
 public:
  /// Borrows the discounts.
  explicit CouponBook(std::span<const DiscountRecord> discounts);

  /// The discount that a slot links, by the rule of DiscountList::ReadLinked; nullptr when it is
  /// gone.
  [[nodiscard]] const DiscountRecord* Linked(const AppliedDiscount& slot) const;

  /// kTaken or kRebate when the discount of a slot can be used for the product on the local day of
  /// `day`; otherwise why not. What its value is good for is not looked at, nor other slots.
  [[nodiscard]] CouponState Usable(const AppliedDiscount& slot, const DiscountRecord* discount,
                                   const ProductRecord& product, DateStamp day) const;

 private:
  [[nodiscard]] std::int64_t DayOf(DateStamp stamp) const;

  std::multimap<std::uint32_t, const DiscountRecord*> by_id_;  // live ones, in file order per id
  std::shared_ptr<const LocalZone> zone_;
};

}  // namespace brovanta::data_tool
