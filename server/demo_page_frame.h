// What all pages of a demonstration shop have in common: its head with the search box, and its
// look.
#pragma once

#include <optional>
#include <string>

#include "server/demo_shops.h"

namespace brovanta::server {

/// "/demo/", the shop's folder and "/".
[[nodiscard]] std::string ShopPath(const DemoShop& shop);

struct FrameText {
  std::string title;                     ///< plain text, in UTF-8 as all of this
  std::optional<Department> department;  ///< in which the search box searches; all without one
  std::string words;                     ///< plain text, for the search box
};

/// A whole page in UTF-8 around `body`, which is HTML. It fits a phone and fetches nothing.
[[nodiscard]] std::string ShopFrame(const DemoShop& shop, const FrameText& text,
                                    const std::string& body);

/// The page of one article in a shop.
[[nodiscard]] std::string ArticlePage(const DemoShop& shop, const Article& article);

/// The list of all shops with links to their searches.
[[nodiscard]] std::string ShopsPage();

}  // namespace brovanta::server
