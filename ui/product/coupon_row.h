// The row of coupon slots in the product dialog: five slot buttons and the search button.
#pragma once

#include <QObject>
#include <array>
#include <memory>

#include "db/records.h"

class QMenu;

namespace brovanta {

class ColorButton;

/// Commands of the slot menus: these plus the slot, 0 to 4.
inline constexpr int kAddNewCoupon = 3101;
inline constexpr int kSelectCoupon = 3201;

/// Draws the slots and owns their menus. The buttons are the form's and are borrowed; the form's
/// dialog is the parent.
class CouponRow : public QObject {
  Q_OBJECT

 public:
  CouponRow(const std::array<ColorButton*, kSlotCount>& slots, ColorButton* search,
            QWidget* parent);
  ~CouponRow() override;

  /// Shows the slot's picture by how it was filled and attaches its menu to an empty one. A slot
  /// whose `Type` is 6 to 100 keeps the picture that it has.
  void DrawSlot(std::size_t slot, const AppliedDiscount& discount);

  [[nodiscard]] QMenu* menu(std::size_t slot) const { return menus_[slot].get(); }

 private:
  std::array<ColorButton*, kSlotCount> buttons_;
  std::array<std::unique_ptr<QMenu>, kSlotCount> menus_;
};

}  // namespace brovanta
