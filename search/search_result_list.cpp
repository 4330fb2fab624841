#include "search/search_result_list.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "db/error_codes.h"

namespace brovanta {
namespace {

// An order of all doubles, as sorting needs one: what is no number behind everything else.
bool IsCheaper(const SearchResultItem& left, const SearchResultItem& right) {
  if (std::isnan(left.Price) || std::isnan(right.Price)) {
    return !std::isnan(left.Price) && std::isnan(right.Price);
  }
  return left.Price < right.Price;
}

}  // namespace

void SearchResultList::Append(std::vector<SearchResultItem> items) {
  items_.insert(items_.end(), std::make_move_iterator(items.begin()),
                std::make_move_iterator(items.end()));
}

void SearchResultList::SortByPrice() { std::stable_sort(items_.begin(), items_.end(), IsCheaper); }

void SearchResultList::NumberItems() {
  std::int32_t id = 0;
  for (SearchResultItem& item : items_) item.Id = ++id;
}

const SearchResultItem* SearchResultList::Find(std::int32_t id) const {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [id](const SearchResultItem& item) { return item.Id == id; });
  return found == items_.end() ? nullptr : &*found;
}

int SearchResultList::Remove(std::int32_t id) {
  const SearchResultItem* item = Find(id);
  if (item == nullptr) return ERR_NOT_FOUND;
  items_.erase(items_.begin() + (item - items_.data()));
  return 0;
}

}  // namespace brovanta
