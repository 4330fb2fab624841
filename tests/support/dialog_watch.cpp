#include "tests/support/dialog_watch.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTimer>
#include <utility>

namespace brovanta::test {

DialogWatch::DialogWatch(std::function<void(QWidget&)> work, QWidget* wanted)
    : work_(std::move(work)), dialog_(wanted) {
  qApp->installEventFilter(this);
}

bool DialogWatch::eventFilter(QObject* watched, QEvent* event) {
  auto* dialog = qobject_cast<QDialog*>(watched);
  const bool opens = event->type() == QEvent::Show && dialog != nullptr && dialog->isModal() &&
                     (dialog_ == nullptr ? dialog->parentWidget() != nullptr : dialog == dialog_);
  if (opens) {
    qApp->removeEventFilter(this);
    // Queued, so that the dialog has started its own loop.
    QTimer::singleShot(0, dialog, [work = work_, dialog] { work(*dialog); });
  }
  return false;
}

}  // namespace brovanta::test
