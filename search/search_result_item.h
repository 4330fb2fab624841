// One thing that a shop has for the search words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brovanta {

/// A result as a shop's page gave it and as a results file keeps it. The texts are the page's
/// bytes, cleaned; one that is missing is not the same as an empty one, and a results file keeps
/// the difference. A scraped item has all but perhaps Text.
struct SearchResultItem {
  std::int32_t Id = 0;  ///< unique within its results file, from 1; 0 for a newly scraped item
  std::optional<std::string> Title;
  std::optional<std::string> Text;  ///< the description
  std::optional<std::string> Url;
  std::optional<std::string> SiteName;
  double Price = 0.0;       ///< 0.0 or less: none was found
  std::int16_t Status = 0;  ///< carried along as it is; 0 for a newly scraped item

  friend bool operator==(const SearchResultItem&, const SearchResultItem&) = default;
};

}  // namespace brovanta
