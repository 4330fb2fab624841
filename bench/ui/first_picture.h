// Ends the program that includes it when its first window stands: what the start-up benchmark waits
// for.
#pragma once

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace brovanta {

/// Watches every object of the application. When the first window has been painted and what that
/// queued has been done, it writes one byte to standard output and ends the process.
class EndAfterFirstPicture : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && !painted_) {
      const auto* const widget = qobject_cast<QWidget*>(object);
      painted_ = widget != nullptr && widget->isWindow();
      if (painted_)
        QTimer::singleShot(0, this, [] { _exit(write(STDOUT_FILENO, "!", 1) == 1 ? 0 : 1); });
    }
    return QObject::eventFilter(object, event);
  }

 private:
  bool painted_ = false;
};

}  // namespace brovanta

// The toolkit calls it when there is an application; its macro knows no namespaces.
static void EndApplicationAfterFirstPicture() {
  qApp->installEventFilter(new brovanta::EndAfterFirstPicture(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(EndApplicationAfterFirstPicture)
