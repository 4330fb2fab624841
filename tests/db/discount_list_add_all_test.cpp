// Many discounts in one unit of work, with the result of adding them one by one.
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "platform/file.h"
#include "platform/system_calls.h"
#include "tests/db/discount_list_fixture.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/write_limit.h"

namespace brovanta::test {
namespace {

NewDiscount Coupon(std::int32_t id, std::int16_t source, std::int32_t store,
                   std::int32_t category) {
  NewDiscount coupon{id, source, {}};
  coupon.fields.name = "Coupon " + std::to_string(id);
  coupon.fields.value_type = 2;
  coupon.fields.store = NameRef{store, ""};
  coupon.fields.category = NameRef{category, ""};
  return coupon;
}

class DiscountAddAllTest : public DiscountListFixture {
 protected:
  std::size_t AddAll(std::vector<NewDiscount> discounts) { return list_.AddAll(discounts); }
  [[nodiscard]] Bytes ListFile(std::string_view name) const {
    return folder_.Read(name).value_or(Bytes{});
  }
};

TEST_F(DiscountAddAllTest, RecordsStandOneBehindTheOther) {
  std::vector<NewDiscount> discounts{{12, 1, GoldenFields()}, {13, 2, GoldenFields()}};
  EXPECT_EQ(list_.AddAll(discounts), 2U);
  EXPECT_EQ(File(), Join({FileMagic(), Hex("01 00 00 00"), RecordMark(), StoredBytes(12, 1),
                          RecordMark(), StoredBytes(13, 2), EndMark()}));
  EXPECT_EQ(Shown(), (Ids{12, 13}));
}

TEST_F(DiscountAddAllTest, IdsOfTheFileAreGivenToThoseWithout) {
  Store({{.id = 50}});
  std::vector<NewDiscount> discounts{
      {0, 0, GoldenFields()}, {9, 1, GoldenFields()}, {0, 0, GoldenFields()}};
  EXPECT_EQ(list_.AddAll(discounts), 3U);
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(Shown(), (Ids{101, 9, 102, 50}));
}

TEST_F(DiscountAddAllTest, NothingToAddMakesNoFile) {
  EXPECT_EQ(AddAll({}), 0U);
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(DiscountAddAllTest, OnlyThosePassingTheFilterAreShown) {
  DiscountFilter filter;
  filter.text = "12";
  ASSERT_EQ(Load(filter), -11);  // no file yet
  EXPECT_EQ(AddAll({Coupon(11, 1, 7, 7), Coupon(12, 1, 7, 7)}), 2U);
  EXPECT_EQ(Shown(), Ids{12});
}

TEST_F(DiscountAddAllTest, ShownInFrontOfOlderAndBehindEqual) {
  Store(
      {{.id = 1, .stamp = kToday}, {.id = 2, .stamp = kToday - 1}, {.id = 3, .stamp = kToday + 1}});
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(AddAll({Coupon(11, 1, 7, 7), Coupon(12, 1, 7, 7)}), 2U);
  EXPECT_EQ(Shown(), (Ids{3, 1, 11, 12, 2}));
}

TEST_F(DiscountAddAllTest, SameAsOneByOne) {
  std::mt19937 random(5);
  for (int round = 0; round < 8; ++round) {
    std::vector<NewDiscount> discounts;
    for (int i = 0; i < 12; ++i) {
      discounts.push_back(
          Coupon(static_cast<std::int32_t>(random() % 20), static_cast<std::int16_t>(random() % 4),
                 static_cast<std::int32_t>(random() % 3), static_cast<std::int32_t>(random() % 3)));
      if (random() % 4 == 0) discounts.back().fields.store.reset();
    }
    DiscountFilter filter;
    filter.store_id = static_cast<std::uint32_t>(random() % 3);

    const TempFolder other;
    for (const char* name : {"store.lst", "category.lst", "unit.lst"}) {
      other.Write(name, ListFile(name));
    }
    if (const auto old = folder_.Read("discount.dat")) other.Write("discount.dat", *old);
    ShoppingDatabase one_by_one;
    ASSERT_EQ(one_by_one.Open(other.path()), 0);
    (void)one_by_one.discounts().Load(&filter);
    std::vector<NewDiscount> singly = discounts;
    for (NewDiscount& discount : singly) {
      ASSERT_TRUE(one_by_one.discounts().Add(discount.id, discount.source, discount.fields));
    }

    (void)list_.Load(&filter);
    ASSERT_EQ(list_.AddAll(discounts), discounts.size());
    for (const char* name : {"store.lst", "category.lst", "discount.dat"}) {
      EXPECT_EQ(folder_.Read(name), other.Read(name)) << name << " in round " << round;
    }
    Ids expected;
    for (const auto* record = one_by_one.discounts().First(); record != nullptr;
         record = one_by_one.discounts().Next()) {
      expected.push_back(record->Id);
    }
    EXPECT_EQ(Shown(), expected) << "round " << round;
  }
}

TEST_F(DiscountAddAllTest, DamagedFileTakesNoneAndStays) {
  for (const Bytes& damaged : {Hex("00 11 22 33 44 55 66 77 88 99 AA BB"), Bytes{},
                               Join({FileMagic(), Word(1), Word(0)})}) {
    folder_.Write("discount.dat", damaged);
    EXPECT_EQ(AddAll({Coupon(1, 1, 0, 0)}), 0U);
    EXPECT_EQ(File(), damaged);
    EXPECT_EQ(ListFile("store.lst"), RawListFile({})) << "no name for a record that is not there";
    EXPECT_TRUE(database_.stores().empty());
  }
}

TEST_F(DiscountAddAllTest, FullDiskTakesNoneOfThem) {
  Store({{.id = 1}});
  ASSERT_EQ(Load(), 0);
  const Bytes before = File();
  {
    const WriteLimit limit(static_cast<std::int64_t>(before.size()) + 1000);
    EXPECT_EQ(AddAll({Coupon(1, 1, 7, 7), Coupon(2, 1, 7, 7), Coupon(3, 1, 7, 7)}), 0U);
  }
  EXPECT_EQ(File(), before);
  EXPECT_EQ(Shown(), Ids{1});
  EXPECT_EQ(AddAll({Coupon(2, 1, 7, 7)}), 1U);
}

TEST_F(DiscountAddAllTest, ListThatCannotBeWrittenCostsOnlyThoseThatNeedIt) {
  const Bytes stores = RawListFile({RawItem(7, "Corner Shop")});
  folder_.Write("store.lst", stores);
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  platform::File holder;
  ASSERT_TRUE(holder.Open(folder_.File("store.lst"), platform::File::Mode::kRead));
  EXPECT_EQ(
      AddAll({Coupon(1, 1, 7, 7), Coupon(2, 1, 0, 7), Coupon(3, 1, 7, 0), Coupon(4, 1, 0, 0)}), 2U);
  ASSERT_EQ(Load(), 0);
  EXPECT_EQ(Shown(), (Ids{1, 3}));
  EXPECT_EQ(database_.stores().size(), 1U);
  EXPECT_EQ(ListFile("category.lst"), RawListFile({RawItem(5000, "")}));
}

// Whoever is added lifts the largest id, and the server is asked for higher ones only.
TEST_F(DiscountAddAllTest, OneFailureOfTheSystemLosesNoneOfThem) {
  const std::vector<NewDiscount> mixed{Coupon(1, 1, 0, 7), Coupon(2, 1, 7, 7), Coupon(3, 1, 7, 0)};
  for (const Fault fault : {Fault::kIo, Fault::kNoSpace}) {
    for (int at = 1;; ++at) {
      for (const char* name : {"store.lst", "category.lst"}) folder_.Write(name, RawListFile({}));
      folder_.Write("discount.dat", RawDiscountFile(100, {{.id = 50}}));
      ASSERT_EQ(database_.Open(folder_.path()), 0);
      const Bytes before = File();
      FaultyCalls calls(fault, at);
      std::size_t added = 0;
      {
        const platform::SystemCallsInUse in_use(calls);
        added = AddAll(mixed);
      }
      ASSERT_EQ(database_.RollBack(), 0);
      if (added == 0) {
        ASSERT_EQ(File(), before) << at;
        ASSERT_EQ(AddAll(mixed), 3U) << at;
      }
      ASSERT_TRUE(added == 0 || added == 3) << added << " of 3, call " << at;
      ASSERT_EQ(list_.MaxIds().source_1, 3);
      ASSERT_EQ(ListFile("store.lst"), RawListFile({RawItem(5000, "")})) << at;
      if (!calls.has_struck()) {
        EXPECT_EQ(added, 3U);
        break;
      }
    }
  }
}

TEST_F(DiscountAddAllTest, AJournalThatSomeoneHoldsTakesNone) {
  platform::File holder;
  folder_.Write("backup.dat", {});
  ASSERT_TRUE(holder.Open(folder_.File("backup.dat"), platform::File::Mode::kRead));
  EXPECT_EQ(AddAll({Coupon(1, 1, 0, 7), Coupon(2, 1, 7, 7)}), 0U);
  EXPECT_FALSE(folder_.Read("discount.dat"));
}

TEST_F(DiscountAddAllTest, WithoutIdsLeftTheOthersAreAdded) {
  ListItem last;
  last.Id = std::numeric_limits<std::int32_t>::max();
  database_.categories().Insert(last);
  ASSERT_EQ(database_.categories().Save(database_.paths().category), 0);
  EXPECT_EQ(AddAll({Coupon(1, 1, 7, 7), Coupon(2, 1, 0, 0), Coupon(3, 1, 7, 7)}), 2U);
  EXPECT_EQ(Shown(), (Ids{1, 3}));
  // As one by one: the store was named before the category failed.
  EXPECT_EQ(ListFile("store.lst"), RawListFile({RawItem(5000, "")}));
}

}  // namespace
}  // namespace brovanta::test
