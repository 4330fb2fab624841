// The coupon picker over a data folder of its own, as the tests drive it.
#pragma once

#include "tests/db/raw_files.h"
#include "tests/ui/product/form_test.h"
#include "ui/product/coupon_picker_dialog.h"

class QMenu;

namespace brovanta {
class RecordTree;
}

namespace brovanta::test {

class PickerFormTest : public FormTest {
 protected:
  PickerFormTest();

  /// Writes "discount.dat".
  void Coupons(std::initializer_list<RawDiscount> discounts) const {
    folder_.Write("discount.dat", RawDiscountFile(100, discounts));
  }
  /// Opens the picker and lets `act` play the person; the result.
  int Run(const Act& act);

  RecordTree* Tree();
  std::string Rows();  ///< "[Saturday 11/21/2026]", "Soap@Corner", ... one per line
  std::string Text(const char* button_name);
  std::string MenuTexts(const char* button_name);
  /// "new edit delete find", those that are enabled.
  std::string Enabled();

  void SelectRow(const QString& name);
  void SelectHeading(int index);
  void Tool(int command);
  void FindText(const QString& text, const char* button = "findButton");
  void PickDate(QDate date);

  /// The coupon of the last picker that ended with 0.
  AppliedDiscount picked_;
};

}  // namespace brovanta::test
