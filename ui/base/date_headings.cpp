#include "ui/base/date_headings.h"

#include <array>
#include <utility>

namespace brovanta {
namespace {

QString UnknownDate() { return QStringLiteral("Unknown date"); }

QString DayDate(DateStamp stamp) {
  std::array<char, kDayDateSize> text{};
  FormatDayDate(stamp, text);
  return QString::fromLatin1(text.data());
}

}  // namespace

DateHeadings::~DateHeadings() { qDeleteAll(headings_); }

void DateHeadings::Add(DateStamp key, TreeItemInfo info, RowDetail detail) {
  auto* row = new RecordRow(std::move(info), std::move(detail));
  if (key != previous_key_) {
    OpenHeading(key);
  } else if (heading_ == nullptr) {
    // The starting key is a stamp like any other: a file may hold it.
    heading_ = new HeadingRow(UnknownDate(), blanks_.without_change);
    headings_.append(heading_);
  }
  heading_->addChild(row);
}

void DateHeadings::OpenHeading(DateStamp key) {
  heading_ = key == kNoDate ? new HeadingRow(UnknownDate(), blanks_.unknown_date)
                            : new HeadingRow(DayDate(key), kDatedHeadingBlanks);
  headings_.append(heading_);
  previous_key_ = key;
}

QList<QTreeWidgetItem*> DateHeadings::Take() {
  heading_ = nullptr;
  previous_key_ = -1;
  return std::exchange(headings_, {});
}

}  // namespace brovanta
