// Groups records under date headings, in the order in which they come.
#pragma once

#include <QList>

#include "ui/base/record_row.h"

class QTreeWidgetItem;

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
  ~DateHeadings();

  /// Adds a record row; 0 is the key of a record without a date.
  void Add(DateStamp key, TreeItemInfo info, RowDetail detail);

  /// The headings with their rows; the caller owns them from now on.
  [[nodiscard]] QList<QTreeWidgetItem*> Take();

 private:
  void OpenHeading(DateStamp key);
  void CloseHeading();

  HeadingBlanks blanks_;
  DateStamp previous_key_ = -1;
  QTreeWidgetItem* heading_ = nullptr;
  QList<QTreeWidgetItem*> headings_;
  QList<QTreeWidgetItem*> rows_;  // of the open heading, which takes them all at once
};

}  // namespace brovanta
