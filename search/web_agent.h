// The web search's categories and shops as the agent configuration describes them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brovanta {

/// A search category.
struct WebAgentType {
  std::int32_t TypeId = 0;  ///< at least 1
  std::string TypeName;
};

/// One shop: how its query address is built and which markers cut its page into items. The texts
/// are the very bytes of the configuration; one that it does not give is missing, which is not the
/// same as empty. What a running search needs besides belongs to that search.
struct WebAgent {
  std::int32_t SiteId = 0;              ///< at least 1
  std::optional<std::string> SiteType;  ///< the categories it serves: numbers, commas, blanks
  std::optional<std::string> SiteName;
  std::optional<std::string> SiteAddress;
  std::optional<std::string> FormatString;  ///< query address, " KEYWORD " for the search words
  std::optional<std::string> EndHeader;     ///< ends the page's header; may be missing
  std::optional<std::string> StartResult;   ///< around one found item
  std::optional<std::string> EndResult;
  std::optional<std::string> StartItem;  ///< around an item's title
  std::optional<std::string> EndItem;
  std::optional<std::string> StartText;  ///< around its description; may be missing
  std::optional<std::string> EndText;
  std::optional<std::string> StartURL;  ///< around its link
  std::optional<std::string> EndURL;
  std::optional<std::string> StartPrice;  ///< around its price; may be missing
  std::optional<std::string> EndPrice;
  std::optional<std::string> StartPromo;  ///< around its promotion; may be missing
  std::optional<std::string> EndPromo;

  /// Whether the agent searches in a category: the number's first occurrence in SiteType is
  /// followed, right behind its first digit, by a blank, a comma or the end. Kept: what stands in
  /// front is not looked at, and a number of two digits never matches; configurations use one.
  [[nodiscard]] bool Serves(std::int32_t category) const;

  /// Whether everything is there that an agent cannot do without.
  [[nodiscard]] bool IsComplete() const;
};

}  // namespace brovanta
