// What the demonstration shops show: each builds its pages in its own way, as shops do.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/demo_shops.h"

namespace brovanta::server {

/// The markers with which an agent reads the result page of a style; an empty one is not used.
/// - kTable: rows whose attributes change, makers in bold, sizes behind "&nbsp;"
/// - kCards: nested blocks, each ended by a comment; links relative to the page
/// - kDefinitions: a definition list; "&amp;" in its links, prices behind "USD&nbsp;"
/// - kParagraphs: one paragraph each; links that are a query only, prices in front of the currency
/// - kList: a numbered list with whole addresses, prices with commas
/// - kOffers: articles with the link at the end and, now and then, a special price
struct ResultMarkers {
  std::string_view end_header;
  std::string_view start_result;
  std::string_view end_result;
  std::string_view start_item;
  std::string_view end_item;
  std::string_view start_text;
  std::string_view end_text;
  std::string_view start_url;
  std::string_view end_url;
  std::string_view start_price;
  std::string_view end_price;
  std::string_view start_promo;
  std::string_view end_promo;
};
[[nodiscard]] const ResultMarkers& MarkersOf(PageStyle style);

/// What an agent puts in front of the links of a shop; holds kServerToken.
[[nodiscard]] std::string SiteAddressOf(const DemoShop& shop);

/// A search as a page shows it.
struct Findings {
  std::optional<Department> department;
  std::string words;  ///< UTF-8, plain text
  std::vector<const Article*> articles;
  std::string host;  ///< for links with the whole address
};

/// The page of results, in UTF-8 also where the shop then sends it in Windows-1252.
[[nodiscard]] std::string ResultPage(const DemoShop& shop, const Findings& findings);

}  // namespace brovanta::server
