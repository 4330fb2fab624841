// The form in which a discount (coupon) is made or edited.
#pragma once

#include <QMargins>
#include <memory>
#include <optional>
#include <string>

#include "db/shopping_database.h"
#include "ui/base/modal_dialog.h"

namespace Ui {
class DiscountForm;
}

namespace brovanta {

/// Opening modes of the discount dialog.
inline constexpr int kNewDiscountMode = 0;
inline constexpr int kEditDiscountMode = 1;
/// Opened from a product: the apply check box is shown, not ticked or ticked.
inline constexpr int kApplyDiscountMode = 2;
inline constexpr int kAppliedDiscountMode = 3;

/// Ends with 0 once the discount is saved, with the cancel result otherwise. Whatever a message
/// says, everything typed stays in the form. The apply check box is in sight on both tabs; where
/// that would leave no room to type in, as beside the on-screen keyboard of a small screen, it is
/// the last line of the form and scrolls with it.
class DiscountDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// `record` is the discount to edit, nullptr for a new one; it is copied. The database is
  /// borrowed and outlives the dialog. `update_server` ("http://host:port") serves the coupons'
  /// pages.
  DiscountDialog(const DiscountRecord* record, int mode, ShoppingDatabase& database,
                 const std::string& update_server, QWidget* parent);
  ~DiscountDialog() override;

  /// After a result of 0: the saved discount's `Id`, `Source` and `Type`, as a product's slot links
  /// it.
  [[nodiscard]] const AppliedDiscount& saved() const { return saved_; }
  /// After a result of 0: whether the discount is to be applied to the current product.
  [[nodiscard]] bool apply_chosen() const { return apply_chosen_; }

 protected:
  void Arrange() override;

 private:
  /// Where the apply check box stands.
  enum class ApplyPlace { kAboveButtons, kBesideButtons, kInForm };

  void InsertTabs();
  void PaintLabels();
  void FillLists();
  void FillProducts();
  void SetUpInput();
  void ShowRecord();
  void ShowMode(int mode);
  [[nodiscard]] ApplyPlace FittingApplyPlace() const;
  [[nodiscard]] QMargins AroundApplyBox(ApplyPlace place) const;
  void PutApplyRow(ApplyPlace place);
  void OnTabChanged(int index);
  void ViewOnTheWeb();

  void Accept();
  bool ReadReferences(DiscountFields& fields);
  bool ReadTypes(DiscountFields& fields);
  bool ReadTexts(DiscountFields& fields);
  bool Save(DiscountFields& fields);
  bool Refuse(const QString& message, QWidget* field);

  std::optional<DiscountRecord> record_;
  ShoppingDatabase& database_;
  std::string update_server_;
  AppliedDiscount saved_;
  bool apply_chosen_ = false;
  ApplyPlace apply_place_ = ApplyPlace::kAboveButtons;
  std::unique_ptr<Ui::DiscountForm> form_;
};

/// The address of a discount's page on the update server; empty for a `Source` that has no pages.
[[nodiscard]] std::string DiscountPage(const std::string& update_server, std::int32_t id,
                                       std::int16_t source);

}  // namespace brovanta
