// The rows of a record tree under their headings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "ui/base/record_row.h"

namespace brovanta {

/// Headings in their order, each with its records. All records lie in one piece of memory, so that
/// a list of thousands is made and dropped quickly. Headings and records are counted from 0.
class RecordRows {
 public:
  /// Room for so many records.
  void Reserve(std::size_t records) { records_.reserve(records); }

  /// What is added from now on stands under this heading.
  void AddHeading(HeadingRow heading) {
    headings_.push_back({std::move(heading), records_.size(), 0});
  }

  /// There must be a heading.
  void Add(TreeItemInfo info, RowDetail detail) {
    records_.emplace_back(std::move(info), std::move(detail));
    ++headings_.back().count;
  }

  [[nodiscard]] bool empty() const { return headings_.empty(); }
  [[nodiscard]] std::size_t HeadingCount() const { return headings_.size(); }
  [[nodiscard]] const HeadingRow& Heading(std::size_t heading) const {
    return headings_[heading].row;
  }
  [[nodiscard]] std::span<const RecordRow> Under(std::size_t heading) const {
    return std::span(records_).subspan(headings_[heading].first, headings_[heading].count);
  }

 private:
  struct HeadingWithRecords {
    HeadingRow row;
    std::size_t first;  // of its records
    std::size_t count;
  };

  std::vector<HeadingWithRecords> headings_;
  std::vector<RecordRow> records_;
};

}  // namespace brovanta
