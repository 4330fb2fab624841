#include "ui/base/field_beginning.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <utility>

namespace brovanta {
namespace {

/// The line of the field; nullptr for one that is being destroyed, which still loses the focus.
QLineEdit* LineOf(QObject* field) {
  if (const auto* list = qobject_cast<QComboBox*>(field)) return list->lineEdit();
  return qobject_cast<QLineEdit*>(field);
}

/// Belongs to the widget that takes the focus for the line.
class BeginningOfLine : public QObject {
 public:
  explicit BeginningOfLine(QWidget& field) : QObject(&field) { field.installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool leaves = event->type() == QEvent::FocusOut;
    if (!leaves && event->type() != QEvent::FocusIn) return false;
    QLineEdit* const line = LineOf(watched);
    if (line == nullptr) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (leaves) {
      Leave(*line, reason);
    } else {
      Return(*line, reason);
    }
    return false;
  }

 private:
  // A field behind another window keeps what is selected in it.
  void Leave(QLineEdit& line, Qt::FocusReason reason) {
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    left_ = {line.text(), line.cursorPosition()};
    line.setCursorPosition(0);
  }

  // Only who comes by himself says where he wants to be: by Tab, or with the mouse.
  void Return(QLineEdit& line, Qt::FocusReason reason) {
    const Left left = std::exchange(left_, {});
    const bool is_sent = reason == Qt::OtherFocusReason || reason == Qt::PopupFocusReason;
    if (is_sent && left.text == line.text()) line.setCursorPosition(left.position);
  }

  /// How the line was left.
  struct Left {
    QString text;
    int position = 0;
  };

  Left left_;
};

}  // namespace

void ShowBeginningsOfLeftFields(QWidget& form) {
  for (QLineEdit* line : form.findChildren<QLineEdit*>()) {
    if (line->focusProxy() == nullptr) new BeginningOfLine(*line);
  }
  for (QComboBox* list : form.findChildren<QComboBox*>()) {
    if (list->isEditable()) new BeginningOfLine(*list);
  }
}

}  // namespace brovanta
