#include "ui/base/record_row.h"

#include <QCoreApplication>
#include <QStringList>
#include <array>

#include "db/schedule.h"
#include "ui/base/language.h"
#include "ui/base/period.h"
#include "ui/base/wide_text.h"

namespace brovanta {
namespace {

constexpr int kRecordBlanks = 46;

QString Words(const char* english) { return QCoreApplication::translate("RecordRow", english); }

/// `plural` has the count as its "%1".
QString EveryWords(int count, const char* single, const char* plural) {
  return count <= 1 ? Words(single) : Words(plural).arg(count);
}

QString Sentence(QStringList parts) {
  parts.removeAll(QString());
  return parts.join(QLatin1String(", "));
}

}  // namespace

QString SpokenNames(std::string_view name, const QString& store) {
  return Sentence({WideText(name), store});
}

DetailWords DueWords(DateStamp due, DateStamp today) {
  if (due == kNoDate) return {};
  const qint64 days = DateOfStamp(today).daysTo(DateOfStamp(due));
  if (days == 0) return {Words(QT_TRANSLATE_NOOP("RecordRow", "due today")), false};
  if (days == 1) return {Words(QT_TRANSLATE_NOOP("RecordRow", "due tomorrow")), false};
  if (days > 1) return {Words(QT_TRANSLATE_NOOP("RecordRow", "in %1 days")).arg(days), false};
  if (days == -1) return {Words(QT_TRANSLATE_NOOP("RecordRow", "1 day overdue")), true};
  return {Words(QT_TRANSLATE_NOOP("RecordRow", "%1 days overdue")).arg(-days), true};
}

QString RecurrenceWords(int purchase_kind, int every, int day_value) {
  switch (purchase_kind) {
    case kDaily:
      return EveryWords(day_value, QT_TRANSLATE_NOOP("RecordRow", "daily"),
                        QT_TRANSLATE_NOOP("RecordRow", "every %1 days"));
    case kWeekly:
      return EveryWords(every, QT_TRANSLATE_NOOP("RecordRow", "weekly"),
                        QT_TRANSLATE_NOOP("RecordRow", "every %1 weeks"));
    case kMonthly:
      if (every == 12) return Words(QT_TRANSLATE_NOOP("RecordRow", "yearly"));
      return EveryWords(every, QT_TRANSLATE_NOOP("RecordRow", "monthly"),
                        QT_TRANSLATE_NOOP("RecordRow", "every %1 months"));
    default:
      return {};
  }
}

bool IsRecurring(int purchase_kind) {
  return purchase_kind == kDaily || purchase_kind == kWeekly || purchase_kind == kMonthly;
}

QString HeadingRow::Words() const {
  if (date_ == kNoDate) return QCoreApplication::translate("DateHeadings", "Unknown date");
  if (!HasDocumentedDates()) {
    //: Weekday and date.
    return QCoreApplication::translate("DateHeadings", "%1 %2")
        .arg(SpokenLocale().toString(DateOfStamp(date_), QStringLiteral("dddd")),
             SpokenLocale().toString(DateOfStamp(date_), ShortDateForm()));
  }
  std::array<char, kDayDateSize> text{};
  FormatDayDate(date_, text);
  return QString::fromLatin1(text.data());
}

QString RecordRow::Text() {
  static const QString kBlanks(kRecordBlanks, QLatin1Char(' '));
  return kBlanks;
}

TreeItemInfo RecordRow::info() const {
  return {.id = content_.id,
          .purchaseType = content_.purchaseType,
          .name = WideText(content_.name),
          .storeName = content_.storeName};
}

DetailWords RecordRow::Words() const {
  if (detail_.shows_due) return DueWords(detail_.due, TodayStamp());
  return {detail_.note, false, detail_.brief};
}

QString RecordRow::AccessibleText() const {
  const bool cut = !detail_.spoken.isEmpty();
  return Sentence({cut ? detail_.spoken : SpokenNames(content_.name, content_.storeName),
                   Words().text,
                   RecurrenceWords(detail_.recurrence_kind, detail_.every, detail_.day_value)});
}

}  // namespace brovanta
