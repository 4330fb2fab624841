// The row of coupon slots in the product dialog: five slot buttons and the search button.
#pragma once

#include <QObject>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "db/shopping_database.h"

class QMenu;

namespace brovanta {

class ColorButton;

/// Commands of the slot menus: these plus the slot, 0 to 4.
inline constexpr int kAddNewCoupon = 3101;
inline constexpr int kSelectCoupon = 3201;

/// The buttons of the row; they are the form's.
struct CouponButtons {
  std::array<ColorButton*, kSlotCount> slots{};
  ColorButton* search = nullptr;
};

/// Holds the product's links while its dialog is open, draws them and changes them as the user
/// says; whoever saves the product takes slots(). The form's dialog is the parent of all dialogs
/// and message boxes.
class CouponRow : public QObject {
  Q_OBJECT

 public:
  /// Reads from the form what the search goes by: name, notes, unit, store and category. Nothing
  /// when a check refused it; the user has been told then.
  using ReadProduct = std::function<std::optional<ProductFields>()>;

  /// The database is borrowed. `update_server` is for the discount dialog.
  CouponRow(const CouponButtons& buttons, const DiscountSlots& slots, ShoppingDatabase& database,
            std::string update_server, ReadProduct read_product, QWidget* parent);
  ~CouponRow() override;

  [[nodiscard]] const DiscountSlots& slots() const { return slots_; }

  /// Shows the slot's picture by how it was filled and attaches its menu to an empty one. A slot
  /// whose `Type` is 6 to 100 keeps the picture that it has.
  void DrawSlot(std::size_t slot, const AppliedDiscount& discount);

  [[nodiscard]] QMenu* menu(std::size_t slot) const { return menus_[slot].get(); }

  /// Runs a command of the slot menus; one that belongs to none of the five slots does nothing.
  void RunCommand(int command);

 private:
  void BuildMenus();
  void DescribeSlots();
  [[nodiscard]] QString Description(const AppliedDiscount& discount) const;
  void PressSlot(std::size_t slot);
  void AddNewCoupon(std::size_t slot);
  void SelectCoupon(std::size_t slot);
  void FillSlot(std::size_t slot, const AppliedDiscount& discount);
  void Search();

  CouponButtons buttons_;
  DiscountSlots slots_;
  ShoppingDatabase& database_;
  std::string update_server_;
  ReadProduct read_product_;
  QWidget* parent_;
  std::array<std::unique_ptr<QMenu>, kSlotCount> menus_;
};

/// The product that the search goes by: name, notes, unit, store and category only, names that are
/// new without an id, nothing written. Nothing when no name is left in its stored form: it would
/// match every discount.
[[nodiscard]] std::optional<ProductRecord> SearchProduct(const ProductFields& fields);

}  // namespace brovanta
