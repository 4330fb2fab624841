#include "ui/base/discount_words.h"

#include "ui/base/period.h"
#include "util/number.h"

namespace brovanta {
namespace {

constexpr std::uint16_t kPercent = 1;

QString ShortDate(DateStamp stamp) {
  const QDate date = DateOfStamp(stamp);
  return QString::asprintf("%d/%d/%d", date.month(), date.day(), date.year());
}

QString ValueWords(const DiscountRecord& discount) {
  QString number = QString::fromStdString(FormatTwoDecimals(discount.Value));
  if (discount.ValueType != kPercent) return number + QLatin1String(" off");
  if (number.endsWith(QLatin1String(".00"))) number.chop(3);
  return number + QLatin1String("% off");
}

}  // namespace

QString DiscountWords(const DiscountRecord& discount) {
  QString words = ValueWords(discount);
  if (discount.EndDate > 0) {
    words += QLatin1String(", until ") + ShortDate(discount.EndDate);
  } else if (discount.StartDate > 0) {
    words += QLatin1String(", from ") + ShortDate(discount.StartDate);
  }
  return words;
}

}  // namespace brovanta
