// Picks one discount to be linked to a product.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "db/shopping_database.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class PickerForm;
}

namespace brovanta {

class NameFilter;
class PeriodSelector;

/// Shows the discounts of a day, week or month with the main screen's filters, and lets discounts
/// be made, edited and deleted on the way. It works on the database's one list of discounts: the
/// list shows what the picker showed last. Ends with 0 once a discount is picked.
class CouponPickerDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// The database is borrowed. `update_server` is for the discount dialog. What cannot be read is
  /// reported once the dialog is open.
  CouponPickerDialog(ShoppingDatabase& database, const std::string& update_server, QWidget* parent);
  ~CouponPickerDialog() override;

  /// After a result of 0: `Id`, `Source` and `Type` of the discount.
  [[nodiscard]] const AppliedDiscount& picked() const { return picked_; }

 protected:
  void Arrange() override;
  /// What the scrolled screen holds asks for other room.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] int SelectorHeight(int room) const;
  [[nodiscard]] bool ShareALine(int wanted, int room) const;
  void Connect();
  void OnPeriodChosen();
  void OnFilterChosen(int command);
  void OnCaretChanged();

  /// Fills the tree; the query's code.
  int Fill();
  [[nodiscard]] QString EmptyWords(int code) const;
  /// Fills the tree and reports a failure.
  void FillOrReport();
  /// All stores, all categories and no find text, then the tree and the filter menus; the code.
  int ResetAndFill();
  void FullRefresh();
  void ReportReadError();
  void TakePeriod();

  void RunCommand(int command);
  void NewCoupon();
  void EditCoupon();
  void DeleteCoupon();
  void FindCoupon();
  void Select();
  /// The selected row's discount in the list, nullptr for a heading, no row or one that is gone.
  [[nodiscard]] std::optional<DiscountRecord> Selected() const;

  ShoppingDatabase& database_;
  std::string update_server_;
  DiscountFilter filter_;
  AppliedDiscount picked_;
  std::unique_ptr<Ui::PickerForm> form_;
  std::unique_ptr<PeriodSelector> period_;
  std::unique_ptr<NameFilter> stores_;
  std::unique_ptr<NameFilter> categories_;
};

}  // namespace brovanta
