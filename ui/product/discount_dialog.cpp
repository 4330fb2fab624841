#include "ui/product/discount_dialog.h"

#include <QLineEdit>
#include <QShortcut>
#include <set>

#include "ui/base/color_button.h"
#include "ui/base/input_panel.h"
#include "ui/base/message_box.h"
#include "ui/base/notes_field.h"
#include "ui/base/row_layout.h"
#include "ui/base/theme.h"
#include "ui/base/wide_text.h"
#include "ui/product/product_numbers.h"
#include "ui_133_discount.h"

namespace brovanta {
namespace {

constexpr int kNotesTab = 1;
constexpr std::int16_t kCouponSource = 1;
constexpr std::int16_t kDealSource = 2;
constexpr int kLowestForm = 56;   // a field and a little around it
constexpr int kOverApplyBox = 4;  // as in the form

/// Selects the item with this data, nothing when there is none.
void SelectData(QComboBox& box, int data) { box.setCurrentIndex(box.findData(data)); }

}  // namespace

std::string DiscountPage(const std::string& update_server, std::int32_t id, std::int16_t source) {
  const std::string host = update_server.substr(0, update_server.find_last_not_of('/') + 1);
  if (source == kCouponSource) return host + "/coupons/coupon.aspx?srcId=" + std::to_string(id);
  if (source == kDealSource) return host + "/coupons/deal.aspx?srcId=" + std::to_string(id);
  return {};
}

DiscountDialog::DiscountDialog(const DiscountRecord* record, int mode, ShoppingDatabase& database,
                               const std::string& update_server, QWidget* parent)
    : ModalDialog(parent),
      database_(database),
      update_server_(update_server),
      form_(std::make_unique<Ui::DiscountForm>()) {
  if (record != nullptr) record_ = *record;
  form_->setupUi(this);
  InsertTabs();
  PaintLabels();
  FillLists();
  FillProducts();
  form_->viewButton->setVisible(record_ && record_->Source > 0);
  if (record_) ShowRecord();
  ShowMode(mode);
  SetUpInput();
}

DiscountDialog::~DiscountDialog() = default;

void DiscountDialog::InsertTabs() {
  form_->tabBar->addTab(tr("Coupon"));
  form_->tabBar->addTab(tr("Notes"));
  form_->tabBar->setExpanding(true);
  connect(form_->tabBar, &QTabBar::currentChanged, this, &DiscountDialog::OnTabChanged);
}

void DiscountDialog::PaintLabels() {
  for (QLabel* label : form_->content->findChildren<QLabel*>()) InkWithAccent(*label);
}

void DiscountDialog::FillLists() {
  form_->typeBox->addItem(tr("Internet Code"), 1);
  form_->typeBox->addItem(tr("Store Coupon"), 2);
  form_->typeBox->addItem(tr("Mail In Rebate"), 3);
  form_->valueTypeBox->addItem(tr("Percent (%)"), 1);
  form_->valueTypeBox->addItem(tr("Amount ($)"), 2);
  form_->typeBox->setCurrentIndex(-1);  // a filled list would select its first item
  form_->valueTypeBox->setCurrentIndex(-1);
  database_.FinishOpening();
  form_->storeBox->FillSorted(database_.stores());
  form_->categoryBox->FillSorted(database_.categories());
  form_->startDateEdit->SetName(tr("Start date"), tr("Has a start date"));
  form_->endDateEdit->SetName(tr("End date"), tr("Has an end date"));
}

// What the shown discounts are for; the field takes any other text as well.
void DiscountDialog::FillProducts() {
  std::set<QString> texts;
  DiscountList& discounts = database_.discounts();
  for (const DiscountRecord* known = discounts.First(); known != nullptr;
       known = discounts.Next()) {
    if (!known->Product.empty()) texts.insert(WideText(known->Product.view()));
  }
  form_->productBox->addItem(QString());
  form_->productBox->setItemData(0, tr("none"), Qt::AccessibleTextRole);
  for (const QString& text : texts) form_->productBox->addItem(text);
}

void DiscountDialog::ShowRecord() {
  form_->couponNameEdit->setText(WideText(record_->Name.view()));
  form_->couponNameEdit->setCursorPosition(0);  // of a long name the beginning is shown
  SelectData(*form_->typeBox, record_->Type);
  SelectData(*form_->valueTypeBox, record_->ValueType);
  form_->storeBox->SelectId(record_->StoreId);
  form_->categoryBox->SelectId(record_->CategoryId);
  form_->productBox->setEditText(WideText(record_->Product.view()));
  form_->productBox->lineEdit()->setCursorPosition(0);
  form_->valueEdit->setText(AmountText(record_->Value));
  form_->startDateEdit->ShowStamp(record_->StartDate);
  form_->endDateEdit->ShowStamp(record_->EndDate);
  ShowNotes(*form_->notesEdit, record_->Description.view());
}

void DiscountDialog::ShowMode(int mode) {
  const bool from_product = mode == kApplyDiscountMode || mode == kAppliedDiscountMode;
  if (from_product) form_->viewButton->hide();
  form_->applyRow->setVisible(from_product);
  form_->applyBox->setChecked(mode == kAppliedDiscountMode);
}

void DiscountDialog::SetUpInput() {
  for (QWidget* field :
       {static_cast<QWidget*>(form_->couponNameEdit), static_cast<QWidget*>(form_->valueEdit),
        static_cast<QWidget*>(form_->typeBox), static_cast<QWidget*>(form_->valueTypeBox),
        static_cast<QWidget*>(form_->productBox), static_cast<QWidget*>(form_->storeBox),
        static_cast<QWidget*>(form_->categoryBox)}) {
    ShowInputPanelOnFocus(field);
  }
  connect(form_->viewButton, &QPushButton::clicked, this, &DiscountDialog::ViewOnTheWeb);
  connect(form_->okButton, &QPushButton::clicked, this, &DiscountDialog::Accept);
  connect(form_->cancelButton, &QPushButton::clicked, this, &DiscountDialog::reject);
  // In the notes Enter is a line break.
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(QKeySequence(int(Qt::CTRL) | key), this), &QShortcut::activated, this,
            &DiscountDialog::Accept);
  }
  form_->couponNameEdit->setFocus();
}

void DiscountDialog::Arrange() {
  ModalDialog::Arrange();
  if (form_->applyRow->isHidden()) return;
  const ApplyPlace place = FittingApplyPlace();
  if (place != apply_place_) PutApplyRow(place);
}

// OK without the tick empties a slot that the search filled, so the box must not have to be looked
// for as long as there is room for it.
DiscountDialog::ApplyPlace DiscountDialog::FittingApplyPlace() const {
  const WrappedCheckBox& box = *form_->applyBox;
  const QSize buttons = form_->buttonRow->sizeHint();
  const int room = height() - form_->tabBar->sizeHint().height() - kLowestForm;
  const int above = kOverApplyBox + box.heightForWidth(width() - 2 * theme::kMargin);
  if (above + buttons.height() <= room) return ApplyPlace::kAboveButtons;
  const QMargins around = form_->buttonLayout->contentsMargins();
  const int beside = width() - around.left() - buttons.width();
  const int high = around.top() + box.heightForWidth(beside) + around.bottom();
  const bool in_a_row = box.minimumSizeHint().width() <= beside && high <= room;
  return in_a_row && buttons.height() <= room ? ApplyPlace::kBesideButtons : ApplyPlace::kInForm;
}

QMargins DiscountDialog::AroundApplyBox(ApplyPlace place) const {
  const QMargins buttons = form_->buttonLayout->contentsMargins();
  switch (place) {
    case ApplyPlace::kAboveButtons:
      return {theme::kMargin, kOverApplyBox, theme::kMargin, 0};
    case ApplyPlace::kBesideButtons:
      return {theme::kMargin, buttons.top(), 0, buttons.bottom()};
    case ApplyPlace::kInForm:
      return {0, kOverApplyBox, 0, 0};
  }
  return {};
}

void DiscountDialog::PutApplyRow(ApplyPlace place) {
  const bool had_focus = form_->applyBox->hasFocus();
  const bool beside = place == ApplyPlace::kBesideButtons;
  if (place == ApplyPlace::kInForm) {
    form_->scrolledLayout->addWidget(form_->applyRow);
  } else {
    form_->bottomLayout->insertWidget(0, form_->applyRow, beside ? 1 : 0);
  }
  form_->applyLayout->setContentsMargins(AroundApplyBox(place));
  SetInARow(*form_->bottomLayout, beside);
  form_->applyRow->show();
  if (had_focus) form_->applyBox->setFocus();
  apply_place_ = place;
  ShowFocusLater();
}

void DiscountDialog::OnTabChanged(int index) {
  form_->pages->setCurrentWidget(index == kNotesTab ? form_->notesPage
                                                    : static_cast<QWidget*>(form_->scrollArea));
  if (index == kNotesTab) form_->notesEdit->setFocus();
}

void DiscountDialog::ViewOnTheWeb() {
  const std::string page = DiscountPage(update_server_, record_->Id, record_->Source);
  if (OpenWebAddress(QString::fromStdString(page))) return;
  ShowMessage(this, tr("There was an error while opening the selected coupon in "
                       "Internet Explorer."));
}

}  // namespace brovanta
