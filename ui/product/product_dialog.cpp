#include "ui/product/product_dialog.h"

#include <QShortcut>

#include "db/schedule.h"
#include "ui/base/color_button.h"
#include "ui/base/date_field.h"
#include "ui/base/input_panel.h"
#include "ui/base/lined_frame.h"
#include "ui/base/notes_field.h"
#include "ui/base/wide_text.h"
#include "ui/product/coupon_row.h"
#include "ui/product/product_numbers.h"
#include "ui/product/purchase_type.h"
#include "ui_130_product.h"
#include "util/number.h"

namespace brovanta {
namespace {

constexpr int kNotesTab = 1;

}  // namespace

ProductDialog::ProductDialog(const double& default_tax, const ProductRecord* record, int mode,
                             ShoppingDatabase& database, const std::string& update_server,
                             QWidget* parent)
    : ModalDialog(parent),
      mode_(mode),
      database_(database),
      form_(std::make_unique<Ui::ProductForm>()) {
  if (record != nullptr) record_ = *record;
  form_->setupUi(this);
  if (mode_ == kPurchaseMode) setWindowTitle(tr("Purchase"));
  InsertTabs();
  FillLists();
  HideSchedule();
  if (record_) {
    ShowRecord();
    ShowSchedule();
  } else {
    form_->taxEdit->setText(WideText(FormatTwoDecimals(default_tax)));
  }
  SetUpCoupons(update_server);
  SetUpInput();
}

ProductDialog::~ProductDialog() = default;

void ProductDialog::InsertTabs() {
  form_->tabBar->addTab(tr("Product"));
  form_->tabBar->addTab(tr("Notes"));
  form_->tabBar->setExpanding(true);
  connect(form_->tabBar, &QTabBar::currentChanged, this, &ProductDialog::OnTabChanged);
}

void ProductDialog::FillLists() {
  for (const PurchaseType& type : PurchaseTypes()) {
    form_->purchaseTypeBox->addItem(PurchaseTypeWords(type.text), type.code);
  }
  database_.FinishOpening();
  form_->purchaseTypeBox->setCurrentIndex(-1);  // a filled list would select its first item
  form_->unitTypeBox->Fill(database_.units());
  form_->storeBox->Fill(database_.stores());
  form_->categoryBox->Fill(database_.categories());
  SetUpDateField(*form_->purchaseDateEdit);
}

void ProductDialog::SetUpInput() {
  for (QWidget* field :
       {static_cast<QWidget*>(form_->productNameEdit), static_cast<QWidget*>(form_->unitTypeBox),
        static_cast<QWidget*>(form_->quantityEdit), static_cast<QWidget*>(form_->unitPriceEdit),
        static_cast<QWidget*>(form_->taxEdit), static_cast<QWidget*>(form_->categoryBox),
        static_cast<QWidget*>(form_->storeBox)}) {
    ShowInputPanelOnFocus(field);
  }
  for (QWidget* field :
       {static_cast<QWidget*>(form_->purchaseTypeBox), static_cast<QWidget*>(form_->dayBox),
        static_cast<QWidget*>(form_->purchaseDateEdit)}) {
    HideInputPanelOnFocus(field);
  }
  // Only what the user does counts: filling the form also moves the list's index.
  connect(form_->purchaseTypeBox, &QComboBox::activated, this,
          &ProductDialog::OnPurchaseTypeChanged);
  connect(form_->okButton, &QPushButton::clicked, this, &ProductDialog::Accept);
  connect(form_->cancelButton, &QPushButton::clicked, this, &ProductDialog::reject);
  // In the notes Enter is a line break.
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(QKeySequence(int(Qt::CTRL) | key), this), &QShortcut::activated, this,
            &ProductDialog::Accept);
  }
  form_->productNameEdit->setFocus();
}

void ProductDialog::SetUpCoupons(const std::string& update_server) {
  form_->slotsFrame->SetLines(LinedFrame::Lines::kAround);
  form_->searchFrame->SetLines(LinedFrame::Lines::kAround);
  const CouponButtons buttons{
      .slots = {form_->couponSlotButton1, form_->couponSlotButton2, form_->couponSlotButton3,
                form_->couponSlotButton4, form_->couponSlotButton5},
      .search = form_->findDiscountsButton};
  coupons_ = std::make_unique<CouponRow>(
      buttons, record_ ? record_->Discounts : DiscountSlots(), database_, update_server,
      [this] { return ReadForSearch(); }, this);
}

void ProductDialog::ShowRecord() {
  form_->productNameEdit->setText(WideText(record_->Name.view()));
  form_->productNameEdit->setCursorPosition(0);  // of a long name the beginning is shown
  ShowNotes(*form_->notesEdit, record_->Notes.view());
  const int code = PurchaseTypeCode(record_->PurchaseKind, record_->Every);
  form_->purchaseTypeBox->setCurrentIndex(form_->purchaseTypeBox->findData(code));
  form_->unitTypeBox->SelectId(record_->UnitId);
  form_->categoryBox->SelectId(record_->CategoryId);
  form_->storeBox->SelectId(record_->StoreId);
  form_->taxEdit->setText(AmountText(record_->TaxPercent));
  form_->quantityEdit->setText(QuantityText(record_->Quantity));
  form_->unitPriceEdit->setText(AmountText(record_->UnitPrice));
}

void ProductDialog::ShowSchedule() {
  const PurchaseType* type = FindPurchaseType(SelectedType());
  // A damaged record's schedule may be none of the type that its interval points at.
  if (type != nullptr && type->kind == record_->PurchaseKind) shown_type_ = type->code;
  const bool dated = record_->PurchaseKind == kOneTime || mode_ == kPurchaseMode;
  if (const DayChoice* choice = DayChoiceOfKind(record_->PurchaseKind)) {
    ShowDayField(*choice);
    form_->dayBox->setCurrentIndex(form_->dayBox->findText(QString::number(record_->DayValue)));
  }
  if (dated) {
    ShowDateField();
    ShowStamp(*form_->purchaseDateEdit, record_->StartDate);
  }
  if (mode_ == kPurchaseMode) {
    form_->purchaseTypeBox->setEnabled(false);
    form_->dayBox->hide();
  }
}

void ProductDialog::ShowDateField() {
  form_->scheduleLabel->setText(tr("Purchase Date:"));
  form_->scheduleLabel->setBuddy(form_->purchaseDateEdit);
  form_->scheduleLabel->show();
  form_->purchaseDateEdit->show();
}

void ProductDialog::ShowDayField(const DayChoice& choice) {
  form_->scheduleLabel->setText(PurchaseTypeWords(choice.label));
  form_->scheduleLabel->setBuddy(form_->dayBox);
  form_->scheduleLabel->show();
  form_->dayBox->clear();
  for (int day = 1; day <= choice.last; ++day) form_->dayBox->addItem(QString::number(day));
  form_->dayBox->setCurrentIndex(-1);
  form_->dayBox->show();
}

void ProductDialog::HideSchedule() {
  form_->scheduleLabel->hide();
  form_->purchaseDateEdit->hide();
  form_->dayBox->hide();
}

void ProductDialog::OnPurchaseTypeChanged() {
  if (SelectedType() == shown_type_) return;  // chosen again: the day stays
  shown_type_ = SelectedType();
  HideSchedule();
  const PurchaseType* type = FindPurchaseType(SelectedType());
  if (type == nullptr) return;
  if (const DayChoice* choice = DayChoiceOfKind(type->kind)) {
    ShowDayField(*choice);
  } else {
    ShowDateField();
  }
}

void ProductDialog::OnTabChanged(int index) {
  form_->pages->setCurrentWidget(index == kNotesTab ? form_->notesPage
                                                    : static_cast<QWidget*>(form_->scrollArea));
  if (index == kNotesTab) form_->notesEdit->setFocus();
}

int ProductDialog::SelectedType() const {
  const QVariant code = form_->purchaseTypeBox->currentData();
  return code.isValid() ? code.toInt() : kNoPurchaseType;
}

}  // namespace brovanta
