// DiscountList::ReadLinked: the discount behind a product's slot.
#include <gtest/gtest.h>

#include "db/discount_list.h"
#include "tests/db/discount_list_fixture.h"

namespace brovanta {
namespace {

class ReadLinkedTest : public test::DiscountListFixture {};

TEST_F(ReadLinkedTest, ReadsTheFileAndNotTheList) {
  Store({{.id = 5, .source = 1, .name = "coupon"}, {.id = 5, .source = 2, .name = "deal"}});
  EXPECT_EQ(list_.size(), 0U);
  EXPECT_EQ(list_.ReadLinked({5, 1, 1})->Name.view(), "coupon");
  EXPECT_EQ(list_.ReadLinked({5, 2, 1})->Name.view(), "deal");
  EXPECT_EQ(list_.size(), 0U);
}

TEST_F(ReadLinkedTest, TheKeyDecidesAndTheTypeDoesNot) {
  Store({{.id = 5, .source = 1, .name = "coupon", .type = 3}});
  for (const std::int16_t type :
       {std::int16_t{1}, std::int16_t{6}, std::int16_t{101}, std::int16_t{32767}}) {
    EXPECT_EQ(list_.ReadLinked({5, 1, type})->Name.view(), "coupon") << type;
  }
}

TEST_F(ReadLinkedTest, ADeletedOneIsGone) {
  Store({{.id = 5, .source = 1, .name = "gone", .deleted = 1}});
  EXPECT_EQ(list_.ReadLinked({5, 1, 1}), std::nullopt);
}

TEST_F(ReadLinkedTest, ALiveCopyBehindADeletedOneIsFound) {
  Store({{.id = 5, .source = 1, .name = "gone", .deleted = 1},
         {.id = 5, .source = 1, .name = "live"}});
  EXPECT_EQ(list_.ReadLinked({5, 1, 1})->Name.view(), "live");
}

TEST_F(ReadLinkedTest, ASlotFilledByTheSearchFindsTheFirstLiveOneOfItsType) {
  Store({{.id = 5, .source = 1, .name = "other type", .type = 2},
         {.id = 5, .source = 1, .name = "gone", .type = 3, .deleted = 1},
         {.id = 5, .source = 2, .name = "deal", .type = 3},
         {.id = 5, .source = 1, .name = "later", .type = 3}});
  EXPECT_EQ(list_.ReadLinked({5, 0, 103})->Name.view(), "deal");
}

TEST_F(ReadLinkedTest, TheExactKeyComesFirst) {
  Store({{.id = 5, .source = 1, .name = "coupon", .type = 3}, {.id = 5, .name = "own", .type = 1}});
  EXPECT_EQ(list_.ReadLinked({5, 0, 103})->Name.view(), "own");
}

TEST_F(ReadLinkedTest, OtherSlotsHaveNoSecondChance) {
  Store({{.id = 5, .source = 1, .name = "coupon", .type = 3}});
  EXPECT_EQ(list_.ReadLinked({5, 0, 3}), std::nullopt);    // picked, not found
  EXPECT_EQ(list_.ReadLinked({5, 0, 100}), std::nullopt);  // 100 is not above 100
  EXPECT_EQ(list_.ReadLinked({5, 2, 103}), std::nullopt);  // a source of its own
  EXPECT_EQ(list_.ReadLinked({6, 0, 103}), std::nullopt);
}

TEST_F(ReadLinkedTest, ATypeBelowOneIsAnEmptySlot) {
  Store({{.id = 5, .name = "own", .type = -5}});
  EXPECT_EQ(list_.ReadLinked({5, 0, 0}), std::nullopt);
  EXPECT_EQ(list_.ReadLinked({5, 0, -5}), std::nullopt);
  EXPECT_EQ(list_.ReadLinked({5, 0, -32768}), std::nullopt);
}

TEST_F(ReadLinkedTest, AFileThatIsMissingOrDamagedHasNone) {
  EXPECT_EQ(list_.ReadLinked({5, 0, 1}), std::nullopt);
  folder_.Write("discount.dat", test::Hex("00 00 00 00"));
  EXPECT_EQ(list_.ReadLinked({5, 0, 1}), std::nullopt);
}

TEST_F(ReadLinkedTest, DamageBehindTheRecordDoesNotHideIt) {
  Store({{.id = 5, .source = 1, .name = "coupon", .type = 3}});
  test::Bytes bytes = File();
  bytes.resize(bytes.size() - 4);
  folder_.Write("discount.dat", bytes);
  EXPECT_EQ(list_.ReadLinked({5, 1, 3})->Name.view(), "coupon");
  EXPECT_EQ(list_.ReadLinked({5, 0, 103})->Name.view(), "coupon");
}

}  // namespace
}  // namespace brovanta
