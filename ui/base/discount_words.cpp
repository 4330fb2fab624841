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

DiscountNote ValueNote(const DiscountRecord& discount) {
  QString number = QString::fromStdString(FormatTwoDecimals(discount.Value));
  const bool percent = discount.ValueType == kPercent;
  if (percent && number.endsWith(QLatin1String(".00"))) number.chop(3);
  if (percent) {
    return {Words(QT_TRANSLATE_NOOP("DiscountWords", "%1% off")).arg(number),
            Words(QT_TRANSLATE_NOOP("DiscountWords", "-%1%")).arg(number)};
  }
  return {Words(QT_TRANSLATE_NOOP("DiscountWords", "%1 off")).arg(number),
          Words(QT_TRANSLATE_NOOP("DiscountWords", "-%1")).arg(number)};
}

}  // namespace

DiscountNote DiscountNoteOf(const DiscountRecord& discount) {
  const DiscountNote value = ValueNote(discount);
  if (discount.EndDate > 0) {
    const QString date = ShortDate(discount.EndDate);
    return {Words(QT_TRANSLATE_NOOP("DiscountWords", "%1, until %2")).arg(value.words, date),
            Words(QT_TRANSLATE_NOOP("DiscountWords", "%1 until %2")).arg(value.brief, date)};
  }
  if (discount.StartDate > 0) {
    const QString date = ShortDate(discount.StartDate);
    return {Words(QT_TRANSLATE_NOOP("DiscountWords", "%1, from %2")).arg(value.words, date),
            Words(QT_TRANSLATE_NOOP("DiscountWords", "%1 from %2")).arg(value.brief, date)};
  }
  return {value.words, {}};
}

QString DiscountWords(const DiscountRecord& discount) { return DiscountNoteOf(discount).words; }

}  // namespace brovanta
