#include "ui/product/coupon_row.h"

#include <QAction>
#include <QMenu>
#include <QSize>

#include "ui/base/color_button.h"

namespace brovanta {
namespace {

constexpr QSize kPictureSize{24, 24};
constexpr int kSearchPicture = 161;
constexpr int kUnchanged = 0;

int PictureOf(int type) {
  if (type <= 0) return 146;
  if (type <= 2) return 147;
  if (type <= 4) return 148;
  if (type == 5) return 149;
  return type > 100 ? 150 : kUnchanged;
}

void ShowPicture(ColorButton& button, int picture) {
  button.SetPictures(picture, kPictureSize, picture, kPictureSize, 0, {});
}

void AddCommand(QMenu& menu, const QString& text, int command) {
  menu.addAction(text)->setData(command);
}

}  // namespace

CouponRow::CouponRow(const std::array<ColorButton*, kSlotCount>& slots, ColorButton* search,
                     QWidget* parent)
    : QObject(parent), buttons_(slots) {
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    menus_[slot] = std::make_unique<QMenu>();
    const int offset = static_cast<int>(slot);
    AddCommand(*menus_[slot], QStringLiteral("Select Coupon"), kSelectCoupon + offset);
    AddCommand(*menus_[slot], QStringLiteral("Add New Coupon"), kAddNewCoupon + offset);
    buttons_[slot]->UseProgramColors();
    buttons_[slot]->SetAlignment(ColorButton::kPictureCentered, false);
  }
  search->UseProgramColors();
  search->SetAlignment(ColorButton::kPictureCentered, false);
  ShowPicture(*search, kSearchPicture);
}

CouponRow::~CouponRow() = default;

void CouponRow::DrawSlot(std::size_t slot, const AppliedDiscount& discount) {
  const int picture = PictureOf(discount.Type);
  if (picture != kUnchanged) ShowPicture(*buttons_[slot], picture);
  buttons_[slot]->AttachMenu(discount.Type <= 0 ? menus_[slot].get() : nullptr, true);
  buttons_[slot]->setToolTip(discount.Type <= 0 ? tr("Coupon %1: empty").arg(slot + 1)
                                                : tr("Coupon %1: linked").arg(slot + 1));
}

}  // namespace brovanta
