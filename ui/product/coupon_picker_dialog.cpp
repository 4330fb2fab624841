#include "ui/product/coupon_picker_dialog.h"

#include <QStyle>
#include <QTimer>
#include <algorithm>

#include "ui/base/discount_tree.h"
#include "ui/base/filter_menu.h"
#include "ui/base/message_box.h"
#include "ui/base/narrow_form.h"
#include "ui/base/period_selector.h"
#include "ui/base/row_layout.h"
#include "ui/base/wide_text.h"
#include "ui/product/discount_dialog.h"
#include "ui/product/find_dialog.h"
#include "ui_coupon_picker.h"

namespace brovanta {
namespace {

constexpr HeadingBlanks kPickerBlanks{.unknown_date = 60, .without_change = 60};
constexpr int kLowestList = 72;
constexpr std::size_t kFirstCutCoupon = 20;
constexpr std::size_t kKeptOfCoupon = 17;
constexpr qsizetype kFirstCutStore = 9;
constexpr qsizetype kKeptOfStore = 6;

std::string CutCoupon(std::string_view name) {
  if (name.size() < kFirstCutCoupon) return std::string(name);
  return std::string(name.substr(0, kKeptOfCoupon)) + "..";
}

QString CutStore(const QString& name) {
  return name.size() < kFirstCutStore ? name : name.left(kKeptOfStore) + QLatin1String("..");
}

}  // namespace

CouponPickerDialog::CouponPickerDialog(ShoppingDatabase& database, const std::string& update_server,
                                       QWidget* parent)
    : ModalDialog(parent),
      database_(database),
      update_server_(update_server),
      form_(std::make_unique<Ui::PickerForm>()) {
  form_->setupUi(this);
  form_->headingFrame->SetLines(LinedFrame::Lines::kAround);
  form_->periodHeadingButton->SetAlignment(ColorButton::kPictureCentered, false);
  // The line that controls share on a wide screen must not keep the window from getting narrow.
  layout()->setSizeConstraint(QLayout::SetNoConstraint);
  form_->recordTree->setMinimumHeight(kLowestList);
  ScrollWhole(*this);
  layout()->setSizeConstraint(QLayout::SetNoConstraint);
  period_ =
      std::make_unique<PeriodSelector>(*form_->viewModeButton, *form_->periodHeadingButton, *this);
  stores_ =
      std::make_unique<NameFilter>(*form_->storeFilterButton, kStoreCommands, tr("All Stores"),
                                   ColorButton::kPictureLeft, Nameless::kPassedBy);
  categories_ = std::make_unique<NameFilter>(*form_->categoryFilterButton, kCategoryCommands,
                                             tr("All Categories"), ColorButton::kPictureRight,
                                             Nameless::kPassedBy);
  Connect();
  period_->UpdatePeriod();
  TakePeriod();
  if (ResetAndFill() != 0) {
    QTimer::singleShot(0, this, &CouponPickerDialog::ReportReadError);  // the dialog is open then
  }
  form_->recordTree->parentWidget()->installEventFilter(this);
  form_->recordTree->setFocus();
}

CouponPickerDialog::~CouponPickerDialog() {
  period_.reset();  // both work on controls of the form
  form_->recordTree->disconnect(this);
}

void CouponPickerDialog::Connect() {
  connect(period_.get(), &PeriodSelector::PeriodChosen, this, &CouponPickerDialog::OnPeriodChosen);
  connect(stores_.get(), &NameFilter::Chosen, this, &CouponPickerDialog::OnFilterChosen);
  connect(categories_.get(), &NameFilter::Chosen, this, &CouponPickerDialog::OnFilterChosen);
  connect(form_->recordTree, &RecordTree::CaretChanged, this, &CouponPickerDialog::OnCaretChanged);
  connect(form_->recordTree, &RecordTree::RecordChosen, this, &CouponPickerDialog::Select);
  connect(form_->pickerBar, &PickerBar::CommandChosen, this, &CouponPickerDialog::RunCommand);
  connect(form_->selectButton, &QPushButton::clicked, this, &CouponPickerDialog::Select);
  connect(form_->cancelButton, &QPushButton::clicked, this, &CouponPickerDialog::reject);
}

void CouponPickerDialog::TakePeriod() {
  filter_.valid_on = period_->period().start;
  filter_.started_since = period_->period().end;  // as the main screen's coupons are queried
}

int CouponPickerDialog::Fill() {
  const DiscountTreeLook look{
      .blanks = kPickerBlanks, .coupon_name = &CutCoupon, .store_name = &CutStore};
  const int code = FillDiscountTree(*form_->recordTree, database_, filter_, look);
  form_->recordTree->SetEmptyText(EmptyWords(code));
  form_->pickerBar->ShowFindText(WideText(filter_.text));
  OnCaretChanged();  // a rebuilt tree has no caret, and an empty one sends no signal
  return code;
}

// What the ground of an empty tree says.
QString CouponPickerDialog::EmptyWords(int code) const {
  if (code != 0 && database_.discounts().HasFile()) {
    return tr("The coupons could not be read") + QLatin1Char('\n') +
           tr("The program brovanta-data checks files and brings copies back.");
  }
  const QString period = PeriodWords(period_->view_mode());
  const bool narrowed = filter_.store_id != 0 || filter_.category_id != 0;
  if (!filter_.text.empty()) {
    const QString hint =
        narrowed
            ? tr("Find and Clear, All Stores and All Categories together show everything again.")
            : tr("Find and Clear show everything again.");
    return tr("Nothing found for \"%1\" %2").arg(ShortenedSearch(WideText(filter_.text)), period) +
           QLatin1Char('\n') + hint;
  }
  if (narrowed) {
    return tr("Nothing of this choice %1").arg(period) + QLatin1Char('\n') +
           tr("All Stores and All Categories show everything again.");
  }
  return tr("No coupons %1").arg(period) + QLatin1Char('\n') +
         tr("Add one with +, or choose another time above.");
}

void CouponPickerDialog::FillOrReport() {
  if (Fill() != 0) ReportReadError();
}

int CouponPickerDialog::ResetAndFill() {
  filter_.store_id = 0;
  filter_.category_id = 0;
  filter_.text.clear();
  stores_->Reset();
  categories_->Reset();
  const int code = Fill();
  stores_->BuildMenu(database_.discounts().StoresWithDiscounts());
  categories_->BuildMenu(database_.discounts().CategoriesWithDiscounts());
  return code;
}

void CouponPickerDialog::FullRefresh() {
  if (ResetAndFill() != 0) ReportReadError();
}

void CouponPickerDialog::ReportReadError() {
  ShowMessage(this, tr("There was an error while reading the database."));
}

void CouponPickerDialog::OnPeriodChosen() {
  TakePeriod();
  FullRefresh();
}

void CouponPickerDialog::OnFilterChosen(int command) {
  const bool category = command >= kCategoryCommands;
  const int first = category ? kCategoryCommands : kStoreCommands;
  const auto id = static_cast<std::uint32_t>(command - first);
  (category ? filter_.category_id : filter_.store_id) = id;
  const int code = Fill();
  if (category) {
    categories_->ShowChoice(command, database_.categories());
  } else {
    stores_->ShowChoice(command, database_.stores());
  }
  if (code != 0) ReportReadError();  // last: the program may be closed under the message
}

void CouponPickerDialog::OnCaretChanged() {
  const bool coupon = form_->recordTree->CaretInfo().has_value();
  form_->pickerBar->action(kPickerEdit)->setEnabled(coupon);
  form_->pickerBar->action(kPickerDelete)->setEnabled(coupon);
}

void CouponPickerDialog::RunCommand(int command) {
  switch (command) {
    case kPickerNew:
      return NewCoupon();
    case kPickerEdit:
      return EditCoupon();
    case kPickerDelete:
      return DeleteCoupon();
    case kPickerFind:
      return FindCoupon();
    default:
      return;
  }
}

void CouponPickerDialog::NewCoupon() {
  DiscountDialog dialog(nullptr, kNewDiscountMode, database_, update_server_, this);
  if (dialog.exec() == kCompleted) FullRefresh();
}

std::optional<DiscountRecord> CouponPickerDialog::Selected() const {
  const std::optional<TreeItemInfo> info = form_->recordTree->CaretInfo();
  if (!info) return std::nullopt;
  return database_.discounts().FindToChange(info->id, info->purchaseType);
}

void CouponPickerDialog::EditCoupon() {
  const std::optional<DiscountRecord> record = Selected();
  if (!record) return;
  DiscountDialog dialog(&*record, kEditDiscountMode, database_, update_server_, this);
  if (dialog.exec() == kCompleted) FullRefresh();
}

void CouponPickerDialog::DeleteCoupon() {
  const std::optional<TreeItemInfo> coupon = form_->recordTree->CaretInfo();
  if (!coupon) return;
  const QString question = tr("Do you want to permanently delete the selected coupon?");
  if (AskYesNo(this, question) != Answer::kYes) return;
  // The rebuilt tree shows the outcome.
  static_cast<void>(database_.discounts().Mark(coupon->id, coupon->purchaseType, kMarkDeleted));
  FullRefresh();
}

void CouponPickerDialog::FindCoupon() {
  std::optional<std::string> current;
  if (!filter_.text.empty()) current = filter_.text;
  FindTextDialog dialog(this, current);
  if (dialog.exec() != kCompleted) return;
  filter_.text = dialog.find_text().value_or(std::string());
  FillOrReport();
}

void CouponPickerDialog::Select() {
  if (!form_->recordTree->Caret().isValid()) {
    ShowMessage(this, tr("You must first select a coupon from the list to apply to "
                         "the current product."));
    return;
  }
  const std::optional<DiscountRecord> record = Selected();
  if (!record) {
    ShowMessage(this, tr("There was an error while applying the selected coupon to "
                         "the current product."));
    return;
  }
  picked_ = {static_cast<std::uint32_t>(record->Id), record->Source, record->Type};
  done(kCompleted);
}

bool CouponPickerDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return ModalDialog::eventFilter(watched, event);
}

bool CouponPickerDialog::ShareALine(int wanted, int room) const {
  return wanted <= room && height() < width();
}

int CouponPickerDialog::SelectorHeight(int room) const {
  const int period = form_->periodLayout->sizeHint().height();
  const FilterPlan filters = PlanFilters(*form_->filterLayout, room);
  const int wanted = WidthInARow(*form_->periodLayout) + filters.wanted;
  const QMargins around = form_->selectorLayout->contentsMargins();
  return around.top() + around.bottom() +
         (ShareALine(wanted, room) ? std::max(period, filters.height) : period + filters.height);
}

void CouponPickerDialog::Arrange() {
  ModalDialog::Arrange();
  // The list gets the height.
  SetInARow(*form_->bottomLayout,
            height() < width() && WidthInARow(*form_->bottomLayout) <= width());
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  form_->recordTree->setMinimumHeight(form_->recordTree->LeastHeight(kLowestList, width() - bar));
  // Reckoned for the whole width, as on the main screen: the scroll bar would change that.
  const int rest = form_->recordTree->parentWidget()->minimumSizeHint().height() -
                   form_->selectorLayout->minimumSize().height();
  const int room = rest + SelectorHeight(width()) > height() ? width() - bar : width();
  const int selectors =
      WidthInARow(*form_->periodLayout) + ArrangeFilters(*form_->filterLayout, room);
  SetInARow(*form_->selectorLayout, ShareALine(selectors, room));
}

}  // namespace brovanta
