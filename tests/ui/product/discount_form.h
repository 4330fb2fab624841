// The discount dialog over a data folder of its own, and the discounts that tests put there.
#pragma once

#include "tests/ui/product/form_test.h"
#include "ui/product/discount_dialog.h"

namespace brovanta::test {

class DiscountFormTest : public FormTest {
 protected:
  int Run(const DiscountRecord* record, int mode, const Act& act);
  int Add(const Act& act) { return Run(nullptr, kNewDiscountMode, act); }

  /// Name, type and value type: enough to be saved.
  void FillInTheLeast();

  /// The records of "discount.dat".
  [[nodiscard]] std::vector<std::string> Records() const { return RecordsOf("discount.dat", 400); }

  /// Every field filled.
  static DiscountFields Full();

  /// Puts a record into the file through the database.
  DiscountRecord Stored(std::int32_t id, std::int16_t source, DiscountFields fields);

  /// Results of the last dialog.
  AppliedDiscount saved_;
  bool apply_chosen_ = false;
};

}  // namespace brovanta::test
