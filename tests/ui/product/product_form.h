// The product dialog over a data folder of its own, as the tests of the dialog drive it.
#pragma once

#include <QDateEdit>

#include "tests/ui/product/form_test.h"
#include "ui/product/product_dialog.h"

namespace brovanta::test {

class ProductFormTest : public FormTest {
 protected:
  /// Opens the dialog and lets `act` play the person; the dialog's result.
  int Run(const ProductRecord* record, int mode, const Act& act);
  int Add(const Act& act) { return Run(nullptr, kProductMode, act); }

  /// The name, "Every Few Days" and the interval 2: enough to be saved.
  void FillInTheLeast();

  [[nodiscard]] std::vector<std::string> Records(const char* file) const {
    return RecordsOf(file, 456);
  }
  /// The only record of "product.dat".
  [[nodiscard]] std::string OnlyRecord() const;

  /// Puts a record into the kind's file through the database and gives it back as the list has it.
  ProductRecord Stored(int kind, ProductFields fields);

  double tax_ = 8.25;
};

}  // namespace brovanta::test
