#include "server/coupon_words.h"

#include <array>

namespace brovanta::server {
namespace {

constexpr std::array kSources = {CouponSource::kCoupon, CouponSource::kDeal};
constexpr std::array kTypes = {CouponType::kInternetCode, CouponType::kStoreCoupon,
                               CouponType::kMailInRebate};
constexpr std::array kValueTypes = {ValueType::kPercent, ValueType::kAmount};

template <typename Values>
std::optional<typename Values::value_type> FromWord(const Values& values, std::string_view word) {
  for (const auto value : values) {
    if (Word(value) == word) return value;
  }
  return std::nullopt;
}

template <typename Values>
std::optional<typename Values::value_type> FromNumber(const Values& values, std::int64_t number) {
  for (const auto value : values) {
    if (static_cast<std::int64_t>(value) == number) return value;
  }
  return std::nullopt;
}

}  // namespace

std::string_view Word(CouponSource source) {
  switch (source) {
    case CouponSource::kCoupon:
      return "coupon";
    case CouponSource::kDeal:
      return "deal";
  }
  return "";
}

std::string_view Word(CouponType type) {
  switch (type) {
    case CouponType::kInternetCode:
      return "internet code";
    case CouponType::kStoreCoupon:
      return "store coupon";
    case CouponType::kMailInRebate:
      return "mail in rebate";
  }
  return "";
}

std::string_view Word(ValueType type) {
  switch (type) {
    case ValueType::kPercent:
      return "percent";
    case ValueType::kAmount:
      return "amount";
  }
  return "";
}

std::string_view Title(CouponType type) {
  switch (type) {
    case CouponType::kInternetCode:
      return "Internet Code";
    case CouponType::kStoreCoupon:
      return "Store Coupon";
    case CouponType::kMailInRebate:
      return "Mail In Rebate";
  }
  return "";
}

std::optional<CouponSource> SourceFromWord(std::string_view word) {
  return FromWord(kSources, word);
}
std::optional<CouponType> TypeFromWord(std::string_view word) { return FromWord(kTypes, word); }
std::optional<ValueType> ValueTypeFromWord(std::string_view word) {
  return FromWord(kValueTypes, word);
}

std::optional<CouponSource> SourceFromNumber(std::int64_t number) {
  return FromNumber(kSources, number);
}
std::optional<CouponType> TypeFromNumber(std::int64_t number) { return FromNumber(kTypes, number); }
std::optional<ValueType> ValueTypeFromNumber(std::int64_t number) {
  return FromNumber(kValueTypes, number);
}

std::string ValueInWords(const Coupon& coupon) {
  switch (coupon.value_type) {
    case ValueType::kPercent:
      return coupon.value + "% off";
    case ValueType::kAmount:
      return "$" + coupon.value + " off";
  }
  return coupon.value;
}

}  // namespace brovanta::server
