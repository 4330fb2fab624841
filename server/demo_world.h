// A believable household's world, to try the program with.
#pragma once

#include "server/calendar_day.h"
#include "server/store.h"

namespace brovanta::server {

inline constexpr int kDemoCouponCount = 200;
inline constexpr int kDemoDealCount = 100;

/// 30 stores, 20 categories, 200 coupons and 100 deals around `today`, and an agent file whose
/// shops are on this server. The same for the same day.
[[nodiscard]] Import DemoWorld(Day today);

/// Whether a coupon is word for word one that the demonstration makes, whatever its id and dates:
/// then it is nobody's own work.
[[nodiscard]] bool IsDemoOffer(const Coupon& coupon);

}  // namespace brovanta::server
