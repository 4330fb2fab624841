// The results of a search: gathered as they come, kept by price.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "search/search_result_item.h"

namespace brovanta {

/// Results in ascending order of price, equal prices in the order in which they came (what is no
/// number stands last), once they have been sorted. A plain value.
class SearchResultList {
 public:
  /// In the order of the list; good until the list changes.
  [[nodiscard]] const std::vector<SearchResultItem>& items() const { return items_; }
  [[nodiscard]] std::size_t size() const { return items_.size(); }
  [[nodiscard]] bool empty() const { return items_.empty(); }
  void Clear() { items_.clear(); }

  /// Puts the items to the end, whatever they cost.
  void Append(std::vector<SearchResultItem> items);

  /// Brings the list into its order: the same as inserting the items one after the other.
  void SortByPrice();

  /// Gives the items the ids 1, 2, ... in the order of the list.
  void NumberItems();

  /// The first result with the id, nullptr when there is none; good until the list changes.
  [[nodiscard]] const SearchResultItem* Find(std::int32_t id) const;

  /// Takes the first result with the id out of the list. 0, or ERR_NOT_FOUND.
  [[nodiscard]] int Remove(std::int32_t id);

 private:
  std::vector<SearchResultItem> items_;
};

}  // namespace brovanta
