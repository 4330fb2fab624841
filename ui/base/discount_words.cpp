#include "ui/base/discount_words.h"

#include <QCoreApplication>

#include "ui/base/language.h"
#include "ui/base/period.h"
#include "util/number.h"

namespace brovanta {
namespace {

constexpr std::uint16_t kPercent = 1;

QString Words(const char* english) { return QCoreApplication::translate("DiscountWords", english); }

QString ShortDate(DateStamp stamp) {
  return SpokenLocale().toString(DateOfStamp(stamp), ShortDateForm());
}

QString ValueWords(const DiscountRecord& discount) {
  QString number = QString::fromStdString(FormatTwoDecimals(discount.Value));
  const bool percent = discount.ValueType == kPercent;
  if (percent && number.endsWith(QLatin1String(".00"))) number.chop(3);
  return (percent ? Words(QT_TRANSLATE_NOOP("DiscountWords", "%1% off"))
                  : Words(QT_TRANSLATE_NOOP("DiscountWords", "%1 off")))
      .arg(number);
}

}  // namespace

QString DiscountWords(const DiscountRecord& discount) {
  QString value = ValueWords(discount);
  if (discount.EndDate > 0) {
    return Words(QT_TRANSLATE_NOOP("DiscountWords", "%1, until %2"))
        .arg(value, ShortDate(discount.EndDate));
  }
  if (discount.StartDate > 0) {
    return Words(QT_TRANSLATE_NOOP("DiscountWords", "%1, from %2"))
        .arg(value, ShortDate(discount.StartDate));
  }
  return value;
}

}  // namespace brovanta
