// The form in which a product is made or edited; a purchase opens in it as well.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "db/shopping_database.h"
#include "ui/base/modal_dialog.h"
#include "ui/product/purchase_type.h"

namespace Ui {
class ProductForm;
}

namespace brovanta {

class CouponRow;
struct DayChoice;

/// Opening modes of the product dialog.
inline constexpr int kProductMode = 1;   ///< new product, or editing one; saves among the products
inline constexpr int kPurchaseMode = 2;  ///< editing a purchase; saves among the purchases

/// Ends with 0 once the product is saved, with the cancel result otherwise. Whatever a message
/// says, everything typed stays in the form.
class ProductDialog : public ModalDialog {
  Q_OBJECT

 public:
  /// `default_tax` is filled into a new product. `record` is the record to edit, nullptr for a new
  /// one; it is copied. The database is borrowed and outlives the dialog. `update_server` is for
  /// the coupons that are opened from here.
  ProductDialog(const double& default_tax, const ProductRecord* record, int mode,
                ShoppingDatabase& database, const std::string& update_server, QWidget* parent);
  ~ProductDialog() override;

 private:
  void InsertTabs();
  void FillLists();
  void SetUpInput();
  void SetUpCoupons(const std::string& update_server);
  void ShowRecord();
  void ShowSchedule();
  void ShowDateField();
  void ShowDayField(const DayChoice& choice);
  void HideSchedule();
  void OnPurchaseTypeChanged();
  void OnTabChanged(int index);

  [[nodiscard]] int SelectedType() const;
  void Accept();
  bool HasName();
  [[nodiscard]] std::string Notes() const;
  bool ReadName(ProductFields& fields);
  [[nodiscard]] std::optional<ProductFields> ReadForSearch();
  void ReadNumbers(ProductFields& fields) const;
  bool ReadReferences(ProductFields& fields);
  bool ReadSchedule(ProductFields& fields);
  bool Save(ProductFields& fields);
  bool Refuse(const QString& message, QWidget* field);

  std::optional<ProductRecord> record_;
  int mode_;
  int shown_type_ = kNoPurchaseType;  // whose schedule controls stand in the form
  ShoppingDatabase& database_;
  std::unique_ptr<Ui::ProductForm> form_;
  std::unique_ptr<CouponRow> coupons_;
};

}  // namespace brovanta
