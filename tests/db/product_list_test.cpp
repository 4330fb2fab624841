#include "db/product_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/product_list_fixture.h"

namespace brovanta {
namespace {

using test::At;
using test::Bytes;
using test::Hex;
using test::Join;
using test::kDay;
using test::ProductFile;
using test::StoredProduct;
using testing::ElementsAre;
using testing::IsEmpty;

class ProductListTest : public test::ProductListFixture {
 protected:
  /// Loads "product.dat" made of these bytes, anew: cutting a file short may wait for the disk.
  int LoadBytes(const Bytes& bytes) {
    std::filesystem::remove(folder_.File(kProducts));
    folder_.Write(kProducts, bytes);
    return LoadAll(kProductKind);
  }

  [[nodiscard]] std::vector<StoredProduct> Three() const {
    return {{.id = 1, .name = "Oats", .start = now_},
            {.id = 2, .name = "Milk", .start = now_},
            {.id = 3, .name = "Eggs", .start = now_}};
  }
};

TEST_F(ProductListTest, AMissingFileCannotBeOpened) {
  EXPECT_EQ(LoadAll(kProductKind), ERR_OPEN);
  EXPECT_EQ(LoadAll(kPurchaseKind), ERR_OPEN);
}

TEST_F(ProductListTest, AFolderInThePlaceOfTheFileCannotBeOpened) {
  std::filesystem::create_directory(folder_.File(kProducts));
  EXPECT_EQ(LoadAll(kProductKind), ERR_OPEN);
}

TEST_F(ProductListTest, AFileHeldBySomeoneElseCannotBeOpened) {
  WriteProducts(Three());
  platform::File other;
  ASSERT_TRUE(other.Open(folder_.File(kProducts), platform::File::Mode::kRead));
  EXPECT_EQ(LoadAll(kProductKind), ERR_OPEN);
}

TEST_F(ProductListTest, AnEmptyFileLoadsAsNothing) {
  EXPECT_EQ(LoadBytes(Hex("81 38 01 00 00 00 00 00 83 38 01 00")), 0);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListTest, WrongMagicIsAFormatError) {
  EXPECT_EQ(LoadBytes(Hex("80 38 01 00 00 00 00 00 83 38 01 00")), ERR_FORMAT);
  EXPECT_EQ(LoadBytes({}), ERR_FORMAT);
}

TEST_F(ProductListTest, AWrongMarkKeepsWhatWasRead) {
  Bytes file = ProductFile(3, Three());
  file[8 + 2 * 460] = std::byte{0};
  EXPECT_EQ(LoadBytes(file), ERR_FORMAT);
  EXPECT_THAT(Ids(), ElementsAre(1, 2));
}

TEST_F(ProductListTest, AShortRecordKeepsWhatWasRead) {
  Bytes file = ProductFile(3, Three());
  file.resize(12 + 2 * 460 + 455);
  EXPECT_EQ(LoadBytes(file), ERR_IO);
  EXPECT_THAT(Ids(), ElementsAre(1, 2));
}

TEST_F(ProductListTest, WhatStandsBehindTheEndMarkIsIgnored) {
  EXPECT_EQ(LoadBytes(Join({ProductFile(3, Three()), Hex("82 38 01 00 AA")})), 0);
  EXPECT_THAT(Ids(), ElementsAre(1, 2, 3));
}

TEST_F(ProductListTest, AFailedLoadLeavesNothingOfTheOneBefore) {
  WriteProducts(Three());
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(LoadAll(kPurchaseKind), ERR_OPEN);
  EXPECT_THAT(Ids(), IsEmpty());
}

TEST_F(ProductListTest, LoadWithoutAFilterKeepsTheOneBefore) {
  WriteProducts(Three());
  ProductFilter filter;
  filter.to = At(2030, 1, 1);
  filter.text = "milk";
  ASSERT_EQ(list().Load(&filter), 0);
  filter.text = "oats";  // the list has its own copy
  ASSERT_EQ(list().Load(nullptr), 0);
  EXPECT_THAT(Ids(), ElementsAre(2));
  EXPECT_EQ(list().filter().text, "milk");
}

TEST_F(ProductListTest, AnotherKindReadsNothingAndEmptiesTheList) {
  WriteProducts(Three());
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(LoadAll(0), 0);
  EXPECT_THAT(Ids(), IsEmpty());
  EXPECT_EQ(LoadAll(3), 0);
}

TEST_F(ProductListTest, DeletedRecordsAreNotShown) {
  WriteProducts({{.id = 1, .start = now_, .deleted = 1}, {.id = 2, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_THAT(Ids(), ElementsAre(2));
}

TEST_F(ProductListTest, ProductsRunFromTheLatestDueDateToTheEarliest) {
  WriteProducts({{.id = 1, .start = now_},
                 {.id = 2, .start = now_ + kDay},
                 {.id = 3, .kind = 2, .day_value = 9, .start = now_, .last_purchased = now_},
                 {.id = 4, .start = now_ - kDay},
                 {.id = 5, .start = now_ + kDay},
                 {.id = 6, .kind = 0}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_THAT(Ids(), ElementsAre(3, 2, 5, 1, 4, 6));
}

TEST_F(ProductListTest, PurchasesKeepTheOrderOfTheirFile) {
  WritePurchases({{.id = 1, .start = now_ - kDay},
                  {.id = 2, .start = now_ - 9 * kDay},
                  {.id = 3, .start = now_}});
  ASSERT_EQ(LoadAll(kPurchaseKind), 0);
  EXPECT_THAT(Ids(), ElementsAre(1, 2, 3));
}

TEST_F(ProductListTest, PurchasesWithAStoredDueDateAreOrderedByIt) {
  WritePurchases({{.id = 1, .start = now_}, {.id = 2, .start = now_, .next_date = 5}});
  ASSERT_EQ(LoadAll(kPurchaseKind), 0);
  EXPECT_THAT(Ids(), ElementsAre(2, 1));
}

TEST_F(ProductListTest, LoadingComputesDueDatesAndChangesNoByte) {
  const StoredProduct stored{.id = 1,
                             .kind = 2,
                             .day_value = 3,
                             .start = At(2024, 5, 1),
                             .last_purchased = At(2024, 5, 2),
                             .next_date = 77,
                             .days_overdue = 7};
  WriteProducts({stored});
  const Bytes before = FileBytes(kProducts);
  ProductFilter filter;
  filter.from = today_;
  filter.to = now_;
  ASSERT_EQ(list().Load(&filter), 0);
  ASSERT_NE(list().Find(1), nullptr);
  EXPECT_EQ(list().Find(1)->NextDate, At(2024, 5, 4));
  EXPECT_EQ(list().Find(1)->DaysOverdue, 2);
  EXPECT_EQ(FileBytes(kProducts), before);
}

TEST_F(ProductListTest, FindGivesNothingForAnIdThatIsNotShown) {
  WriteProducts(Three());
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_EQ(list().Find(2)->Name.view(), "Milk");
  EXPECT_EQ(list().Find(9), nullptr);
}

TEST_F(ProductListTest, StoresInUseAreThoseOfTheListThatTheStoreListKnows) {
  NameRef aldi{0, "Aldi"};
  NameRef bakery{0, "Bakery"};
  ASSERT_EQ(database_.ResolveNames(&aldi, nullptr, nullptr), 0);
  ASSERT_EQ(database_.ResolveNames(&bakery, nullptr, nullptr), 0);
  WriteProducts({{.id = 1, .store = 5001, .start = now_},
                 {.id = 2, .store = 5000, .start = now_},
                 {.id = 3, .store = 5001, .start = now_},
                 {.id = 4, .store = 77, .start = now_},
                 {.id = 5, .store = 0, .start = now_},
                 {.id = 6, .store = 4'000'000'000U, .start = now_},
                 {.id = 7, .store = 5000, .start = now_, .deleted = 1}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  const NameList stores = list().StoresInUse();
  ASSERT_EQ(stores.size(), 2U);
  EXPECT_EQ(stores.Find(5000)->Count, 1);
  EXPECT_EQ(stores.Find(5001)->Count, 2);
  EXPECT_EQ(stores.Find(5001)->Name.view(), "Bakery");
  EXPECT_EQ(database_.stores().Find(5001)->Count, 0);
}

TEST_F(ProductListTest, CategoriesInUseAreCountedFromTheirOwnField) {
  NameRef fruit{0, "Fruit"};
  ASSERT_EQ(database_.ResolveNames(nullptr, &fruit, nullptr), 0);
  WriteProducts({{.id = 1, .store = 9, .category = 5000, .start = now_},
                 {.id = 2, .store = 5000, .start = now_}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  const NameList categories = list().CategoriesInUse();
  ASSERT_EQ(categories.size(), 1U);
  EXPECT_EQ(categories.Find(5000)->Count, 1);
  EXPECT_EQ(categories.Find(5000)->Name.view(), "Fruit");
}

/// What a file of whole products, cut to `size` bytes, must load as.
int CodeOfCutFile(std::size_t size, std::size_t records) {
  if (size >= 12 + records * 460) return 0;
  if (size < 12) return ERR_FORMAT;
  return (size - 8) % 460 < 4 ? ERR_FORMAT : ERR_IO;
}

TEST_F(ProductListTest, AFileCutAtAnyByteGivesItsCodeAndTheRecordsBeforeTheCut) {
  const Bytes whole = ProductFile(3, Three());
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    ASSERT_EQ(LoadBytes(cut), CodeOfCutFile(size, 3)) << size;
    const std::size_t complete = size < 12 ? 0 : (size - 8) / 460;
    ASSERT_EQ(Ids().size(), complete) << size;
  }
}

TEST_F(ProductListTest, NoByteOfAFileCanHangALoad) {
  const std::vector<StoredProduct> products{
      {.id = 1, .kind = 2, .day_value = 1, .start = now_, .last_purchased = now_},
      {.id = 2, .kind = 3, .every = 1, .day_value = 6, .start = now_, .last_purchased = now_},
      {.id = 3, .kind = 4, .every = 1, .day_value = 31, .start = now_, .last_purchased = now_}};
  const Bytes whole = ProductFile(3, products);
  std::mt19937 random(11);
  for (std::size_t place = 0; place < whole.size(); ++place) {
    for (const auto value : {0x00UL, 0x7FUL, 0xFFUL, random() & 0xFFUL}) {
      Bytes damaged = whole;
      damaged[place] = static_cast<std::byte>(value);
      const int code = LoadBytes(damaged);
      ASSERT_TRUE(code == 0 || code == ERR_FORMAT) << place;
      ASSERT_LE(Ids().size(), 3U) << place;
      // Damage in one record hides no other.
      ASSERT_TRUE(code != 0 || Ids().size() >= 2 || place < 12) << place;
    }
  }
}

TEST_F(ProductListTest, AWeeklyProductOnDaySevenLoadsAsSundayAndKeepsItsStoredDay) {
  WriteProducts({{.id = 1, .kind = 3, .every = 1, .day_value = 7, .start = At(2024, 5, 1)}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  ASSERT_NE(list().Find(1), nullptr);
  EXPECT_EQ(list().Find(1)->NextDate, At(2024, 5, 5));
  EXPECT_EQ(list().Find(1)->DayValue, 7);
}

TEST_F(ProductListTest, ProductsThatCannotMoveOnStayVisible) {
  const std::int32_t bought = At(2024, 5, 5);
  WriteProducts(
      {{.id = 1, .kind = 2, .day_value = 0, .start = At(2024, 5, 1), .last_purchased = bought},
       {.id = 2,
        .kind = 3,
        .every = 0,
        .day_value = 3,
        .start = At(2024, 5, 1),
        .last_purchased = bought},
       {.id = 3,
        .kind = 4,
        .every = 0,
        .day_value = 1,
        .start = At(2024, 5, 1),
        .last_purchased = bought}});
  ASSERT_EQ(LoadAll(kProductKind), 0);
  EXPECT_THAT(Ids(), ElementsAre(1, 2, 3));
  for (const std::int32_t id : {1, 2, 3}) {
    EXPECT_EQ(list().Find(id)->NextDate, At(2024, 5, 1));
    EXPECT_EQ(list().Find(id)->DaysOverdue, 5);
  }
}

}  // namespace
}  // namespace brovanta
