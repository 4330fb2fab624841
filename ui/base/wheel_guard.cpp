#include "ui/base/wheel_guard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

namespace brovanta {
namespace {

class WheelGuard : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    if (static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();  // so that it goes on to what is around the field
    return true;
  }
};

}  // namespace

void KeepFromTheWheel(QWidget& form) {
  auto* guard = new WheelGuard(&form);
  const auto cover = [guard](QWidget* field) {
    if (field->focusPolicy() == Qt::WheelFocus) field->setFocusPolicy(Qt::StrongFocus);
    field->installEventFilter(guard);
  };
  for (QComboBox* field : form.findChildren<QComboBox*>()) cover(field);
  for (QAbstractSpinBox* field : form.findChildren<QAbstractSpinBox*>()) cover(field);
}

}  // namespace brovanta
