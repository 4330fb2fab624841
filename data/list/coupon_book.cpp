#include "data/list/coupon_book.h"

#include <chrono>

#include "db/discount_list.h"

namespace brovanta::data_tool {
namespace {

constexpr std::int16_t kMailInRebate = 3;

}  // namespace

CouponBook::CouponBook(std::span<const DiscountRecord> discounts) : zone_(LocalZone::Current()) {
  for (const DiscountRecord& discount : discounts) {
    if (discount.Deleted == 0) by_id_.emplace(static_cast<std::uint32_t>(discount.Id), &discount);
  }
}

const DiscountRecord* CouponBook::Linked(const AppliedDiscount& slot) const {
  const bool by_search = slot.Source == 0 && slot.Type > kFoundByProduct;
  const DiscountRecord* found = nullptr;
  const auto [begin, end] = by_id_.equal_range(slot.Id);
  for (auto at = begin; at != end; ++at) {
    const DiscountRecord* const discount = at->second;
    if (discount->Source == slot.Source) return discount;
    if (found == nullptr && by_search && discount->Type == slot.Type - kFoundByProduct) {
      found = discount;
    }
  }
  return found;
}

CouponState CouponBook::Usable(const AppliedDiscount& slot, const DiscountRecord* discount,
                               const ProductRecord& product, DateStamp day) const {
  if (discount == nullptr) return CouponState::kGone;
  if (slot.Type > kFoundByProduct) return CouponState::kProposed;
  if (discount->StartDate > 0 && DayOf(discount->StartDate) > DayOf(day)) {
    return CouponState::kNotYet;
  }
  if (discount->EndDate > 0 && DayOf(discount->EndDate) < DayOf(day)) return CouponState::kExpired;
  if (discount->StoreId != 0 && product.StoreId != 0 && discount->StoreId != product.StoreId) {
    return CouponState::kOtherStore;
  }
  return discount->Type == kMailInRebate ? CouponState::kRebate : CouponState::kTaken;
}

std::int64_t CouponBook::DayOf(DateStamp stamp) const {
  const CalendarTime time = zone_->ToCalendar(stamp);
  const std::chrono::sys_days day =
      std::chrono::year{time.year} / static_cast<int>(time.month) / static_cast<int>(time.day);
  return day.time_since_epoch().count();
}

}  // namespace brovanta::data_tool
