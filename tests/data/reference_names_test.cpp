#include "data/reference_names.h"

#include <gmock/gmock.h>

#include "tests/data/sample_folder.h"

namespace brovanta::data_tool {
namespace {

using testing::Optional;

DiscountRecord Coupon(std::int32_t id, std::int16_t source, std::int16_t type, const char* name,
                      bool deleted = false) {
  DiscountRecord record;
  record.Id = id;
  record.Source = source;
  record.Type = type;
  record.Name.Assign(name);
  record.Deleted = deleted ? 1 : 0;
  return record;
}

TEST(NameTableTest, TheFirstOfEqualIdsCounts) {
  NameTable table;
  table.Add(5000, "Corner Shop");
  table.Add(5000, "Other");
  EXPECT_THAT(table.Find(5000), Optional(std::string("Corner Shop")));
  EXPECT_EQ(table.Find(0), std::nullopt);
}

TEST(CouponNamesTest, AKeyLeadsToItsCoupon) {
  CouponNames names;
  names.Add(Coupon(40, 1, 2, "gone", true));
  names.Add(Coupon(40, 1, 2, "week"));
  names.Add(Coupon(40, 2, 2, "deal"));
  EXPECT_EQ(names.Find({40, 1, 2}), "week");
  EXPECT_EQ(names.Find({40, 2, 102}), "deal");
  EXPECT_EQ(names.Find({41, 1, 2}), std::nullopt);
  EXPECT_EQ(names.Find({40, 3, 2}), std::nullopt);
}

TEST(CouponNamesTest, ALinkOfTheSearchLeadsToTheFirstOfItsType) {
  CouponNames names;
  names.Add(Coupon(40, 1, 2, "gone", true));
  names.Add(Coupon(40, 1, 3, "mail"));
  names.Add(Coupon(40, 2, 2, "deal"));
  EXPECT_EQ(names.Find({40, 0, 102}), "deal");
  EXPECT_EQ(names.Find({40, 0, 103}), "mail");
  EXPECT_EQ(names.Find({40, 0, 101}), std::nullopt);
}

TEST(CouponNamesTest, ADeletedCouponKeepsItsName) {
  CouponNames names;
  names.Add(Coupon(40, 1, 2, "gone", true));
  EXPECT_EQ(names.Find({40, 1, 2}), "gone");
}

TEST(ReferenceNamesTest, AreThoseOfTheFolder) {
  const test::TempFolder folder;
  test::MakeHousehold(folder.path());
  DataSnapshot files;
  ASSERT_EQ(TakeDataSnapshot(folder.path(), files), SnapshotResult::kTaken);
  const ReferenceNames names = NamesOf(files);
  EXPECT_EQ(names.stores.Find(5000), "Corner Shop");
  EXPECT_EQ(names.categories.Find(5000), "Food");
  EXPECT_EQ(names.units.Find(5000), "bottle");
  EXPECT_EQ(names.coupons.Find({40, 1, 2}), "Milk week");
  files["store.lst"].resize(40);
  files.erase("discount.dat");
  EXPECT_EQ(NamesOf(files).stores.Find(5000), std::nullopt);
  EXPECT_EQ(NamesOf(files).coupons.Find({40, 1, 2}), std::nullopt);
}

}  // namespace
}  // namespace brovanta::data_tool
