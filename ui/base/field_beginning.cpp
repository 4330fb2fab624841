#include "ui/base/field_beginning.h"

#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLineEdit>
#include <utility>

namespace brovanta {
namespace {

/// Belongs to the widget that takes the focus for the line.
class BeginningOfLine : public QObject {
 public:
  BeginningOfLine(QWidget& field, QLineEdit& line) : QObject(&field), line_(line) {
    field.installEventFilter(this);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusOut) Leave(static_cast<QFocusEvent*>(event)->reason());
    if (event->type() == QEvent::FocusIn) Return(static_cast<QFocusEvent*>(event)->reason());
    return false;
  }

 private:
  // A field behind another window keeps what is selected in it.
  void Leave(Qt::FocusReason reason) {
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
    left_ = {line_.text(), line_.cursorPosition()};
    line_.setCursorPosition(0);
  }

  // Only who comes by himself says where he wants to be: by Tab, or with the mouse.
  void Return(Qt::FocusReason reason) {
    const Left left = std::exchange(left_, {});
    const bool is_sent = reason == Qt::OtherFocusReason || reason == Qt::PopupFocusReason;
    if (is_sent && left.text == line_.text()) line_.setCursorPosition(left.position);
  }

  /// How the line was left.
  struct Left {
    QString text;
    int position = 0;
  };

  QLineEdit& line_;
  Left left_;
};

}  // namespace

void ShowBeginningsOfLeftFields(QWidget& form) {
  for (QLineEdit* line : form.findChildren<QLineEdit*>()) {
    if (line->focusProxy() == nullptr) new BeginningOfLine(*line, *line);
  }
  for (QComboBox* list : form.findChildren<QComboBox*>()) {
    if (list->isEditable()) new BeginningOfLine(*list, *list->lineEdit());
  }
}

}  // namespace brovanta
