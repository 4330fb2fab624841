#include "db/discount_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "db/error_codes.h"
#include "tests/db/discount_list_fixture.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Ids;
using test::Join;
using test::Padded;
using test::Raw;
using test::RawDiscountFile;
using test::RawItem;
using test::RawListFile;
using test::RawRecordFile;

using DiscountListTest = test::DiscountListFixture;

TEST_F(DiscountListTest, LoadRunsFromTheNewestStampToTheOldestEqualStampsInFileOrder) {
  Store({{.id = 1, .stamp = 50},
         {.id = 2, .stamp = 70},
         {.id = 3, .stamp = 50},
         {.id = 4, .stamp = -1},
         {.id = 5, .stamp = 70},
         {.id = 6, .stamp = 60}});
  EXPECT_EQ(Load(), 0);
  EXPECT_EQ(Shown(), (Ids{2, 5, 6, 1, 3, 4}));
}

TEST_F(DiscountListTest, LoadTakesTheRecordOverWhole) {
  Bytes record = test::GoldenDiscountBytes();
  record[397] = std::byte{0};
  folder_.Write("discount.dat", RawRecordFile(2, {record}));
  ASSERT_EQ(Load(), 0);
  DiscountRecord expected = test::GoldenDiscount();
  expected.Deleted = 0;
  EXPECT_EQ(*list_.First(), expected);
}

TEST_F(DiscountListTest, LoadSkipsDeletedRecordsAndThoseThatDoNotPass) {
  Store({{.id = 1, .deleted = 1}, {.id = 2, .name = "Soap"}, {.id = 3, .name = "Bread"}});
  EXPECT_EQ(Load({.text = "soap"}), 0);
  EXPECT_EQ(Shown(), Ids{2});
}

TEST_F(DiscountListTest, AFilterWithValidOnKeepsWhatEndsThatDayOrLaterOrNever) {
  Store({{.id = 1, .end_date = kToday},
         {.id = 2, .end_date = kToday - 1},
         {.id = 3, .end_date = kToday + kDay},
         {.id = 4}});
  EXPECT_EQ(Load({.valid_on = kToday}), 0);
  EXPECT_EQ(Shown(), (Ids{1, 3, 4}));
}

TEST_F(DiscountListTest, ADiscountWithNoStorePassesAStoreFilter) {
  Store({{.id = 1, .store_id = 7}, {.id = 2}, {.id = 3, .store_id = 8}});
  EXPECT_EQ(Load({.store_id = 7}), 0);
  EXPECT_EQ(Shown(), (Ids{1, 2}));
}

TEST_F(DiscountListTest, LoadWithoutAFilterKeepsTheOldOne) {
  Store({{.id = 1, .store_id = 7}, {.id = 3, .store_id = 8}});
  ASSERT_EQ(Load({.store_id = 8}), 0);
  EXPECT_EQ(list_.Load(nullptr), 0);
  EXPECT_EQ(Shown(), Ids{3});
  EXPECT_EQ(list_.filter().store_id, 8u);
}

TEST_F(DiscountListTest, AFailingLoadTakesTheFilterOverAndEmptiesTheList) {
  Store({{.id = 1}});
  ASSERT_EQ(Load(), 0);
  std::filesystem::remove(folder_.File("discount.dat"));
  EXPECT_EQ(Load({.store_id = 8}), ERR_OPEN);
  EXPECT_EQ(Shown(), Ids{});
  EXPECT_EQ(list_.filter().store_id, 8u);
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(DiscountListTest, AnErrorInTheMiddleKeepsTheRecordsBeforeItSorted) {
  Bytes file = RawDiscountFile(3, {{.id = 1, .stamp = 5}, {.id = 2, .stamp = 9}, {.id = 3}});
  file.resize(file.size() - 200);
  folder_.Write("discount.dat", file);
  EXPECT_EQ(Load(), ERR_IO);
  EXPECT_EQ(Shown(), (Ids{2, 1}));
}

TEST_F(DiscountListTest, AddMakesTheFileAndItsFirstIdIsTwo) {
  DiscountFields fields = GoldenFields();
  EXPECT_FALSE(list_.HasFile());
  const auto added = list_.Add(0, 0, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(added->Id, 2);
  EXPECT_EQ(added->Stamp, kToday);
  EXPECT_EQ(File(), RawRecordFile(2, {StoredBytes(2, 0)}));
  EXPECT_TRUE(list_.HasFile());
  EXPECT_EQ(Shown(), Ids{2});
  EXPECT_EQ(*list_.First(), *added);
}

TEST_F(DiscountListTest, AddKeepsAGivenIdAndLeavesLastIdAlone) {
  Store({{.id = 100}});
  DiscountFields fields = GoldenFields();
  const auto added = list_.Add(3, 1, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(File(), RawRecordFile(100, {Raw({.id = 100}), StoredBytes(3, 1)}));
}

TEST_F(DiscountListTest, ASixtyCharacterNameIsStoredAsItsFirst49AndAZero) {
  DiscountFields fields;
  fields.name = std::string(48, 'n') + "MORE OF IT..";
  ASSERT_EQ(fields.name.size(), 60u);
  fields.product = std::string(50, 'p');
  fields.description = std::string(250, 'd');
  ASSERT_TRUE(list_.Add(0, 0, fields));
  const Bytes file = File();
  EXPECT_EQ(Bytes(file.begin() + 24, file.begin() + 374),
            Join({Padded(std::string(48, 'n') + "M", 50), Padded(std::string(49, 'p'), 50),
                  Padded(std::string(249, 'd'), 250)}));
}

TEST_F(DiscountListTest, AddShowsTheRecordOnlyWhenItPassesTheFilter) {
  Store({});
  ASSERT_EQ(Load({.store_id = 9}), 0);
  DiscountFields fields = GoldenFields();
  ASSERT_TRUE(list_.Add(0, 0, fields));
  EXPECT_EQ(Shown(), Ids{});
  fields.store->Id = 9;
  ASSERT_TRUE(list_.Add(0, 0, fields));
  EXPECT_EQ(Shown(), Ids{102});
}

TEST_F(DiscountListTest, AddInsertsBehindEqualStamps) {
  Store({{.id = 1, .stamp = kToday}, {.id = 2, .stamp = 5}, {.id = 3, .stamp = kToday + 1}});
  ASSERT_EQ(Load(), 0);
  DiscountFields fields;
  ASSERT_TRUE(list_.Add(0, 0, fields));
  EXPECT_EQ(Shown(), (Ids{3, 1, 101, 2}));
}

TEST_F(DiscountListTest, AddResolvesNewNamesAndGivesTheirIdsBack) {
  DiscountFields fields;
  fields.store = NameRef{0, "Corner Shop"};
  fields.category = NameRef{0, "Food"};
  const auto added = list_.Add(0, 0, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(fields.store->Id, 5000);
  EXPECT_EQ(added->StoreId, 5000u);
  EXPECT_EQ(added->CategoryId, 5000u);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({RawItem(5000, "Corner Shop")}));
}

TEST_F(DiscountListTest, MissingReferencesStoreZero) {
  DiscountFields fields;
  const auto added = list_.Add(0, 0, fields);
  ASSERT_TRUE(added);
  EXPECT_EQ(added->StoreId, 0u);
  EXPECT_EQ(added->CategoryId, 0u);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
}

TEST_F(DiscountListTest, AFailingNameListStopsTheSaveBeforeTheFileIsTouched) {
  DiscountFields fields;
  fields.store = NameRef{0, "Corner Shop"};
  {
    const test::WriteLimit full(20);
    EXPECT_FALSE(list_.Add(0, 0, fields));
  }
  EXPECT_FALSE(folder_.Read("discount.dat"));
  EXPECT_EQ(fields.store->Id, 0);
}

TEST_F(DiscountListTest, AFailingAppendLeavesFileAndListAsTheyWere) {
  Store({{.id = 1}});
  ASSERT_EQ(Load(), 0);
  const Bytes before = File();
  DiscountFields fields;
  {
    const test::WriteLimit full(600);
    EXPECT_FALSE(list_.Add(0, 0, fields));
  }
  EXPECT_EQ(File(), before);
  EXPECT_EQ(Shown(), Ids{1});
}

TEST_F(DiscountListTest, AnySourceIsStoredAndLoadedButOnlyOneAndTwoCount) {
  DiscountFields fields;
  for (const std::int16_t source : std::vector<std::int16_t>{0, 3, -7, 32767}) {
    ASSERT_TRUE(list_.Add(50, source, fields));
  }
  EXPECT_EQ(list_.MaxIds().source_1, 0);
  EXPECT_EQ(list_.MaxIds().source_2, 0);
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.size(), 4u);
  EXPECT_NE(list_.Find(50, 3), nullptr);
}

TEST_F(DiscountListTest, FindNeedsIdAndSource) {
  Store({{.id = 1, .source = 1, .name = "a"}, {.id = 1, .source = 2, .name = "b"}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Find(1, 2)->Name.view(), "b");
  EXPECT_EQ(list_.Find(1, 3), nullptr);
  EXPECT_EQ(list_.Find(2, 1), nullptr);
}

TEST_F(DiscountListTest, StoresWithDiscountsCountsTheRecordsShown) {
  folder_.Write("store.lst",
                RawListFile({RawItem(3, "Mega", 9), RawItem(5, "Mini"), RawItem(8, "Unused")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Store({{.id = 1, .store_id = 5},
         {.id = 2, .store_id = 3},
         {.id = 3, .store_id = 5},
         {.id = 4, .store_id = 77},  // not in the store list
         {.id = 5},
         {.id = 6, .store_id = 3, .deleted = 1},
         {.id = 7, .store_id = 0x80000005}});
  ASSERT_EQ(Load(), 0);
  NameList stores = list_.StoresWithDiscounts();
  ASSERT_EQ(stores.size(), 2u);
  EXPECT_EQ(stores.First()->Id, 3);
  EXPECT_EQ(stores.Find(3)->Count, 1);
  EXPECT_EQ(stores.Find(3)->Name.view(), "Mega");
  EXPECT_EQ(stores.Find(5)->Count, 2);
  EXPECT_EQ(database_.stores().Find(3)->Count, 9);  // a list of its own
  ASSERT_EQ(Load({.store_id = 3}), 0);
  EXPECT_EQ(list_.StoresWithDiscounts().size(), 1u);
}

TEST_F(DiscountListTest, CategoriesWithDiscountsCountsTheRecordsShown) {
  folder_.Write("category.lst", RawListFile({RawItem(3, "Food"), RawItem(5, "Soap")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Store({{.id = 1, .store_id = 3, .category_id = 5}, {.id = 2, .category_id = 5}});
  ASSERT_EQ(Load(), 0);
  const NameList categories = list_.CategoriesWithDiscounts();
  ASSERT_EQ(categories.size(), 1u);
  EXPECT_EQ(categories.Find(5)->Count, 2);
}

TEST_F(DiscountListTest, MaxIdsKeepsOneMaximumPerSource) {
  Store({{.id = 7, .source = 1},
         {.id = 3, .source = 1},
         {.id = 80, .source = 0},
         {.id = 12, .source = 2, .deleted = 1},
         {.id = -4, .source = 2},
         {.id = 90, .source = 3}});
  const MaxDiscountIds ids = list_.MaxIds();
  EXPECT_EQ(ids.source_1, 7);
  EXPECT_EQ(ids.source_2, 12);
}

}  // namespace
}  // namespace brovanta
