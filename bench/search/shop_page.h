// The pages that the search benchmarks work on, made by rule and always the same.
#pragma once

#include <cstddef>
#include <string>

#include "search/web_agent.h"

namespace brovanta::bench {

/// The largest page that the program keeps whole, and the things on it.
inline constexpr std::size_t kPageBytes = 319'999;
inline constexpr std::size_t kItems = 200;

/// The word that every title has.
inline constexpr const char* kWord = "shoe";

/// A shop's result page of exactly so many bytes: a head with a menu, then the items, each with
/// pictures, a rating, a title, a text, a price, every third one with a promotion. There must be
/// room for about 1,100 bytes for each item.
[[nodiscard]] std::string ShopPage(std::size_t bytes, std::size_t items);

/// The agent that reads it; its markers have no wildcards.
[[nodiscard]] WebAgent ShopAgent();

/// A page without any item, on which a marker of the form "<td*>!" begins everywhere, goes on
/// everywhere and ends nowhere.
[[nodiscard]] std::string EndlessPage(std::size_t bytes);

}  // namespace brovanta::bench
