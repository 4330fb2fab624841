#include "ui/base/modal_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScroller>

namespace brovanta {

namespace {
constexpr int kSmallScreenSide = 600;
constexpr QSize kOrdinarySize{360, 640};
constexpr QSize kLeastSize{200, 200};
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
  connect(qApp, &QApplication::focusChanged, this, &ModalDialog::KeepFocusVisible);
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
}

void ModalDialog::Prepare() {
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  NameTypedParts(*this);
  for (QScrollArea* area : findChildren<QScrollArea*>()) {
    area->setFocusPolicy(Qt::NoFocus);
    QScroller::grabGesture(area->viewport(), QScroller::TouchGesture);
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
  KeepFocusVisible();  // the on-screen keyboard takes the lower half away
}

void ModalDialog::KeepFocusVisible() {
  QWidget* focus = focusWidget();
  if (focus == nullptr || !isVisible()) return;
  for (QWidget* parent = focus->parentWidget(); parent != nullptr && parent != this;
       parent = parent->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(focus, 0, 8);
  }
}

}  // namespace brovanta
