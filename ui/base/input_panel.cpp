#include "ui/base/input_panel.h"

#include <QEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QWidget>

namespace brovanta {

namespace {

void PlatformPanel(bool show) {
  QInputMethod* method = QGuiApplication::inputMethod();
  if (show) {
    method->show();
  } else {
    method->hide();
  }
}

InputPanelHandler current_handler = &PlatformPanel;

/// Watches one widget. The edit fields of combo boxes and date pickers hand the focus to the widget
/// around them, so it is that one that is watched.
class FocusWatcher : public QObject {
 public:
  FocusWatcher(QWidget* widget, bool show) : QObject(widget), show_(show) {
    widget->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == parent() && event->type() == QEvent::FocusIn) ShowInputPanel(show_);
    return false;
  }

 private:
  bool show_;
};

}  // namespace

InputPanelHandler SetInputPanelHandler(InputPanelHandler handler) {
  const InputPanelHandler before = current_handler;
  current_handler = handler == nullptr ? &PlatformPanel : handler;
  return before;
}

void ShowInputPanel(bool show) { current_handler(show); }

void ShowInputPanelOnFocus(QWidget* widget) { new FocusWatcher(widget, true); }

void HideInputPanelOnFocus(QWidget* widget) { new FocusWatcher(widget, false); }

}  // namespace brovanta
