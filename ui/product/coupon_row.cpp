#include "ui/product/coupon_row.h"

#include <QAction>
#include <QMenu>
#include <QSize>
#include <utility>

#include "ui/base/color_button.h"
#include "ui/base/discount_words.h"
#include "ui/base/message_box.h"
#include "ui/base/tool_tip.h"
#include "ui/base/wide_text.h"
#include "ui/product/coupon_picker_dialog.h"
#include "ui/product/discount_dialog.h"

namespace brovanta {
namespace {

constexpr QSize kPictureSize{28, 28};
constexpr int kSearchPicture = 161;
constexpr int kUnchanged = 0;
constexpr int kFirstPicture = 149;  // stays where a slot opens with a type that has none
constexpr int kSlots = static_cast<int>(kSlotCount);

bool Empty(const AppliedDiscount& discount) { return discount.Type < 1; }

bool FoundBySearch(const AppliedDiscount& discount) { return discount.Type > kFoundByProduct; }

int PictureOf(int type) {
  if (type <= 0) return 146;
  if (type <= 2) return 147;
  if (type <= 4) return 148;
  if (type == 5) return 149;
  return type > kFoundByProduct ? 150 : kUnchanged;
}

void ShowPicture(ColorButton& button, int picture) {
  button.SetPictures(picture, kPictureSize, picture, kPictureSize, 0, {});
}

void SetUpButton(ColorButton& button) {
  button.UseProgramColors();
  button.SetAlignment(ColorButton::kPictureCentered, false);
}

std::uint32_t KnownId(const std::optional<NameRef>& reference) {
  return reference ? static_cast<std::uint32_t>(reference->Id) : 0;
}

}  // namespace

std::optional<ProductRecord> SearchProduct(const ProductFields& fields) {
  ProductRecord product;
  product.Name.Assign(fields.name);
  if (product.Name.empty()) return std::nullopt;
  product.Notes.Assign(fields.notes);
  product.UnitId = KnownId(fields.unit);
  product.StoreId = KnownId(fields.store);
  product.CategoryId = KnownId(fields.category);
  return product;
}

CouponRow::CouponRow(const CouponButtons& buttons, const DiscountSlots& slots,
                     ShoppingDatabase& database, std::string update_server,
                     ReadProduct read_product, QWidget* parent)
    : QObject(parent),
      buttons_(buttons),
      slots_(slots),
      database_(database),
      update_server_(std::move(update_server)),
      read_product_(std::move(read_product)),
      parent_(parent) {
  BuildMenus();
  SetUpButton(*buttons_.search);
  ShowPicture(*buttons_.search, kSearchPicture);
  connect(buttons_.search, &ColorButton::clicked, this, &CouponRow::Search);
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    SetUpButton(*buttons_.slots[slot]);
    ShowToolTipOnFocus(buttons_.slots[slot]);
    ShowPicture(*buttons_.slots[slot], kFirstPicture);
    connect(buttons_.slots[slot], &ColorButton::clicked, this, [this, slot] { PressSlot(slot); });
    DrawSlot(slot, slots_[slot]);
  }
  DescribeSlots();
}

CouponRow::~CouponRow() = default;

void CouponRow::BuildMenus() {
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    menus_[slot] = std::make_unique<QMenu>();
    menus_[slot]->setObjectName(QStringLiteral("couponSlotMenu%1").arg(slot + 1));
    menus_[slot]->setAccessibleName(tr("Coupon %1").arg(slot + 1));
    const int offset = static_cast<int>(slot);
    menus_[slot]->addAction(tr("Select Coupon"))->setData(kSelectCoupon + offset);
    menus_[slot]->addAction(tr("Add New Coupon"))->setData(kAddNewCoupon + offset);
    // Queued: the dialog that opens must not keep the menu's own handling waiting.
    connect(
        menus_[slot].get(), &QMenu::triggered, this,
        [this](const QAction* action) { RunCommand(action->data().toInt()); },
        Qt::QueuedConnection);
  }
}

void CouponRow::DrawSlot(std::size_t slot, const AppliedDiscount& discount) {
  const int picture = PictureOf(discount.Type);
  if (picture != kUnchanged) ShowPicture(*buttons_.slots[slot], picture);
  buttons_.slots[slot]->AttachMenu(Empty(discount) ? menus_[slot].get() : nullptr, true);
}

// All of them: a discount that was edited may be linked more than once.
void CouponRow::DescribeSlots() {
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    const QString words =
        tr("Coupon %1: ").arg(slot + 1) + Description(slots_[slot]);  // a name may hold a "%1"
    buttons_.slots[slot]->setToolTip(ToolTipText(words));
    buttons_.slots[slot]->setAccessibleName(words);
  }
}

QString CouponRow::Description(const AppliedDiscount& discount) const {
  if (Empty(discount)) return tr("empty");
  const std::optional<DiscountRecord> record = database_.discounts().ReadLinked(discount);
  if (!record) return tr("no longer in the database");
  const QString how = FoundBySearch(discount) ? tr("found by the search") : tr("chosen by you");
  return WideText(record->Name.view()) + QStringLiteral(", ") + DiscountWords(*record) +
         QStringLiteral(", ") + how;
}

void CouponRow::FillSlot(std::size_t slot, const AppliedDiscount& discount) {
  slots_[slot] = discount;
  DrawSlot(slot, discount);
}

void CouponRow::PressSlot(std::size_t slot) {
  const AppliedDiscount& linked = slots_[slot];
  if (Empty(linked)) return;  // its button drops the menu down
  const std::optional<DiscountRecord> record = database_.discounts().ReadLinked(linked);
  if (!record) {
    ShowMessage(parent_, tr("The selected coupon was not found in the database."));
    return;
  }
  const int mode = FoundBySearch(linked) ? kApplyDiscountMode : kAppliedDiscountMode;
  DiscountDialog dialog(&*record, mode, database_, update_server_, parent_);
  if (dialog.exec() != ModalDialog::kCompleted) return;
  FillSlot(slot, dialog.apply_chosen() ? dialog.saved() : AppliedDiscount());
  DescribeSlots();
}

void CouponRow::RunCommand(int command) {
  if (command >= kAddNewCoupon && command < kAddNewCoupon + kSlots) {
    AddNewCoupon(static_cast<std::size_t>(command - kAddNewCoupon));
  } else if (command >= kSelectCoupon && command < kSelectCoupon + kSlots) {
    SelectCoupon(static_cast<std::size_t>(command - kSelectCoupon));
  }
}

void CouponRow::AddNewCoupon(std::size_t slot) {
  DiscountDialog dialog(nullptr, kNewDiscountMode, database_, update_server_, parent_);
  if (dialog.exec() != ModalDialog::kCompleted) return;
  FillSlot(slot, dialog.saved());
  DescribeSlots();
}

void CouponRow::SelectCoupon(std::size_t slot) {
  CouponPickerDialog picker(database_, update_server_, parent_);
  const int result = picker.exec();
  if (!parent_->isVisible()) return;  // the program was closed under the picker, with the database
  if (result == ModalDialog::kCompleted) FillSlot(slot, picker.picked());
  DescribeSlots();  // linked coupons may have been edited or deleted in the picker
}

void CouponRow::Search() {
  const std::optional<ProductFields> fields = read_product_();
  if (!fields) return;
  std::optional<ProductRecord> product = SearchProduct(*fields);
  if (!product) {
    ShowMessage(parent_, tr("There was an error whiile searching for discounts for "
                            "the current product."));
    return;
  }
  const int count = database_.discounts().FindForProduct(*product);
  if (count < 1) {
    ShowMessage(parent_, tr("Brovanta could not find any discounts for the current "
                            "product."));
    return;
  }
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) FillSlot(slot, product->Discounts[slot]);
  DescribeSlots();
  ShowMessage(parent_, tr("Brovanta found %1 discounts for the current product."
                          "\r\n\r\nPlease review and validate each discount applied.")
                           .arg(count));
}

}  // namespace brovanta
