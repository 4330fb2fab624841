#include "server/demo_shops.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

namespace brovanta::server {
namespace {

const DemoShop& ShopOf(ShopManner manner) {
  return *std::find_if(DemoShops().begin(), DemoShops().end(),
                       [manner](const DemoShop& shop) { return shop.manner == manner; });
}

TEST(DemoShops, SixWorkInSixWays) {
  std::set<PageStyle> styles;
  std::set<std::string_view> names;
  std::set<std::string_view> folders;
  int working = 0;
  for (const DemoShop& shop : DemoShops()) {
    names.insert(shop.name);
    folders.insert(shop.folder);
    if (shop.manner == ShopManner::kSlow || shop.manner == ShopManner::kBroken) continue;
    styles.insert(shop.style);
    ++working;
  }
  EXPECT_EQ(working, 6);
  EXPECT_EQ(styles.size(), 6u);
  EXPECT_EQ(DemoShops().size(), 8u);
  EXPECT_EQ(names.size(), 8u);
  EXPECT_EQ(folders.size(), 8u);
}

TEST(DemoShops, SeveralWorkingShopsServeEachDepartment) {
  for (const auto department :
       {Department::kGroceries, Department::kHousehold, Department::kElectronics}) {
    EXPECT_GE(std::count_if(DemoShops().begin(), DemoShops().end(),
                            [department](const DemoShop& shop) {
                              return shop.Has(department) && shop.manner != ShopManner::kSlow &&
                                     shop.manner != ShopManner::kBroken;
                            }),
              4);
  }
}

TEST(DemoShops, EachSellsAboutFourFifthsOfItsDepartments) {
  for (const DemoShop& shop : DemoShops()) {
    int in_department = 0;
    int sold = 0;
    for (const Article& article : Articles()) {
      if (!shop.Has(article.department)) {
        EXPECT_FALSE(shop.Sells(article));
        continue;
      }
      ++in_department;
      sold += shop.Sells(article) ? 1 : 0;
    }
    EXPECT_GE(sold * 100, in_department * 70) << shop.name;
    EXPECT_LE(sold * 100, in_department * 90) << shop.name;
  }
}

TEST(DemoShops, PricesDifferByShopAndStayNearTheUsual) {
  for (const Article& article : Articles()) {
    std::set<int> prices;
    for (const DemoShop& shop : DemoShops()) {
      const ShopPrice price = PriceIn(shop, article);
      EXPECT_EQ(PriceIn(shop, article).regular, price.regular);
      EXPECT_GE(price.regular, article.cents * 80 / 100) << article.name;
      EXPECT_LE(price.regular, article.cents * 116 / 100 + 9) << article.name;
      prices.insert(price.regular);
    }
    EXPECT_GE(prices.size(), 2u) << article.name;
  }
}

TEST(DemoShops, NoTwoAskTheSameForAnything) {
  std::map<int, std::string_view> shop_of;
  for (const DemoShop& shop : DemoShops()) {
    for (const Article& article : Articles()) {
      const ShopPrice price = PriceIn(shop, article);
      for (const int cents : {price.regular, price.ToPay()}) {
        EXPECT_EQ(shop_of.emplace(cents, shop.name).first->second, shop.name) << cents;
      }
    }
  }
}

TEST(DemoShops, OnlyTheOutletHasOffersForAboutAThird) {
  for (const DemoShop& shop : DemoShops()) {
    int offers = 0;
    for (const Article& article : Articles()) {
      const ShopPrice price = PriceIn(shop, article);
      if (!price.offer) {
        EXPECT_EQ(price.ToPay(), price.regular);
        continue;
      }
      ++offers;
      EXPECT_LT(*price.offer, price.regular) << article.name;
      EXPECT_GT(*price.offer, 0);
      EXPECT_EQ(price.ToPay(), *price.offer);
    }
    const int articles = static_cast<int>(Articles().size());
    if (shop.style == PageStyle::kOffers) {
      EXPECT_GT(offers, articles / 4);
      EXPECT_LT(offers, articles / 2);
    } else {
      EXPECT_EQ(offers, 0) << shop.name;
    }
  }
}

TEST(DemoShops, TellWhetherAnArticleIsThere) {
  std::set<std::string> kinds;
  for (const Article& article : Articles()) kinds.insert(StockOf(DemoShops()[0], article));
  EXPECT_EQ(kinds, (std::set<std::string>{"In stock", "In the store only", "Only 3 left",
                                          "Ready tomorrow"}));
}

TEST(DemoShops, FindAllWordsElseAnyOfThem) {
  const DemoShop& shop = ShopOf(ShopManner::kLarge);
  const auto both = FindInShop(shop, Department::kGroceries, "whole MILK");
  ASSERT_FALSE(both.empty());
  for (const Article* article : both) {
    EXPECT_NE(article->name.find("Whole"), std::string::npos) << article->name;
    EXPECT_NE(article->name.find("Milk"), std::string::npos) << article->name;
  }
  EXPECT_EQ(FindInShop(shop, Department::kGroceries, "milk submarine"),
            FindInShop(shop, Department::kGroceries, "milk"));
  EXPECT_TRUE(FindInShop(shop, Department::kGroceries, "submarine").empty());
  EXPECT_TRUE(FindInShop(shop, Department::kElectronics, "yogurt").empty());
}

TEST(DemoShops, FindEverythingWithoutWords) {
  const DemoShop& shop = ShopOf(ShopManner::kLarge);
  const auto all = FindInShop(shop, std::nullopt, "");
  EXPECT_EQ(static_cast<std::ptrdiff_t>(all.size()),
            std::count_if(Articles().begin(), Articles().end(),
                          [&shop](const Article& article) { return shop.Sells(article); }));
  EXPECT_GT(all.size(), FindInShop(shop, Department::kHousehold, " ").size());
}

TEST(DemoShops, WritePricesWithTwoDecimals) {
  EXPECT_EQ(PriceText(9), "0.09");
  EXPECT_EQ(PriceText(129), "1.29");
  EXPECT_EQ(PriceText(99'999), "999.99");
  EXPECT_EQ(PriceText(99'999, true), "999.99");
  EXPECT_EQ(PriceText(129'900), "1299.00");
  EXPECT_EQ(PriceText(129'900, true), "1,299.00");
  EXPECT_EQ(PriceText(100'009, true), "1,000.09");
}

}  // namespace
}  // namespace brovanta::server
