#include "data/list/list_words.h"

namespace brovanta::data_tool {
namespace {

std::string_view WordsOf(PriceState state) {
  switch (state) {
    case PriceState::kPriced:
      return {};
    case PriceState::kNoPrice:
      return "no price entered";
    case PriceState::kPriceNoNumber:
      return "not counted: the price is no number";
    case PriceState::kPriceNegative:
      return "not counted: the price is below zero";
    case PriceState::kQuantityNoNumber:
      return "not counted: the quantity is no number";
    case PriceState::kQuantityNegative:
      return "not counted: the quantity is below zero";
    case PriceState::kTooLarge:
      return "not counted: the amount is too large";
  }
  return {};
}

std::string_view WordsOf(TaxState state) {
  switch (state) {
    case TaxState::kFine:
      return {};
    case TaxState::kNoNumber:
      return "without tax: its rate is no number";
    case TaxState::kNegative:
      return "without tax: its rate is below zero";
    case TaxState::kTooLarge:
      return "without tax: its rate is too large";
  }
  return {};
}

std::string WordsOf(const LineCoupon& coupon) {
  switch (coupon.state) {
    case CouponState::kTaken:
      return AmountText(-coupon.amount);
    case CouponState::kRebate:
      return AmountText(coupon.amount) + " back by mail";
    case CouponState::kProposed:
      return "found by the search, not applied yet";
    case CouponState::kGone:
      return "not there any more";
    case CouponState::kNotYet:
      return "not valid yet";
    case CouponState::kExpired:
      return "expired";
    case CouponState::kOtherStore:
      return "for another store";
    case CouponState::kRepeated:
      return "linked twice, counted once";
    case CouponState::kNoValue:
      return "without a value";
    case CouponState::kBadValue:
      return "its value is no amount";
    case CouponState::kNothingLeft:
      return "nothing is left to take off";
    case CouponState::kNoPrice:
      return "not counted without a price";
  }
  return {};
}

}  // namespace

std::string TitleOf(const ShoppingList& list) {
  std::string title = "Shopping list, " + list.period;
  if (!list.store.empty()) title.append(", ").append(list.store);
  return title;
}

std::string DayText(DateStamp stamp) {
  if (stamp == kNoDate) return "Unknown date";
  return PeriodAround(CalendarFromStamp(stamp), PeriodKind::kDay).heading;
}

std::vector<std::string> RemarksOf(const ListLine& line) {
  std::vector<std::string> remarks;
  if (line.overdue) remarks.emplace_back("overdue");
  const std::string_view price = WordsOf(line.price.state);
  if (!price.empty()) remarks.emplace_back(price);
  const std::string_view tax = WordsOf(line.price.tax_state);
  if (!tax.empty()) remarks.emplace_back(tax);
  for (const LineCoupon& coupon : line.price.coupons) {
    remarks.push_back((coupon.name.empty() ? "A coupon" : coupon.name) + ": " + WordsOf(coupon));
  }
  if (!line.notes.empty()) remarks.push_back(line.notes);
  return remarks;
}

std::string WithoutPriceWords(std::size_t count) {
  if (count == 0) return {};
  if (count == 1) return "1 product without a price is in no sum.";
  return std::to_string(count) + " products without a price are in no sum.";
}

}  // namespace brovanta::data_tool
