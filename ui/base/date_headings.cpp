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

DateHeadings::~DateHeadings() {
  qDeleteAll(rows_);
  qDeleteAll(headings_);
}

void DateHeadings::Add(DateStamp key, TreeItemInfo info, RowDetail detail) {
  if (key != previous_key_) {
    OpenHeading(key);
  } else if (heading_ == nullptr) {
    // The starting key is a stamp like any other: a file may hold it.
    heading_ = new HeadingRow(UnknownDate(), blanks_.without_change);
    headings_.append(heading_);
  }
  rows_.append(new RecordRow(std::move(info), std::move(detail)));
}

void DateHeadings::OpenHeading(DateStamp key) {
  CloseHeading();
  heading_ = key == kNoDate ? new HeadingRow(UnknownDate(), blanks_.unknown_date)
                            : new HeadingRow(DayDate(key), kDatedHeadingBlanks);
  headings_.append(heading_);
  previous_key_ = key;
}

void DateHeadings::CloseHeading() {
  if (heading_ != nullptr) heading_->addChildren(std::exchange(rows_, {}));
}

QList<QTreeWidgetItem*> DateHeadings::Take() {
  CloseHeading();
  heading_ = nullptr;
  previous_key_ = -1;
  return std::exchange(headings_, {});
}

}  // namespace brovanta
