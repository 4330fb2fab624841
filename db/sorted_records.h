// Records in memory, in descending key order, equal keys in order of arrival.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

#include "db/records.h"

namespace brovanta {

[[nodiscard]] inline DateStamp SortKey(const DiscountRecord& record) { return record.Stamp; }
[[nodiscard]] inline DateStamp SortKey(const ProductRecord& record) { return record.NextDate; }

/// Owns copies of records. Pointers stay valid until the record is removed or the list is cleared:
/// inserting does not move what is there. One shared cursor: walks must not be nested.
template <typename Record>
class SortedRecords {
 public:
  void Clear() {
    order_.clear();
    records_.clear();
    cursor_ = 0;
  }

  /// Takes a record whose place is found by Sort, called once after all of them.
  void Append(Record record) {
    records_.push_back(std::move(record));
    order_.push_back(&records_.back());
  }

  void Sort() {
    std::stable_sort(order_.begin(), order_.end(), [](const Record* left, const Record* right) {
      return SortKey(*left) > SortKey(*right);
    });
  }

  /// Inserts behind every record whose key is greater than or equal.
  void Insert(Record record) {
    records_.push_back(std::move(record));
    Record* inserted = &records_.back();
    const auto place = std::upper_bound(
        order_.begin(), order_.end(), SortKey(*inserted),
        [](DateStamp key, const Record* element) { return key > SortKey(*element); });
    order_.insert(place, inserted);
  }

  /// Removes the first record, in list order, for which the test holds. Its memory is kept until
  /// Clear, so that other pointers stay valid.
  template <typename Test>
  void RemoveFirst(Test test) {
    const auto found =
        std::find_if(order_.begin(), order_.end(), [&](Record* record) { return test(*record); });
    if (found == order_.end()) return;
    const auto position = static_cast<std::size_t>(found - order_.begin());
    order_.erase(found);
    if (position < cursor_) --cursor_;
  }

  template <typename Test>
  [[nodiscard]] Record* FindFirst(Test test) const {
    const auto found =
        std::find_if(order_.begin(), order_.end(), [&](Record* record) { return test(*record); });
    return found == order_.end() ? nullptr : *found;
  }

  [[nodiscard]] const Record* First() {
    cursor_ = 0;
    return Next();
  }
  [[nodiscard]] const Record* Next() {
    return cursor_ < order_.size() ? order_[cursor_++] : nullptr;
  }

  [[nodiscard]] std::size_t size() const { return order_.size(); }
  [[nodiscard]] auto begin() const { return order_.begin(); }
  [[nodiscard]] auto end() const { return order_.end(); }

 private:
  std::deque<Record> records_;
  std::vector<Record*> order_;
  std::size_t cursor_ = 0;
};

}  // namespace brovanta
