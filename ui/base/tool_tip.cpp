#include "ui/base/tool_tip.h"

#include <QFocusEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace brovanta {
namespace {

// A tap needs no help: it opens what it hits.
bool ByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

class FocusTip : public QObject {
 public:
  explicit FocusTip(QWidget* control) : QObject(control), control_(control) {
    control->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == control_ && event->type() == QEvent::FocusIn &&
        ByKeyboard(static_cast<QFocusEvent*>(event)->reason())) {
      // Queued: the changes of focus that are under way would take it off again.
      QMetaObject::invokeMethod(
          this, [this] { Show(); }, Qt::QueuedConnection);
    }
    if (watched == control_ && event->type() == QEvent::FocusOut) QToolTip::hideText();
    return QObject::eventFilter(watched, event);
  }

 private:
  void Show() {
    if (!control_->hasFocus()) return;
    QToolTip::showText(control_->mapToGlobal(control_->rect().bottomLeft()), control_->toolTip(),
                       control_);
  }

  QWidget* control_;
};

}  // namespace

QString ToolTipText(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void ShowToolTipOnFocus(QWidget* control) {
  new FocusTip(control);  // the control's from now on
}

}  // namespace brovanta
