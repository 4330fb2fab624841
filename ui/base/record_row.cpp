#include "ui/base/record_row.h"

#include <QStringList>

#include "db/schedule.h"
#include "ui/base/period.h"

namespace brovanta {
namespace {

constexpr int kRecordBlanks = 46;

QString EveryWords(int count, const QString& single, const QString& plural) {
  if (count <= 1) return single;
  return QStringLiteral("every %1 %2").arg(count).arg(plural);
}

}  // namespace

DetailWords DueWords(DateStamp due, DateStamp today) {
  if (due == kNoDate) return {};
  const qint64 days = DateOfStamp(today).daysTo(DateOfStamp(due));
  if (days == 0) return {QStringLiteral("due today"), false};
  if (days == 1) return {QStringLiteral("due tomorrow"), false};
  if (days > 1) return {QStringLiteral("in %1 days").arg(days), false};
  if (days == -1) return {QStringLiteral("1 day overdue"), true};
  return {QStringLiteral("%1 days overdue").arg(-days), true};
}

QString RecurrenceWords(int purchase_kind, int every, int day_value) {
  switch (purchase_kind) {
    case kDaily:
      return EveryWords(day_value, QStringLiteral("daily"), QStringLiteral("days"));
    case kWeekly:
      return EveryWords(every, QStringLiteral("weekly"), QStringLiteral("weeks"));
    case kMonthly:
      if (every == 12) return QStringLiteral("yearly");
      return EveryWords(every, QStringLiteral("monthly"), QStringLiteral("months"));
    default:
      return {};
  }
}

bool IsRecurring(int purchase_kind) {
  return purchase_kind == kDaily || purchase_kind == kWeekly || purchase_kind == kMonthly;
}

QString RecordRow::Text() {
  static const QString kBlanks(kRecordBlanks, QLatin1Char(' '));
  return kBlanks;
}

DetailWords RecordRow::Words() const {
  if (detail_.shows_due) return DueWords(detail_.due, TodayStamp());
  return {detail_.note, false};
}

QString RecordRow::AccessibleText() const {
  QStringList parts{info_.name, info_.storeName, Words().text,
                    RecurrenceWords(detail_.recurrence_kind, detail_.every, detail_.day_value)};
  parts.removeAll(QString());
  return parts.join(QLatin1String(", "));
}

}  // namespace brovanta
