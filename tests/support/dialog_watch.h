// Works in the next dialog that opens.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace brovanta::test {

/// Waits for the next modal dialog or message box that opens over a window, or for the one that is
/// given, and works in it as soon as it runs. Once; several objects wait for the same one.
class DialogWatch : public QObject {
 public:
  explicit DialogWatch(std::function<void(QWidget&)> work, QWidget* dialog = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(QWidget&)> work_;
  QWidget* const dialog_;
};

}  // namespace brovanta::test
