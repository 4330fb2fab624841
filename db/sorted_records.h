// Records in memory, in descending key order, equal keys in order of arrival.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <vector>

#include "db/key_sort.h"
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
    keys_.clear();
    used_ = 0;
    cursor_ = 0;
  }

  /// Takes the record that `make()` gives, built in its place, if `keep(record)` then holds. It
  /// becomes part of the list with Sort, called once after all of them and before anything else.
  template <typename Make, typename Keep>
  void AppendIf(Make make, Keep keep) {
    Record* place = ::new (FreePlace()) Record(make());
    if (!keep(*place)) return;
    // Turned round, so that the latest date is the smallest number; below it the arrival.
    constexpr std::uint32_t kSignBit = 0x80000000u;
    const std::uint32_t date = ~(static_cast<std::uint32_t>(SortKey(*place)) ^ kSignBit);
    keys_.push_back(std::uint64_t{date} << 32 | used_);
    ++used_;
  }

  void Append(const Record& record) {
    AppendIf([&] { return record; }, [](const Record&) { return true; });
  }

  /// Makes the records appended part of the list, behind what has an equal key already.
  void Sort() {
    SortByUpperHalf(keys_);
    const auto old_size = static_cast<std::ptrdiff_t>(order_.size());
    order_.reserve(order_.size() + keys_.size());
    for (const std::uint64_t key : keys_) order_.push_back(Place(static_cast<std::uint32_t>(key)));
    keys_.clear();
    if (old_size == 0) return;
    std::inplace_merge(
        order_.begin(), order_.begin() + old_size, order_.end(),
        [](const Record* left, const Record* right) { return SortKey(*left) > SortKey(*right); });
  }

  /// Inserts behind every record whose key is greater than or equal.
  void Insert(const Record& record) {
    Record* inserted = ::new (FreePlace()) Record(record);
    ++used_;
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
  static_assert(std::is_trivially_destructible_v<Record>);

  static constexpr std::size_t kChunk = 1024;  // records allocated together

  struct Release {
    void operator()(Record* chunk) const { ::operator delete(chunk); }
  };
  // Memory for a chunk of records, which are made one by one as they come: what is not used is
  // never touched.
  using Chunk = std::unique_ptr<Record, Release>;

  Record* Place(std::size_t number) { return chunks_[number / kChunk].get() + number % kChunk; }

  /// Where the next record goes.
  Record* FreePlace() {
    if (used_ == chunks_.size() * kChunk) {
      chunks_.push_back(Chunk(static_cast<Record*>(::operator new(kChunk * sizeof(Record)))));
    }
    return Place(used_);
  }

  std::vector<Chunk> chunks_;
  std::vector<Record*> order_;
  std::vector<std::uint64_t> keys_;  // of the records appended and not yet sorted
  std::size_t used_ = 0;             // records taken from the chunks, removed ones included
  std::size_t cursor_ = 0;
};

}  // namespace brovanta
