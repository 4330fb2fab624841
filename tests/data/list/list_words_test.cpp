#include "data/list/list_words.h"

#include <gmock/gmock.h>

#include <set>

#include "tests/data/list/list_samples.h"

namespace brovanta::data_tool {
namespace {

using namespace test_list;
using testing::ElementsAre;
using testing::IsEmpty;

ListLine Line(PriceState state) {
  ListLine line;
  line.price.state = state;
  return line;
}

TEST(ListWordsTest, TheTitleNamesPeriodAndStore) {
  ShoppingList list;
  list.period = "Nov 2026";
  EXPECT_EQ(TitleOf(list), "Shopping list, Nov 2026");
  list.store = "Corner Shop";
  EXPECT_EQ(TitleOf(list), "Shopping list, Nov 2026, Corner Shop");
}

TEST(ListWordsTest, DaysAreWrittenAsThePeriodIs) {
  const AtNoon noon;
  EXPECT_EQ(DayText(kToday), "Nov 21, 2026");
  EXPECT_EQ(DayText(kNoDate), "Unknown date");
}

TEST(ListWordsTest, APricedLineNeedsNoWords) {
  EXPECT_THAT(RemarksOf(Line(PriceState::kPriced)), IsEmpty());
}

TEST(ListWordsTest, RemarksStandInTheirOrder) {
  ListLine line = Line(PriceState::kPriced);
  line.overdue = true;
  line.notes = "fresh";
  line.price.tax_state = TaxState::kNegative;
  line.price.coupons = {{"Half", CouponState::kTaken, 50},
                        {"Back", CouponState::kRebate, 400},
                        {"", CouponState::kGone, 0}};
  EXPECT_THAT(RemarksOf(line),
              ElementsAre("overdue", "without tax: its rate is below zero", "Half: -0.50",
                          "Back: 4.00 back by mail", "A coupon: not there any more", "fresh"));
}

TEST(ListWordsTest, EveryReasonHasWordsOfItsOwn) {
  std::set<std::string> words;
  const auto add = [&](const ListLine& line) {
    const auto remarks = RemarksOf(line);
    ASSERT_EQ(remarks.size(), 1U);
    EXPECT_TRUE(words.insert(remarks[0]).second) << remarks[0];
  };
  for (const PriceState state :
       {PriceState::kNoPrice, PriceState::kPriceNoNumber, PriceState::kPriceNegative,
        PriceState::kQuantityNoNumber, PriceState::kQuantityNegative, PriceState::kTooLarge}) {
    add(Line(state));
  }
  for (const TaxState state : {TaxState::kNoNumber, TaxState::kNegative, TaxState::kTooLarge}) {
    ListLine line = Line(PriceState::kPriced);
    line.price.tax_state = state;
    add(line);
  }
  for (int state = 0; state <= static_cast<int>(CouponState::kNoPrice); ++state) {
    ListLine line = Line(PriceState::kPriced);
    line.price.coupons = {{"Coupon", static_cast<CouponState>(state), 1}};
    add(line);
  }
  EXPECT_EQ(words.count("Coupon: "), 0U);
}

TEST(ListWordsTest, CountsWhatHasNoPrice) {
  EXPECT_EQ(WithoutPriceWords(0), "");
  EXPECT_EQ(WithoutPriceWords(1), "1 product without a price is in no sum.");
  EXPECT_EQ(WithoutPriceWords(2), "2 products without a price are in no sum.");
}

}  // namespace
}  // namespace brovanta::data_tool
