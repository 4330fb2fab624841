// Adding and updating products and purchases, checked in the files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>

#include "db/product_list.h"
#include "platform/file.h"
#include "tests/db/product_list_fixture.h"

namespace brovanta {
namespace {

using test::At;
using test::Bytes;
using test::Hex;
using test::kDay;
using test::ProductFile;
using test::StoredProduct;
using testing::ElementsAre;
using testing::IsEmpty;

class ProductListChangeTest : public test::ProductListFixture {};

TEST_F(ProductListChangeTest, TheFirstProductMakesTheFileAndGetsIdOne) {
  ProductFields fields = Fields("Milk");
  fields.short_text = "low fat";
  fields.notes = "two packs";
  fields.store = NameRef{12, ""};
  fields.category = NameRef{13, ""};
  fields.unit = NameRef{14, ""};
  fields.unit_price = 1.25;
  fields.quantity = 2.0;
  fields.purchase_kind = 3;
  fields.every = 2;
  fields.day_value = 5;
  fields.tax_percent = 8.5;
  fields.discounts[1] = {77, 2, 103};
  const auto added = list().Add(kProductKind, fields);
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(added->Id, 1);
  StoredProduct expected{.id = 1,
                         .name = "Milk",
                         .short_text = "low fat",
                         .notes = "two packs",
                         .store = 12,
                         .category = 13,
                         .unit = 14,
                         .kind = 3,
                         .every = 2,
                         .day_value = 5,
                         .start = At(2024, 5, 6),
                         .price = 1.25,
                         .quantity = 2.0,
                         .tax = 8.5};
  expected.slots[1] = {77, 2, 103};
  EXPECT_EQ(FileBytes(kProducts), ProductFile(1, {expected}));
}

TEST_F(ProductListChangeTest, EachRecordGetsTheIdBehindTheFilesLastOne) {
  WriteProducts({{.id = 3, .start = now_}});
  ProductFields fields = Fields("Milk");
  EXPECT_EQ(list().Add(kProductKind, fields)->Id, last_id_ + 1);
  EXPECT_EQ(list().Add(kProductKind, fields)->Id, last_id_ + 2);
  const StoredProduct milk{.id = last_id_ + 1, .start = At(2024, 5, 6)};
  StoredProduct second = milk;
  second.id = last_id_ + 2;
  EXPECT_EQ(FileBytes(kProducts),
            ProductFile(last_id_ + 2, {{.id = 3, .start = now_}, milk, second}));
}

TEST_F(ProductListChangeTest, ProductsAndPurchasesCountTheirOwnIds) {
  WriteProducts({});
  ProductFields fields = Fields("Milk");
  EXPECT_EQ(list().Add(kPurchaseKind, fields)->Id, 1);
  EXPECT_EQ(FileBytes(kPurchases), ProductFile(1, {{.id = 1, .start = At(2024, 5, 6)}}));
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {}));
}

TEST_F(ProductListChangeTest, UsedUpIdsRefuseTheRecord) {
  folder_.Write(kProducts, ProductFile(std::numeric_limits<std::int32_t>::max(), {}));
  const Bytes before = FileBytes(kProducts);
  ProductFields fields = Fields("Milk");
  EXPECT_FALSE(list().Add(kProductKind, fields).has_value());
  EXPECT_EQ(FileBytes(kProducts), before);
}

TEST_F(ProductListChangeTest, LongTextsAreCutToTheirFields) {
  ProductFields fields = Fields(std::string(60, 'n'));
  fields.short_text = std::string(20, 's');
  fields.notes = std::string(300, 'o');
  ASSERT_TRUE(list().Add(kProductKind, fields).has_value());
  const StoredProduct expected{.id = 1,
                               .name = std::string(49, 'n'),
                               .short_text = std::string(9, 's'),
                               .notes = std::string(249, 'o'),
                               .start = At(2024, 5, 6)};
  EXPECT_EQ(FileBytes(kProducts), ProductFile(1, {expected}));
}

TEST_F(ProductListChangeTest, NewNamesGetIdsBeforeTheRecordIsWritten) {
  ProductFields fields = Fields("Milk");
  fields.store = NameRef{0, "Corner shop"};
  fields.category = NameRef{0, "Dairy"};
  fields.unit = NameRef{0, "Litre"};
  const auto added = list().Add(kProductKind, fields);
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(added->StoreId, 5000U);
  EXPECT_EQ(added->CategoryId, 5000U);
  EXPECT_EQ(added->UnitId, 5000U);
  EXPECT_EQ(fields.store->Id, 5000);
  EXPECT_EQ(database_.units().Find(5000)->Name.view(), "Litre");
}

TEST_F(ProductListChangeTest, MissingReferencesAreStoredAsZero) {
  ProductFields fields = Fields("Milk");
  const auto added = list().Add(kProductKind, fields);
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(added->StoreId, 0U);
  EXPECT_EQ(added->CategoryId, 0U);
  EXPECT_EQ(added->UnitId, 0U);
  EXPECT_TRUE(database_.stores().empty());
}

TEST_F(ProductListChangeTest, ANameListThatCannotBeWrittenStopsTheSave) {
  WriteProducts({});
  std::filesystem::remove(folder_.File("unit.lst"));
  std::filesystem::create_directory(folder_.File("unit.lst"));
  ProductFields fields = Fields("Milk");
  fields.unit = NameRef{0, "Litre"};
  EXPECT_FALSE(list().Add(kProductKind, fields).has_value());
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {}));
  EXPECT_EQ(fields.unit->Id, 0);
}

TEST_F(ProductListChangeTest, AnotherKindAddsNothing) {
  ProductFields fields = Fields("Milk");
  fields.store = NameRef{0, "Corner shop"};
  EXPECT_FALSE(list().Add(0, fields).has_value());
  EXPECT_FALSE(list().Add(3, fields).has_value());
  EXPECT_FALSE(list().Update(3, 1, fields).has_value());
  EXPECT_TRUE(database_.stores().empty());
  EXPECT_FALSE(folder_.Read(kProducts).has_value());
}

TEST_F(ProductListChangeTest, AnAddedProductIsShownWithItsDueDateThatIsNotWritten) {
  WriteProducts({{.id = 1, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ProductFields fields = Fields("Milk");
  fields.purchase_kind = 2;
  fields.day_value = 3;
  const auto added = list().Add(kProductKind, fields);
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(added->NextDate, At(2024, 5, 6));
  EXPECT_THAT(Ids(), ElementsAre(1, last_id_ + 1));
  EXPECT_EQ(*list().Find(last_id_ + 1), *added);
  const StoredProduct expected{
      .id = last_id_ + 1, .kind = 2, .day_value = 3, .start = At(2024, 5, 6)};
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_ + 1, {{.id = 1, .start = now_}, expected}));
}

TEST_F(ProductListChangeTest, AnAddedProductOutsideTheFilterIsNotShown) {
  WriteProducts({});
  ProductFilter filter;
  filter.from = now_;
  filter.to = now_ + kDay;
  ASSERT_EQ(list().Load(&filter), 0);
  ProductFields fields = Fields("Milk");
  fields.start_date = now_ + 2 * kDay;
  const auto added = list().Add(kProductKind, fields);
  ASSERT_TRUE(added.has_value());
  EXPECT_EQ(added->NextDate, 0);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListChangeTest, ARecordOfTheOtherKindIsNotShown) {
  WriteProducts({});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ProductFields fields = Fields("Milk");
  ASSERT_TRUE(list().Add(kPurchaseKind, fields).has_value());
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListChangeTest, AddingToADamagedFileGivesNothingAndWritesNothing) {
  ProductFields fields = Fields("Milk");
  Bytes wrong_magic = ProductFile(1, {{.id = 1}});
  wrong_magic[0] = std::byte{0};
  Bytes no_end_mark = ProductFile(1, {{.id = 1}});
  no_end_mark.back() = std::byte{1};
  Bytes cut = ProductFile(1, {{.id = 1}});
  cut.pop_back();
  Bytes garbage_behind = test::Join({ProductFile(1, {{.id = 1}}), Hex("00")});
  for (const Bytes& bytes : {Bytes(), wrong_magic, no_end_mark, cut, garbage_behind}) {
    folder_.Write(kProducts, bytes);
    EXPECT_FALSE(list().Add(kProductKind, fields).has_value());
    EXPECT_EQ(FileBytes(kProducts), bytes);
  }
}

TEST_F(ProductListChangeTest, AFileHeldBySomeoneElseTakesNoRecord) {
  WriteProducts({});
  platform::File other;
  ASSERT_TRUE(other.Open(folder_.File(kProducts), platform::File::Mode::kRead));
  ProductFields fields = Fields("Milk");
  EXPECT_FALSE(list().Add(kProductKind, fields).has_value());
}

TEST_F(ProductListChangeTest, UpdateWritesAFreshRecordOverTheOldOne) {
  const StoredProduct before{.id = 1, .name = "Oats", .start = now_};
  const StoredProduct behind{.id = 3, .name = "Eggs", .start = now_};
  StoredProduct old{.reserved = test::Run(8, 9),
                    .id = 2,
                    .short_text = "old",
                    .store = 3,
                    .kind = 2,
                    .day_value = 1,
                    .start = At(2024, 1, 1),
                    .last_purchased = At(2024, 2, 1),
                    .next_date = 5,
                    .days_overdue = 6,
                    .tax = 1.0};
  old.slots[0] = {1, 1, 1};
  WriteProducts({before, old, behind});
  ProductFields fields = Fields("Cream");
  fields.quantity = 3.0;
  const auto updated = list().Update(kProductKind, 2, fields);
  ASSERT_TRUE(updated.has_value());
  EXPECT_EQ(updated->Id, 2);
  const StoredProduct expected{.id = 2, .name = "Cream", .start = At(2024, 5, 6), .quantity = 3.0};
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {before, expected, behind}));
}

TEST_F(ProductListChangeTest, UpdateForgetsWhenAProductWasLastBought) {
  WriteProducts({{.id = 1, .start = now_, .last_purchased = today_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ASSERT_THAT(Ids(), IsEmpty());
  ProductFields fields = Fields("Milk");
  ASSERT_TRUE(list().Update(kProductKind, 1, fields).has_value());
  EXPECT_THAT(Ids(), ElementsAre(1));
}

TEST_F(ProductListChangeTest, UpdateMovesTheProductToItsPlaceInTheList) {
  WriteProducts(
      {{.id = 1, .start = now_ + kDay}, {.id = 2, .start = now_}, {.id = 3, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ProductFields fields = Fields("Milk");
  fields.start_date = now_;
  ASSERT_TRUE(list().Update(kProductKind, 1, fields).has_value());
  EXPECT_THAT(Ids(), ElementsAre(2, 3, 1));
}

TEST_F(ProductListChangeTest, UpdateTakesAProductThatNoLongerPassesOutOfTheList) {
  WriteProducts({{.id = 1, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ProductFields fields = Fields("Milk");
  fields.start_date = At(2031, 1, 1);
  ASSERT_TRUE(list().Update(kProductKind, 1, fields).has_value());
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListChangeTest, UpdateOfAPurchaseLeavesTheProductWithItsIdAlone) {
  WriteProducts({{.id = 1, .start = now_}});
  WritePurchases({{.id = 1, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  const Bytes products = FileBytes(kProducts);
  ProductFields fields = Fields("Cream");
  ASSERT_TRUE(list().Update(kPurchaseKind, 1, fields).has_value());
  EXPECT_EQ(FileBytes(kProducts), products);
  EXPECT_EQ(list().Find(1)->Name.view(), "Milk");
  EXPECT_EQ(FileBytes(kPurchases),
            ProductFile(last_id_, {{.id = 1, .name = "Cream", .start = At(2024, 5, 6)}}));
}

TEST_F(ProductListChangeTest, UpdateOfAnAbsentIdMakesNoName) {
  WriteProducts({{.id = 1, .start = now_}});
  ProductFields fields = Fields("Milk");
  fields.store = NameRef{0, "Corner shop"};
  EXPECT_FALSE(list().Update(kProductKind, 2, fields).has_value());
  EXPECT_EQ(fields.store->Id, 0);
  EXPECT_TRUE(database_.stores().empty());
  EXPECT_FALSE(list().Update(kPurchaseKind, 2, fields).has_value());  // no such file
}

TEST_F(ProductListChangeTest, UpdateInADamagedFileChangesNothing) {
  Bytes file = ProductFile(1, {{.id = 1, .start = now_}, {.id = 2, .start = now_}});
  file[8 + 460] = std::byte{0};  // the mark before the second record
  folder_.Write(kProducts, file);
  ProductFields fields = Fields("Milk");
  EXPECT_FALSE(list().Update(kProductKind, 2, fields).has_value());
  EXPECT_EQ(FileBytes(kProducts), file);
}

TEST_F(ProductListChangeTest, UpdateMeansTheFirstRecordWithTheIdThatIsNotDeleted) {
  const StoredProduct deleted{.id = 1, .name = "Old", .start = now_, .deleted = 1};
  const StoredProduct second{.id = 1, .name = "Second", .start = now_};
  WriteProducts({deleted, {.id = 1, .name = "Live", .start = now_}, second});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ProductFields fields = Fields("New");
  ASSERT_TRUE(list().Update(kProductKind, 1, fields).has_value());
  const StoredProduct expected{.id = 1, .name = "New", .start = At(2024, 5, 6)};
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {deleted, expected, second}));
  EXPECT_EQ(list().First()->Name.view(), "Second");
  EXPECT_EQ(list().Next()->Name.view(), "New");
  EXPECT_EQ(list().Next(), nullptr);
}

TEST_F(ProductListChangeTest, UpdateOfADeletedRecordBringsItBack) {
  WriteProducts({{.id = 1, .start = now_, .deleted = 1}});
  ProductFields fields = Fields("Milk");
  ASSERT_TRUE(list().Update(kProductKind, 1, fields).has_value());
  EXPECT_EQ(FileBytes(kProducts), ProductFile(last_id_, {{.id = 1, .start = At(2024, 5, 6)}}));
}

}  // namespace
}  // namespace brovanta
