#include "ui/product/product_numbers.h"

#include <bit>
#include <cstdint>

#include "ui/base/wide_text.h"
#include "util/number.h"

namespace brovanta {

QString QuantityText(double quantity) {
  if (quantity == 0.0) return {};
  const auto image = std::bit_cast<std::uint64_t>(quantity);
  return QString::number(static_cast<std::int32_t>(static_cast<std::uint32_t>(image)));
}

QString AmountText(double amount) {
  return amount == 0.0 ? QString() : WideText(FormatTwoDecimals(amount));
}

double FieldNumber(const QString& text) {
  return LeadingDouble(NarrowLine(text).substr(0, kNumberFieldLength));
}

}  // namespace brovanta
