// The rows of a record tree under their headings.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/base/record_row.h"

namespace brovanta {

/// Headings in their order, each with its records. All records lie in one piece of memory and their
/// names in a few, so that a list of thousands is made and dropped quickly. Headings and records
/// are counted from 0.
class RecordRows {
 public:
  RecordRows() = default;
  RecordRows(const RecordRows&) = delete;  // records look at the names
  RecordRows& operator=(const RecordRows&) = delete;
  RecordRows(RecordRows&&) = default;
  RecordRows& operator=(RecordRows&&) = default;
  ~RecordRows() = default;

  /// Room for so many records.
  void Reserve(std::size_t records) { records_.reserve(records); }

  /// What is added from now on stands under this heading.
  void AddHeading(HeadingRow heading) { headings_.push_back({heading, records_.size(), 0}); }

  /// There must be a heading. The name is copied.
  void Add(RecordContent content, RowDetail detail) {
    content.name = Keep(content.name);
    records_.emplace_back(std::move(content), std::move(detail));
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

  static constexpr std::size_t kNamesTogether = 65536;  // bytes

  std::string_view Keep(std::string_view name) {
    if (names_.empty() || names_.back().capacity() - names_.back().size() < name.size()) {
      names_.emplace_back().reserve(std::max(kNamesTogether, name.size()));
    }
    std::string& piece = names_.back();
    const std::size_t first = piece.size();
    piece.append(name);  // never grows out of its memory, so that the other names stay in place
    return std::string_view(piece).substr(first);
  }

  std::vector<HeadingWithRecords> headings_;
  std::vector<RecordRow> records_;
  std::vector<std::string> names_;  // pieces with many names each
};

}  // namespace brovanta
