#include "ui/base/date_headings.h"

#include <QCoreApplication>
#include <array>
#include <utility>

#include "ui/base/language.h"
#include "ui/base/period.h"

namespace brovanta {
namespace {

QString UnknownDate() { return QCoreApplication::translate("DateHeadings", "Unknown date"); }

QString DayDate(DateStamp stamp) {
  if (SpeaksTranslated()) {
    return SpokenLocale().toString(DateOfStamp(stamp),
                                   QCoreApplication::translate("DateHeadings", "dddd M/d/yyyy"));
  }
  std::array<char, kDayDateSize> text{};
  FormatDayDate(stamp, text);
  return QString::fromLatin1(text.data());
}

}  // namespace

void DateHeadings::Add(DateStamp key, RecordContent content, RowDetail detail) {
  if (key != previous_key_) {
    rows_.AddHeading(key == kNoDate ? HeadingRow(UnknownDate(), blanks_.unknown_date)
                                    : HeadingRow(DayDate(key), kDatedHeadingBlanks));
    previous_key_ = key;
  } else if (rows_.empty()) {
    // The starting key is a stamp like any other: a file may hold it.
    rows_.AddHeading(HeadingRow(UnknownDate(), blanks_.without_change));
  }
  rows_.Add(std::move(content), std::move(detail));
}

RecordRows DateHeadings::Take() {
  previous_key_ = -1;
  return std::exchange(rows_, {});
}

}  // namespace brovanta
