// Records in memory, in descending key order, equal keys in order of arrival.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "db/records.h"

namespace brovanta {

[[nodiscard]] inline DateStamp SortKey(const DiscountRecord& record) { return record.Stamp; }
[[nodiscard]] inline DateStamp SortKey(const ProductRecord& record) { return record.NextDate; }

/// Owns copies of records. Pointers stay valid until the record is removed or the list is cleared:
/// inserting does not move what is there. One shared cursor: walks must not be nested. Memory once
/// taken is kept for the next filling, since lists are reloaded time and again.
template <typename Record>
class SortedRecords {
 public:
  void Clear() {
    order_.clear();
    used_ = 0;
    cursor_ = 0;
  }

  /// Takes a record whose place is found by Sort, called once after all of them.
  void Append(const Record& record) { order_.push_back(Store(record)); }

  void Sort() {
    const auto later = [](const Record* left, const Record* right) {
      return SortKey(*left) > SortKey(*right);
    };
    if (std::is_sorted(order_.begin(), order_.end(), later)) return;
    SortByKeys();
  }

  /// Inserts behind every record whose key is greater than or equal.
  void Insert(const Record& record) {
    Record* inserted = Store(record);
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
  static_assert(std::is_trivially_copyable_v<Record>);

  static constexpr std::size_t kChunk = 64;  // records allocated together

  Record* Store(const Record& record) {
    if (used_ == chunks_.size() * kChunk) chunks_.push_back(std::make_unique<Record[]>(kChunk));
    Record* place = &chunks_[used_ / kChunk][used_ % kChunk];
    *place = record;
    ++used_;
    return place;
  }

  /// Sorts numbers that hold the key, turned round, above the position: the records themselves are
  /// touched once each instead of at every comparison, and equal keys keep their order.
  void SortByKeys() {
    std::vector<std::uint64_t> keys(order_.size());
    for (std::size_t position = 0; position < keys.size(); ++position) {
      constexpr std::uint32_t kSignBit = 0x80000000u;
      const auto ascending = static_cast<std::uint32_t>(SortKey(*order_[position])) ^ kSignBit;
      keys[position] = std::uint64_t{~ascending} << 32 | position;
    }
    std::sort(keys.begin(), keys.end());
    std::vector<Record*> sorted(order_.size());
    for (std::size_t position = 0; position < keys.size(); ++position) {
      sorted[position] = order_[static_cast<std::uint32_t>(keys[position])];
    }
    order_ = std::move(sorted);
  }

  std::vector<std::unique_ptr<Record[]>> chunks_;
  std::vector<Record*> order_;
  std::size_t used_ = 0;  // records taken from the chunks, removed ones included
  std::size_t cursor_ = 0;
};

}  // namespace brovanta
