// The shops of the demonstration: who they are, what they sell and what they charge.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "server/demo_range.h"

namespace brovanta::server {

/// How a shop's result page is built; demo_result_page.h describes each.
enum class PageStyle { kTable, kCards, kDefinitions, kParagraphs, kList, kOffers };

/// What is peculiar about how a shop answers a search.
enum class ShopManner {
  kPlain,
  kLarge,      ///< with more behind the results than a handheld reads
  kRedirects,  ///< sends the client to another address first
  kSlow,       ///< keeps the client waiting
  kBroken,     ///< groceries: an error; household: garbage; electronics: a page cut in two
};

struct DemoShop {
  std::uint32_t number = 0;  ///< from 1 on
  std::string_view name;
  std::string_view folder;  ///< all its addresses begin with "/demo/", this and "/"
  std::string_view accent;  ///< its color in CSS
  PageStyle style = PageStyle::kTable;
  ShopManner manner = ShopManner::kPlain;
  int price_level = 100;         ///< percent of what things usually cost
  int last_digit = 9;            ///< in which its prices end, and those of no other shop
  std::string_view departments;  ///< their numbers, as "13"
  bool narrow = false;           ///< pages in Windows-1252 rather than UTF-8

  [[nodiscard]] bool Has(Department department) const;
  /// Whether it has the article in its range: about four fifths of each of its departments.
  [[nodiscard]] bool Sells(const Article& article) const;
};

/// Six that work, a slow one and a broken one.
[[nodiscard]] std::span<const DemoShop> DemoShops();

/// What an article costs in a shop, in cents: never what anything costs in another one, so that
/// what is found in several has one order by price, whoever answers first. Tells the regular price;
/// `offer` is lower and only there in the shop of special offers, for about a third of its
/// articles.
struct ShopPrice {
  int regular = 0;
  std::optional<int> offer;

  [[nodiscard]] int ToPay() const { return offer.value_or(regular); }
};
[[nodiscard]] ShopPrice PriceIn(const DemoShop& shop, const Article& article);

/// "In stock", "Only 3 left" or the like.
[[nodiscard]] std::string StockOf(const DemoShop& shop, const Article& article);

/// What a shop finds for the words, in the department or, without one, in all of them: articles
/// with all of the words; when there are none, those with any; without a word everything.
[[nodiscard]] std::vector<const Article*> FindInShop(const DemoShop& shop,
                                                     std::optional<Department> department,
                                                     std::string_view words);

/// "1299.00" or, with `grouped`, "1,299.00".
[[nodiscard]] std::string PriceText(int cents, bool grouped = false);

}  // namespace brovanta::server
