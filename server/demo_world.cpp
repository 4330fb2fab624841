#include "server/demo_world.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "server/coupon_words.h"
#include "server/demo_agents.h"
#include "server/demo_catalog.h"
#include "util/number.h"

namespace brovanta::server {
namespace {

// Pseudo-random numbers that are the same on every machine and with every library.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  // 0 to sides - 1.
  int Roll(int sides) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<int>((state_ >> 33u) % static_cast<std::uint64_t>(sides));
  }

 private:
  std::uint64_t state_;
};

void Append(std::vector<Row<ListEntry>>& rows, std::string_view name) {
  const std::int32_t id = static_cast<std::int32_t>(rows.size()) + 1;
  rows.push_back({0, {id, std::string(name)}});
}

// A fifth to a half of the price, in steps of five cents: people do not print odd amounts.
std::string Amount(Dice& dice, int cents) {
  const int steps = cents * (20 + dice.Roll(31)) / 100 / 5;
  return FormatTwoDecimals(std::max(steps, 1) * 5 / 100.0);
}

constexpr std::string_view kCodeStart = "Enter the code SAVE";
constexpr std::size_t kCodeDigits = 4;

// The code is used by internet codes only.
std::string Description(CouponType type, std::string_view code, std::string_view store) {
  const std::string at(store);
  switch (type) {
    case CouponType::kInternetCode:
      return std::string(kCodeStart) + std::string(code) + " when you order from " + at +
             ". One use for each household.";
    case CouponType::kStoreCoupon:
      return "Show this page at the checkout of " + at + ". Not together with other offers.";
    case CouponType::kMailInRebate:
      return "Keep the receipt from " + at +
             " and send it in with the label. The rebate comes by mail within six weeks.";
  }
  return {};
}

// The id of one of the stores that sell the category.
std::int32_t RollStore(Dice& dice, int category) {
  for (;;) {
    const int index = dice.Roll(static_cast<int>(kDemoStoreCount));
    if (DemoStores()[static_cast<std::size_t>(index)].Sells(category)) return index + 1;
  }
}

// Most offers run now, some have just ended, some start soon, a few have no dates at all.
void SetDates(Dice& dice, Day today, Coupon& coupon) {
  if (dice.Roll(20) == 0) return;
  const Day start = DaysLater(today, dice.Roll(36) - 25);
  coupon.start_date = start;
  if (dice.Roll(15) == 0) return;
  coupon.end_date = DaysLater(start, 6 + dice.Roll(45));
}

Coupon MakeCoupon(Dice& dice, Day today, CouponSource source, std::int32_t id) {
  const auto products = DemoProducts();
  const DemoProduct& product =
      products[static_cast<std::size_t>(dice.Roll(static_cast<int>(products.size())))];
  Coupon coupon;
  coupon.source = source;
  coupon.id = id;
  coupon.product = product.name;
  coupon.category_id = product.category;
  coupon.store_id = RollStore(dice, product.category);
  coupon.type = TypeFromNumber(1 + dice.Roll(3)).value_or(CouponType::kStoreCoupon);
  // A rebate is money back.
  const bool percent = coupon.type != CouponType::kMailInRebate && dice.Roll(2) == 0;
  coupon.value_type = percent ? ValueType::kPercent : ValueType::kAmount;
  coupon.value = percent ? std::to_string(5 * (1 + dice.Roll(8))) : Amount(dice, product.cents);
  coupon.name = ValueInWords(coupon) + " " + coupon.product;
  const std::string code =
      coupon.type == CouponType::kInternetCode ? std::to_string(1000 + dice.Roll(9000)) : "";
  coupon.description = Description(
      coupon.type, code, DemoStores()[static_cast<std::size_t>(coupon.store_id) - 1].name);
  SetDates(dice, today, coupon);
  return coupon;
}

}  // namespace

Import DemoWorld(Day today) {
  Import world;
  auto& stores = world.stores.emplace();
  for (const DemoStore& store : DemoStores()) Append(stores, store.name);
  auto& categories = world.categories.emplace();
  for (const std::string_view name : DemoCategories()) Append(categories, name);
  world.agents = DemoAgentFile();
  Dice dice(static_cast<std::uint64_t>(std::chrono::sys_days(today).time_since_epoch().count()));
  auto& coupons = world.coupons.emplace();
  for (std::int32_t id = 1; id <= kDemoCouponCount; ++id) {
    coupons.push_back({0, MakeCoupon(dice, today, CouponSource::kCoupon, id)});
  }
  for (std::int32_t id = 1; id <= kDemoDealCount; ++id) {
    coupons.push_back({0, MakeCoupon(dice, today, CouponSource::kDeal, id)});
  }
  return world;
}

bool IsDemoOffer(const Coupon& coupon) {
  const auto products = DemoProducts();
  const bool known =
      std::any_of(products.begin(), products.end(), [&coupon](const DemoProduct& product) {
        return product.name == coupon.product && product.category == coupon.category_id;
      });
  if (!known || coupon.store_id < 1 ||
      coupon.store_id > static_cast<std::int32_t>(kDemoStoreCount)) {
    return false;
  }
  const DemoStore& store = DemoStores()[static_cast<std::size_t>(coupon.store_id) - 1];
  std::string code;
  if (coupon.description.size() > kCodeStart.size()) {
    code = coupon.description.substr(kCodeStart.size(), kCodeDigits);
  }
  return coupon.name == ValueInWords(coupon) + " " + coupon.product &&
         coupon.description == Description(coupon.type, code, store.name) &&
         (coupon.type != CouponType::kInternetCode ||
          code.find_first_not_of("0123456789") == std::string::npos);
}

}  // namespace brovanta::server
