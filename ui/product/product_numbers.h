// The number fields of the product dialog.
#pragma once

#include <QString>

namespace brovanta {

/// What the Quantity field shows for a stored quantity: nothing for 0.0, else the low 32 bits of
/// the double's image as a signed integer. Kept: 3.0 shows as "0", and saving without typing the
/// quantity again stores what is shown.
[[nodiscard]] QString QuantityText(double quantity);

/// Two decimals, nothing for 0.0.
[[nodiscard]] QString AmountText(double amount);

/// The number in a field: the leading number of its first 20 characters, 0.0 without one.
[[nodiscard]] double FieldNumber(const QString& text);

}  // namespace brovanta
