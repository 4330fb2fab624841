// A discount's value and validity in words, for the second line of its row.
#pragma once

#include <QString>

#include "db/records.h"

namespace brovanta {

/// "20% off, until 11/30/2026", "1.50 off, from 11/1/2026", "5.00 off".
[[nodiscard]] QString DiscountWords(const DiscountRecord& discount);

}  // namespace brovanta
