// Notices that the local day has changed while the program runs.
#pragma once

#include <QBasicTimer>
#include <QDate>
#include <QObject>

class QWidget;

namespace brovanta {

/// Looks at the program's clock once a minute and whenever its screen becomes the active window
/// (the device may have slept). While another window of the program is open the news waits.
class DayWatch : public QObject {
  Q_OBJECT

 public:
  explicit DayWatch(QWidget& screen);

  void Stop() { timer_.stop(); }
  [[nodiscard]] int timer_id() const { return timer_.timerId(); }

 Q_SIGNALS:
  /// Today is another date than `before`, or another moment: the time zone may have changed.
  void DayChanged(QDate before);

 protected:
  void timerEvent(QTimerEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Look();

  QWidget& screen_;
  QBasicTimer timer_;
  QDate today_;
  std::int32_t today_stamp_;
};

}  // namespace brovanta
