// The rows of a record tree: what they hold and how they say it.
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>
#include <utility>

#include "util/date_stamp.h"

namespace brovanta {

/// What every record row carries; heading rows carry none.
struct TreeItemInfo {
  std::int32_t id = 0;
  std::int32_t reserved = 0;
  std::int16_t purchaseType = 0;  ///< a product's PurchaseKind; of a discount its Source
  QString name = {};
  QString storeName = {};  ///< empty if the store is unknown
};

/// What a record row is made from. The name is stored text, borrowed.
struct RecordContent {
  std::int32_t id = 0;
  std::int16_t purchaseType = 0;
  std::string_view name = {};
  QString storeName = {};
};

/// What a row says besides its name and store.
struct RowDetail {
  QString spoken = {};  ///< name and store to screen readers; empty = as shown
  QString note = {};    ///< fixed words, with a form for narrow rows, or
  QString brief = {};
  bool shows_due = false;             ///< words for `due` as of the day on which they are read
  DateStamp due = kNoDate;            ///< kNoDate = no words
  std::uint16_t recurrence_kind = 0;  ///< a product's schedule fields; marked if it recurs
  std::uint16_t every = 0;
  std::uint16_t day_value = 0;
};

/// The second line of a row in words.
struct DetailWords {
  QString text;
  bool overdue = false;
  QString brief = {};  ///< for a row too narrow for the text; may be empty
};

/// "due today", "due tomorrow", "in 3 days", "2 days overdue": whole dates, local time.
[[nodiscard]] DetailWords DueWords(DateStamp due, DateStamp today);

/// "daily", "every 3 days", "weekly", "every 2 months", "yearly"; empty for what does not recur.
[[nodiscard]] QString RecurrenceWords(int purchase_kind, int every, int day_value);

/// "Milk, Corner Shop", as a screen reader says it. The name is stored text.
[[nodiscard]] QString SpokenNames(std::string_view name, const QString& store);

/// Whether a product of this kind comes again: daily, weekly or monthly.
[[nodiscard]] bool IsRecurring(int purchase_kind);

/// A date heading. Its text ends in the blanks that make it wide; screen readers get its words.
class HeadingRow {
 public:
  /// kNoDate is an unknown date.
  HeadingRow(DateStamp date, int blanks) : date_(date), blanks_(blanks) {}

  [[nodiscard]] QString Text() const { return Words() + QString(blanks_, QLatin1Char(' ')); }

  /// "Saturday 11/21/2026" or "Unknown date", made when they are asked for: a list may be read
  /// before the program knows its language.
  [[nodiscard]] QString Words() const;

 private:
  DateStamp date_;
  int blanks_;
};

/// A record. Its text is blanks only: the row is drawn from the info. The name becomes wide text
/// when somebody asks for it: of thousands of rows a screen shows a dozen.
class RecordRow {
 public:
  RecordRow(RecordContent content, RowDetail detail)
      : content_(std::move(content)), detail_(std::move(detail)) {}

  /// 46 blanks.
  [[nodiscard]] static QString Text();
  [[nodiscard]] TreeItemInfo info() const;
  [[nodiscard]] const RowDetail& detail() const { return detail_; }
  [[nodiscard]] bool recurring() const { return IsRecurring(detail_.recurrence_kind); }

  /// The second line as of today.
  [[nodiscard]] DetailWords Words() const;

  /// "Milk, Corner Shop, 2 days overdue, weekly".
  [[nodiscard]] QString AccessibleText() const;

 private:
  RecordContent content_;
  RowDetail detail_;
};

}  // namespace brovanta
