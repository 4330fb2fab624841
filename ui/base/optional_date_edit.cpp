#include "ui/base/optional_date_edit.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QMouseEvent>

#include "ui/base/date_field.h"
#include "ui/base/input_panel.h"
#include "ui/base/period.h"
#include "ui/base/row_painting.h"

namespace brovanta {
namespace {
constexpr int kLeastWidth = 120;  // of the date
}  // namespace

OptionalDateEdit::OptionalDateEdit(QWidget* parent)
    : QWidget(parent), check_box_(new QCheckBox(this)), date_edit_(new QDateEdit(this)) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(check_box_);
  layout->addWidget(date_edit_, 1);
  date_edit_->setMinimumWidth(kLeastWidth);
  check_box_->setObjectName(QStringLiteral("hasDateBox"));
  date_edit_->setObjectName(QStringLiteral("dateEdit"));
  SetUpDateField(*date_edit_);
  setFocusProxy(check_box_);
  HideInputPanelOnFocus(check_box_);
  HideInputPanelOnFocus(date_edit_);
  connect(check_box_, &QCheckBox::toggled, this, &OptionalDateEdit::OnToggled);
  OnToggled(false);
}

void OptionalDateEdit::ShowStamp(DateStamp stamp) {
  if (stamp >= 1) date_ = DateOfStamp(stamp);
  check_box_->setChecked(stamp >= 1);
  if (stamp >= 1) date_edit_->setDate(date_);
}

DateStamp OptionalDateEdit::Stamp() const {
  return check_box_->isChecked() ? StampOfPickedDay(date_edit_->date()) : kNoDate;
}

void OptionalDateEdit::SetName(const QString& name, const QString& check_name) {
  check_box_->setAccessibleName(check_name);
  check_box_->setToolTip(check_name);
  date_edit_->setAccessibleName(name);
}

void OptionalDateEdit::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitDate();
}

void OptionalDateEdit::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) FitDate();
}

// Large print gets smaller where the whole date would not be seen.
void OptionalDateEdit::FitDate() {
  constexpr int kAround = 48;  // arrow and margins of the date, gap before it
  const int room = width() - check_box_->sizeHint().width() - kAround;
  const QFont fitting = FittingFont(font(), QStringLiteral("00/00/0000"), room);
  if (date_edit_->font() != fitting) date_edit_->setFont(fitting);
}

// Presses on the greyed picker arrive here.
void OptionalDateEdit::mousePressEvent(QMouseEvent* event) {
  if (check_box_->isChecked() || event->button() != Qt::LeftButton) {
    QWidget::mousePressEvent(event);
    return;
  }
  check_box_->setChecked(true);
  date_edit_->setFocus();
}

// An empty picker shows its special text, which stands for its first date; a picked date, the first
// one included, is shown as it is.
void OptionalDateEdit::OnToggled(bool dated) {
  if (!dated) date_ = date_edit_->date();
  date_edit_->setSpecialValueText(dated ? QString() : tr("none"));
  date_edit_->setDate(dated ? date_ : date_edit_->minimumDate());
  date_edit_->setEnabled(dated);
}

}  // namespace brovanta
