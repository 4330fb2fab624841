// A store in a folder of its own, and entries to put into it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "server/store.h"
#include "tests/support/temp_folder.h"

namespace brovanta::server {

/// Rows as if read from a table, from line 2 on.
template <typename Entry>
std::vector<Row<Entry>> RowsOf(std::vector<Entry> entries) {
  std::vector<Row<Entry>> rows;
  for (Entry& entry : entries) rows.push_back({rows.size() + 2, std::move(entry)});
  return rows;
}

inline Coupon SimpleCoupon(CouponSource source, std::int32_t id, std::int32_t store = 1,
                           std::int32_t category = 1) {
  Coupon coupon;
  coupon.source = source;
  coupon.id = id;
  coupon.name = "Offer";
  coupon.value = "1.50";
  coupon.store_id = store;
  coupon.category_id = category;
  return coupon;
}

class StoreTest : public testing::Test {
 protected:
  void SetUp() override {
    store_ = Open();
    ASSERT_NE(store_, nullptr) << error_;
  }

  std::unique_ptr<Store> Open(sqlite::OpenMode mode = sqlite::OpenMode::kCreate) {
    return Store::Open(path(), mode, error_);
  }

  [[nodiscard]] std::string path() const { return folder_.File("a.db"); }

  /// Stores and categories 1 to 3.
  void PutLists() {
    Import import;
    import.stores = RowsOf<ListEntry>({{1, "One"}, {2, "Two"}, { 3, "Three" }});
    import.categories = RowsOf<ListEntry>({{1, "Eins"}, {2, "Zwei"}, { 3, "Drei" }});
    ASSERT_EQ(store_->Apply(import), std::vector<Problem>{});
  }

  void PutCoupons(std::vector<Coupon> coupons) {
    Import import;
    import.coupons = RowsOf(std::move(coupons));
    ASSERT_EQ(store_->Apply(import), std::vector<Problem>{});
  }

  std::vector<ListEntry> Entries(ListKind kind, std::int32_t above = 0) {
    std::vector<ListEntry> entries;
    EXPECT_TRUE(store_->ForEachEntry(kind, above, [&entries](const ListEntry& entry) {
      entries.push_back(entry);
      return true;
    }));
    return entries;
  }

  std::vector<Coupon> Coupons(std::int32_t coupons_above = 0, std::int32_t deals_above = 0) {
    std::vector<Coupon> coupons;
    EXPECT_TRUE(store_->ForEachCoupon(coupons_above, deals_above, [&coupons](const Coupon& coupon) {
      coupons.push_back(coupon);
      return true;
    }));
    return coupons;
  }

  test::TempFolder folder_;
  std::string error_;
  std::unique_ptr<Store> store_;
};

}  // namespace brovanta::server
