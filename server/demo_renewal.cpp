#include "server/demo_renewal.h"

#include <algorithm>
#include <cstdint>

#include "server/demo_agents.h"
#include "server/demo_range.h"
#include "server/demo_world.h"

namespace brovanta::server {
namespace {

// Hands out ids above all that there are.
class NextIds {
 public:
  explicit NextIds(const std::vector<Coupon>& coupons) {
    for (const Coupon& coupon : coupons) {
      std::int32_t& highest = Highest(coupon.source);
      highest = std::max(highest, coupon.id);
    }
  }

  // False when there is none left.
  [[nodiscard]] bool Give(Coupon& coupon) {
    std::int32_t& highest = Highest(coupon.source);
    if (highest == kMaxCouponId) return false;
    coupon.id = ++highest;
    return true;
  }

 private:
  std::int32_t& Highest(CouponSource source) {
    return source == CouponSource::kCoupon ? coupon_ : deal_;
  }

  std::int32_t coupon_ = 0;
  std::int32_t deal_ = 0;
};

// Two weeks to six, begun within the last week.
void SetDates(Coupon& coupon, Day today) {
  const auto day =
      static_cast<std::uint32_t>(std::chrono::sys_days(today).time_since_epoch().count());
  const std::uint32_t chance = Chance(static_cast<std::uint32_t>(coupon.id), day);
  coupon.start_date = DaysLater(today, -static_cast<int>(chance % 8));
  coupon.end_date = DaysLater(*coupon.start_date, 14 + static_cast<int>(chance / 8 % 29));
}

bool IsOver(const Coupon& coupon, Day today) {
  return coupon.end_date && std::chrono::sys_days(*coupon.end_date) < std::chrono::sys_days(today);
}

}  // namespace

Import DemoRenewal(const std::vector<Coupon>& coupons, const std::string& agents, Day today) {
  Import renewal;
  NextIds ids(coupons);
  auto& fresh = renewal.coupons.emplace();
  for (const Coupon& coupon : coupons) {
    if (!IsOver(coupon, today) || !IsDemoOffer(coupon)) continue;
    Coupon renewed = coupon;
    if (!ids.Give(renewed)) continue;
    SetDates(renewed, today);
    renewal.withdrawn.push_back({coupon.source, coupon.id});
    fresh.push_back({0, std::move(renewed)});
  }
  if (IsDemoAgentFile(agents) && agents != DemoAgentFile()) renewal.agents = DemoAgentFile();
  return renewal;
}

}  // namespace brovanta::server
