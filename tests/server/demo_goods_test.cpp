#include "server/demo_goods.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "server/text_rules.h"

namespace brovanta::server {
namespace {

constexpr Department kAll[] = {Department::kGroceries, Department::kHousehold,
                               Department::kElectronics};

TEST(DemoGoods, EveryGoodComesInThreeVarietiesAndTwoSizes) {
  for (const Department department : kAll) {
    EXPECT_GE(GoodsOf(department).size(), 40u);
    for (const Good& good : GoodsOf(department)) {
      EXPECT_EQ(std::count(good.varieties.begin(), good.varieties.end(), '|'), 2) << good.name;
      EXPECT_EQ(std::count(good.sizes.begin(), good.sizes.end(), '|'), 1) << good.name;
      EXPECT_GT(good.cents, 0) << good.name;
    }
  }
}

TEST(DemoGoods, WordsTravelToHandheldsUnchanged) {
  for (const Department department : kAll) {
    EXPECT_EQ(MakersOf(department).size(), 10u);
    for (const std::string_view maker : MakersOf(department)) {
      EXPECT_EQ(TextProblem(maker, {1, 49}), std::nullopt) << maker;
    }
    for (const Good& good : GoodsOf(department)) {
      for (const std::string_view words : {good.name, good.varieties, good.sizes}) {
        EXPECT_EQ(TextProblem(words, {1, 99}), std::nullopt) << words;
        EXPECT_EQ(words.find_first_of("<>\"'"), std::string_view::npos) << words;
      }
    }
  }
}

}  // namespace
}  // namespace brovanta::server
