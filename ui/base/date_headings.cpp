#include "ui/base/date_headings.h"

#include <utility>

namespace brovanta {

void DateHeadings::Add(DateStamp key, RecordContent content, RowDetail detail) {
  if (key != previous_key_) {
    rows_.AddHeading({key, key == kNoDate ? blanks_.unknown_date : kDatedHeadingBlanks});
    previous_key_ = key;
  } else if (rows_.empty()) {
    // The starting key is a stamp like any other: a file may hold it.
    rows_.AddHeading({kNoDate, blanks_.without_change});
  }
  rows_.Add(std::move(content), std::move(detail));
}

RecordRows DateHeadings::Take() {
  previous_key_ = -1;
  return std::exchange(rows_, {});
}

}  // namespace brovanta
