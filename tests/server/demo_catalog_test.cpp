#include "server/demo_catalog.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "server/text_rules.h"

namespace brovanta::server {
namespace {

TEST(DemoCatalog, EveryNameMayTravelInAFeed) {
  for (const DemoStore& store : DemoStores()) {
    EXPECT_EQ(TextProblem(store.name, kListNameLength), std::nullopt) << store.name;
  }
  for (const std::string_view name : DemoCategories()) {
    EXPECT_EQ(TextProblem(name, kListNameLength), std::nullopt) << name;
  }
  for (const DemoProduct& product : DemoProducts()) {
    EXPECT_EQ(TextProblem(product.name, kProductLength), std::nullopt) << product.name;
  }
}

TEST(DemoCatalog, NothingComesTwice) {
  std::set<std::string_view> stores;
  for (const DemoStore& store : DemoStores()) stores.insert(store.name);
  EXPECT_EQ(stores.size(), 30u);
  EXPECT_EQ(std::set<std::string_view>(DemoCategories().begin(), DemoCategories().end()).size(),
            20u);
  std::set<std::string_view> products;
  for (const DemoProduct& product : DemoProducts()) products.insert(product.name);
  EXPECT_EQ(products.size(), DemoProducts().size());
}

TEST(DemoCatalog, StoresSellWhatTheirNamesSay) {
  const DemoStore& bakery = DemoStores()[3];
  EXPECT_EQ(bakery.name, "Blue Awning Bakery");
  for (int category = 1; category <= static_cast<int>(kDemoCategoryCount); ++category) {
    EXPECT_EQ(bakery.Sells(category), category == 2) << category;
    int stores = 0;
    for (const DemoStore& store : DemoStores()) stores += store.Sells(category) ? 1 : 0;
    EXPECT_GE(stores, 3) << category;
  }
}

TEST(DemoCatalog, EveryCategoryHasFiveProductsWithPrices) {
  std::array<int, kDemoCategoryCount + 1> counts{};
  for (const DemoProduct& product : DemoProducts()) {
    ASSERT_GE(product.category, 1);
    ASSERT_LE(product.category, static_cast<int>(kDemoCategoryCount));
    ++counts[static_cast<std::size_t>(product.category)];
    EXPECT_GT(product.cents, 0) << product.name;
  }
  for (std::size_t category = 1; category <= kDemoCategoryCount; ++category) {
    EXPECT_EQ(counts[category], 5) << category;
  }
}

}  // namespace
}  // namespace brovanta::server
