// Update, Mark and Read: what happens to a record that is there.
#include <gtest/gtest.h>

#include "db/error_codes.h"
#include "platform/file.h"
#include "tests/db/discount_list_fixture.h"
#include "tests/support/write_limit.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::Ids;
using test::Raw;
using test::RawDiscountFile;
using test::RawListFile;
using test::RawRecordFile;

using DiscountChangeTest = test::DiscountListFixture;

TEST_F(DiscountChangeTest, UpdateWritesOverTheRecordWithBothFlagsZero) {
  Store({{.id = 1}, {.id = 2, .source = 1, .flagged = 1}, {.id = 2, .source = 2}});
  ASSERT_EQ(Load(), 0);
  DiscountFields fields = GoldenFields();
  const auto updated = list_.Update(2, 1, fields);
  ASSERT_TRUE(updated);
  EXPECT_EQ(File(),
            RawRecordFile(100, {Raw({.id = 1}), StoredBytes(2, 1), Raw({.id = 2, .source = 2})}));
  EXPECT_EQ(list_.First()->Source, 1);  // newest now
  EXPECT_EQ(*list_.First(), *updated);
  EXPECT_EQ(list_.size(), 3u);
}

TEST_F(DiscountChangeTest, UpdateTakesARecordThatNoLongerPassesOutOfTheList) {
  Store({{.id = 1, .store_id = 9}, {.id = 2, .store_id = 9}});
  ASSERT_EQ(Load({.store_id = 9}), 0);
  DiscountFields fields = GoldenFields();
  ASSERT_TRUE(list_.Update(1, 0, fields));
  EXPECT_EQ(Shown(), Ids{2});
}

TEST_F(DiscountChangeTest, UpdateOfAnAbsentRecordCreatesNoName) {
  Store({{.id = 1}});
  const Bytes before = File();
  DiscountFields fields;
  fields.store = NameRef{0, "Corner Shop"};
  EXPECT_FALSE(list_.Update(1, 1, fields));
  EXPECT_EQ(fields.store->Id, 0);
  EXPECT_EQ(folder_.Read("store.lst"), RawListFile({}));
  EXPECT_EQ(File(), before);
}

TEST_F(DiscountChangeTest, UpdateStopsWhenANameCannotBeSaved) {
  Store({{.id = 1}});
  const Bytes before = File();
  DiscountFields fields;
  fields.category = NameRef{0, "Food"};
  const test::WriteLimit full(20);
  EXPECT_FALSE(list_.Update(1, 0, fields));
  EXPECT_EQ(File(), before);
}

TEST_F(DiscountChangeTest, AFailingUpdateLeavesFileAndListAsTheyWere) {
  Store({{.id = 1}, {.id = 2}});
  ASSERT_EQ(Load(), 0);
  const Bytes before = File();
  DiscountFields fields = GoldenFields();
  {
    const test::WriteLimit full(500);
    EXPECT_FALSE(list_.Update(2, 0, fields));
  }
  EXPECT_EQ(File(), before);
  EXPECT_EQ(list_.Find(2, 0)->Name.view(), "Soap");
}

TEST_F(DiscountChangeTest, UpdateRevivesADeletedRecordOnlyWhenNoLiveOneIsLeft) {
  Store({{.id = 1, .name = "gone", .deleted = 1}, {.id = 1, .name = "live"}});
  ASSERT_EQ(Load(), 0);
  DiscountFields fields = GoldenFields();
  ASSERT_TRUE(list_.Update(1, 0, fields));
  EXPECT_EQ(File(),
            RawRecordFile(100, {Raw({.id = 1, .name = "gone", .deleted = 1}), StoredBytes(1, 0)}));
  EXPECT_EQ(list_.size(), 1u);
  Store({{.id = 1, .deleted = 1}});
  ASSERT_EQ(Load(), 0);
  ASSERT_TRUE(list_.Update(1, 0, fields));
  EXPECT_EQ(File(), RawRecordFile(100, {StoredBytes(1, 0)}));
  EXPECT_EQ(list_.size(), 1u);
}

TEST_F(DiscountChangeTest, DeletingSetsOneByteAndLeavesTheFileLength) {
  Store({{.id = 1}, {.id = 2, .source = 1}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Mark(2, 1, kMarkDeleted), 2);
  EXPECT_EQ(File(), RawDiscountFile(100, {{.id = 1}, {.id = 2, .source = 1, .deleted = 1}}));
  EXPECT_EQ(Shown(), Ids{1});
}

TEST_F(DiscountChangeTest, DeletingDoesNotTakeARecordOutOfTheMaxIdScan) {
  Store({{.id = 7, .source = 1}, {.id = 9, .source = 1}, {.id = 4, .source = 2}});
  EXPECT_EQ(list_.Mark(9, 1, kMarkDeleted), 9);
  EXPECT_EQ(list_.MaxIds().source_1, 9);
  EXPECT_EQ(list_.MaxIds().source_2, 4);
}

TEST_F(DiscountChangeTest, FlaggingSetsOneByteInFileAndListAndKeepsTheStamp) {
  Store({{.id = 1, .stamp = 5}, {.id = 2, .stamp = 4}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Mark(2, 0, kMarkFlagged), 2);
  EXPECT_EQ(File(),
            RawDiscountFile(100, {{.id = 1, .stamp = 5}, {.id = 2, .stamp = 4, .flagged = 1}}));
  EXPECT_EQ(Shown(), (Ids{1, 2}));
  EXPECT_EQ(list_.Find(2, 0)->Flagged, 1);
  EXPECT_EQ(list_.Find(1, 0)->Flagged, 0);
}

TEST_F(DiscountChangeTest, MarkingWhatIsNotShownStillChangesTheFile) {
  Store({{.id = 1, .store_id = 3}});
  ASSERT_EQ(Load({.store_id = 4}), 0);
  EXPECT_EQ(list_.Mark(1, 0, kMarkFlagged), 1);
  EXPECT_EQ(list_.Mark(1, 0, kMarkDeleted), 1);
  EXPECT_EQ(File(), RawDiscountFile(100, {{.id = 1, .store_id = 3, .flagged = 1, .deleted = 1}}));
}

TEST_F(DiscountChangeTest, AnUnknownActionChangesNothing) {
  Store({{.id = 1}});
  ASSERT_EQ(Load(), 0);
  const Bytes before = File();
  EXPECT_EQ(list_.Mark(1, 0, 0), 1);
  EXPECT_EQ(list_.Mark(1, 0, 3), 1);
  EXPECT_EQ(File(), before);
  EXPECT_EQ(Shown(), Ids{1});
}

TEST_F(DiscountChangeTest, MarkOfAnAbsentKeyIsNotFound) {
  Store({{.id = 1, .source = 1}});
  EXPECT_EQ(list_.Mark(1, 2, kMarkDeleted), ERR_NOT_FOUND);
  EXPECT_EQ(list_.Mark(2, 1, kMarkFlagged), ERR_NOT_FOUND);
}

TEST_F(DiscountChangeTest, AFailingMarkLeavesFileAndListAsTheyWere) {
  Store({{.id = 1}});
  ASSERT_EQ(Load(), 0);
  const Bytes before = File();
  {
    const test::WriteLimit full(100);
    EXPECT_EQ(list_.Mark(1, 0, kMarkDeleted), ERR_IO);
  }
  EXPECT_EQ(File(), before);
  EXPECT_EQ(Shown(), Ids{1});
}

TEST_F(DiscountChangeTest, BothCopiesOfADoubleKeyCanBeDeletedOneAfterTheOther) {
  Store({{.id = 1, .name = "first", .stamp = 5}, {.id = 1, .name = "second", .stamp = 9}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Mark(1, 0, kMarkDeleted), 1);
  ASSERT_EQ(list_.size(), 1u);
  EXPECT_EQ(list_.First()->Name.view(), "second");  // what is gone from the list is gone on disk
  EXPECT_EQ(list_.Mark(1, 0, kMarkDeleted), 1);
  EXPECT_EQ(Shown(), Ids{});
  EXPECT_EQ(File(), RawDiscountFile(100, {{.id = 1, .name = "first", .stamp = 5, .deleted = 1},
                                          {.id = 1, .name = "second", .stamp = 9, .deleted = 1}}));
}

TEST_F(DiscountChangeTest, TheOneToChangeIsTheFirstLiveOneOfTheFile) {
  Store({{.id = 1, .name = "gone", .stamp = 3, .deleted = 1},
         {.id = 1, .name = "first", .stamp = 5},
         {.id = 1, .name = "second", .stamp = 9},
         {.id = 2, .name = "other", .stamp = 7}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Find(1, 0)->Name.view(), "second");
  EXPECT_EQ(list_.FindToChange(1, 0)->Name.view(), "first");
  EXPECT_EQ(list_.FindToChange(2, 0)->Name.view(), "other");
  EXPECT_EQ(list_.FindToChange(1, 1), std::nullopt);
  ASSERT_TRUE(platform::RemoveFile(folder_.File("discount.dat")));
  EXPECT_EQ(list_.FindToChange(1, 0)->Name.view(), "second");  // as the list has it
  EXPECT_EQ(list_.FindToChange(3, 0), std::nullopt);
}

TEST_F(DiscountChangeTest, ReadTakesARecordFromTheFileDeletedOnesIncluded) {
  folder_.Write("discount.dat", RawRecordFile(2, {test::GoldenDiscountBytes()}));
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(list_.Read(0x01020304, 2), test::GoldenDiscount());
  EXPECT_EQ(list_.Find(0x01020304, 2), nullptr);
  EXPECT_EQ(list_.Read(0x01020304, 1), std::nullopt);
}

}  // namespace
}  // namespace brovanta
