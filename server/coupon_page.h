// The page of one coupon or deal, which the program opens in the browser.
#pragma once

#include <string>

#include "server/entries.h"

namespace brovanta::server {

/// The page as a person sees it on `today`; what has run out says so.
[[nodiscard]] std::string CouponPage(const CouponView& view, Day today);

}  // namespace brovanta::server
