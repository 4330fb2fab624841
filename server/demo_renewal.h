// Keeps the demonstration in an older database fresh.
#pragma once

#include <string>
#include <vector>

#include "server/calendar_day.h"
#include "server/store.h"

namespace brovanta::server {

/// What brings a database up to date in which the demonstration stands, made on an earlier day or
/// by an earlier version:
/// - Offers of the demonstration that have ended before `today` go and run again from about today,
///   under new ids above all others of their source, so that handhelds get them.
/// - An agent file whose shops are all of the demonstration gives way to the present one.
/// Everything else is somebody's own and stays. The same for the same arguments.
[[nodiscard]] Import DemoRenewal(const std::vector<Coupon>& coupons, const std::string& agents,
                                 Day today);

}  // namespace brovanta::server
