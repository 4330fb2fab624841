// A part that the toolkit loads into the program: it closes the first window that is shown, as a
// click on its close box does.
#include <QGenericPlugin>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace {

class Closer : public QTimer {
 public:
  Closer() {
    callOnTimeout(this, [this] {
      for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (!window->isExposed()) continue;
        stop();
        window->close();
        return;
      }
    });
    start(10);
  }
};

class CloserPlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "closer.json")

 public:
  QObject* create(const QString& /*name*/, const QString& /*specification*/) override {
    return new Closer;
  }
};

}  // namespace

#include "closer.moc"
