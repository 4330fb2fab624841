#include "server/demo_catalog.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "server/text_rules.h"

namespace brovanta::server {
namespace {

TEST(DemoCatalog, EveryNameMayTravelInAFeed) {
  for (const std::string_view name : DemoStores()) {
    EXPECT_EQ(TextProblem(name, kListNameLength), std::nullopt) << name;
  }
  for (const std::string_view name : DemoCategories()) {
    EXPECT_EQ(TextProblem(name, kListNameLength), std::nullopt) << name;
  }
  for (const DemoProduct& product : DemoProducts()) {
    EXPECT_EQ(TextProblem(product.name, kProductLength), std::nullopt) << product.name;
  }
}

TEST(DemoCatalog, NothingComesTwice) {
  EXPECT_EQ(std::set<std::string_view>(DemoStores().begin(), DemoStores().end()).size(), 30u);
  EXPECT_EQ(std::set<std::string_view>(DemoCategories().begin(), DemoCategories().end()).size(),
            20u);
  std::set<std::string_view> products;
  for (const DemoProduct& product : DemoProducts()) products.insert(product.name);
  EXPECT_EQ(products.size(), DemoProducts().size());
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
