// A database in a folder of its own, at noon (UTC) of Monday 2024-05-06, for the product tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/product_list.h"
#include "db/shopping_database.h"
#include "tests/db/stored_product.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"

namespace brovanta::test {

class ProductListFixture : public testing::Test {
 protected:
  static constexpr std::string_view kProducts = "product.dat";
  static constexpr std::string_view kPurchases = "purchase.dat";

  void SetUp() override {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder_.Write(list, Hex("81 38 01 00 83 38 01 00"));
    }
    ASSERT_EQ(database_.Open(folder_.path()), 0);
  }

  [[nodiscard]] ProductList& list() { return database_.products(); }

  void WriteProducts(const std::vector<StoredProduct>& products) const {
    folder_.Write(kProducts, ProductFile(last_id_, products));
  }
  void WritePurchases(const std::vector<StoredProduct>& purchases) const {
    folder_.Write(kPurchases, ProductFile(last_id_, purchases));
  }

  /// A whole file's bytes; a missing file fails the test.
  [[nodiscard]] Bytes FileBytes(std::string_view name) const {
    const auto bytes = folder_.Read(name);
    EXPECT_TRUE(bytes.has_value()) << name;
    return bytes.value_or(Bytes());
  }

  /// Lets everything of the kind pass that has a date up to 2030.
  int LoadAll(int kind) {
    ProductFilter filter;
    filter.kind = kind;
    filter.from = 0;
    filter.to = At(2030, 1, 1);
    return list().Load(&filter);
  }

  [[nodiscard]] std::vector<std::int32_t> Ids() {
    std::vector<std::int32_t> ids;
    for (const auto* record = list().First(); record != nullptr; record = list().Next()) {
      ids.push_back(record->Id);
    }
    return ids;
  }

  [[nodiscard]] static ProductFields Fields(std::string name) {
    ProductFields fields;
    fields.name = std::move(name);
    fields.purchase_kind = 1;
    fields.start_date = At(2024, 5, 6);
    return fields;
  }

  const std::int32_t now_ = At(2024, 5, 6, 12);
  const std::int32_t today_ = At(2024, 5, 6, 1);
  const std::int32_t last_id_ = 40;

 private:
  ZoneGuard zone_{"UTC"};

 protected:
  FixedClock clock_{now_};
  TempFolder folder_;
  ShoppingDatabase database_;
};

}  // namespace brovanta::test
