// A discount's value and validity in words, for the second line of its row.
#pragma once

#include <QString>

#include "db/records.h"

namespace brovanta {

/// The words, and what a row shows that is too narrow for them: "-20% until 11/30/2026", empty
/// where the words are short anyway.
struct DiscountNote {
  QString words;
  QString brief;
};
[[nodiscard]] DiscountNote DiscountNoteOf(const DiscountRecord& discount);

/// "20% off, until 11/30/2026", "1.50 off, from 11/1/2026", "5.00 off".
[[nodiscard]] QString DiscountWords(const DiscountRecord& discount);

}  // namespace brovanta
