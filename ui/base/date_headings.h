// Groups records under date headings, in the order in which they come.
#pragma once

#include "ui/base/record_rows.h"

namespace brovanta {

/// Blanks behind a heading's text.
struct HeadingBlanks {
  int unknown_date = 22;    ///< "Unknown date" where the key changes to 0
  int without_change = 22;  ///< "Unknown date" where the first key equals the starting key
};

inline constexpr int kDatedHeadingBlanks = 22;

/// Builds the rows of a record tree. Records are grouped only while equal keys follow each other,
/// and keys are compared as stamps: two moments of one day get two headings.
class DateHeadings {
 public:
  explicit DateHeadings(HeadingBlanks blanks = {}) : blanks_(blanks) {}
  DateHeadings(const DateHeadings&) = delete;
  DateHeadings& operator=(const DateHeadings&) = delete;
  ~DateHeadings() = default;

  /// Room for so many records.
  void Reserve(std::size_t records) { rows_.Reserve(records); }

  /// Adds a record row; 0 is the key of a record without a date.
  void Add(DateStamp key, RecordContent content, RowDetail detail);

  /// The rows so far; what is added afterwards begins anew.
  [[nodiscard]] RecordRows Take();

 private:
  HeadingBlanks blanks_;
  DateStamp previous_key_ = -1;
  RecordRows rows_;
};

}  // namespace brovanta
