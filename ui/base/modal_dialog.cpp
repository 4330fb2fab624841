#include "ui/base/modal_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScroller>
#include <QStyle>

#include "ui/base/field_beginning.h"
#include "ui/base/theme.h"
#include "ui/base/wheel_guard.h"

namespace brovanta {

namespace {
constexpr int kSmallScreenSide = 600;
constexpr QSize kOrdinarySize{360, 640};
constexpr QSize kLeastSize{200, 120};  // half of the lowest screen, beside its keyboard
constexpr int kLowestArea = 32;        // what is in it scrolls
constexpr int kLeastLetters = 5;       // of a list; forms give it what its texts need
}  // namespace

bool IsSmallScreen(const QScreen* screen) {
  if (screen == nullptr) return false;
  const QSize size = screen->geometry().size();
  return qMin(size.width(), size.height()) < kSmallScreenSide;
}

void EndDialogsOf(QWidget& window) {
  const QList<QDialog*> dialogs = window.findChildren<QDialog*>();
  for (auto dialog = dialogs.crbegin(); dialog != dialogs.crend(); ++dialog) {
    const bool own = qobject_cast<ModalDialog*>(*dialog) != nullptr;
    (*dialog)->done(own ? ModalDialog::kCancelled : QDialog::Rejected);
  }
}

bool EnterPressesFocusedButton(const QDialog& dialog, const QKeyEvent& event) {
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  auto* button = qobject_cast<QAbstractButton*>(dialog.focusWidget());
  if (!enter || button == nullptr || !button->isEnabled()) return false;
  if (!event.isAutoRepeat()) button->click();
  return true;
}

namespace {

/// A label speaks for the field that it stands before. The part of an editable list in which one
/// types is a field of its own to screen readers.
void NameTypedParts(QWidget& form) {
  for (const QLabel* label : form.findChildren<QLabel*>()) {
    const auto* box = qobject_cast<const QComboBox*>(label->buddy());
    if (box == nullptr || box->lineEdit() == nullptr) continue;
    QString name = label->text();
    if (name.endsWith(QLatin1Char(':'))) name.chop(1);
    box->lineEdit()->setAccessibleName(name);
  }
}

}  // namespace

ModalDialog::ModalDialog(QWidget* parent, int cancel_result)
    : QDialog(parent), cancel_result_(cancel_result) {
  setModal(true);
  connect(qApp, &QApplication::focusChanged, this, [this] { ShowFocus(*this); });
}

ModalDialog::~ModalDialog() {
  // The focus still moves while the parts of the dialog are destroyed.
  disconnect(qApp, nullptr, this, nullptr);
}

void ModalDialog::reject() { done(cancel_result_); }

void ModalDialog::setVisible(bool visible) {
  if (visible && !prepared_) {
    prepared_ = true;
    Prepare();
  }
  QDialog::setVisible(visible);
  // Shown, the dialog selects the text of its first field, which moves a long one to its end.
  auto* const field = qobject_cast<QLineEdit*>(focusWidget());
  if (visible && field != nullptr && field->hasSelectedText()) {
    const auto length = static_cast<int>(field->text().size());
    field->setSelection(length, -length);
  }
}

void ModalDialog::Prepare() {
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  NameTypedParts(*this);
  KeepFromTheWheel(*this);
  ShowBeginningsOfLeftFields(*this);
  for (QScrollArea* area : findChildren<QScrollArea*>()) {
    area->setFocusPolicy(Qt::NoFocus);
    if (area->minimumHeight() == 0) area->setMinimumHeight(kLowestArea);
    QScroller::grabGesture(area->viewport(), QScroller::TouchGesture);
  }
  for (QPlainTextEdit* notes : findChildren<QPlainTextEdit*>()) {
    notes->setMinimumHeight(kLowestArea);  // its own would take the place of the buttons
  }
  for (QComboBox* list : findChildren<QComboBox*>()) {
    if (list->isEditable()) continue;
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kLeastLetters);
  }
  for (QGridLayout* grid : findChildren<QGridLayout*>()) {
    const bool form = grid->objectName() == QLatin1String("contentLayout") ||
                      grid->objectName() == QLatin1String("fieldLayout");
    if (form) forms_.emplace_back(*grid);
  }
  if (minimumSize().isEmpty()) setMinimumSize(kLeastSize);
  if (IsSmallScreen(screen())) {
    setWindowState(windowState() | Qt::WindowFullScreen);
  } else if (!testAttribute(Qt::WA_Resized)) {
    resize(kOrdinarySize);
  }
}

void ModalDialog::keyPressEvent(QKeyEvent* event) {
  if (!EnterPressesFocusedButton(*this, *event)) QDialog::keyPressEvent(event);
}

void ModalDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  Arrange();
  ShowFocusLater();  // the on-screen keyboard takes the lower half away
}

bool ModalDialog::event(QEvent* event) {
  // A control asks for another size: its text is another, or the print.
  if (event->type() == QEvent::LayoutRequest && prepared_) Arrange();
  return QDialog::event(event);
}

void ModalDialog::ShowFocusLater() {
  const auto show = [this] { ShowFocus(*this); };
  // Once the areas have their new size, and again once what was arranged anew in them has its
  // place.
  QMetaObject::invokeMethod(
      this,
      [this, show] {
        show();
        QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
      },
      Qt::QueuedConnection);
}

void ModalDialog::Arrange() {
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  for (FormColumns& form : forms_) form.Fit(width() - bar);
  FitButtonLines(*this);
  FitTabs(*this);
  FitLabels(*this);
}

}  // namespace brovanta
