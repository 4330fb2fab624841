#include "ui/shell/day_watch.h"

#include <QApplication>
#include <QTimerEvent>
#include <QWidget>
#include <utility>

#include "ui/base/period.h"

namespace brovanta {
namespace {
constexpr int kMinute = 60'000;
}  // namespace

DayWatch::DayWatch(QWidget& screen)
    : QObject(&screen), screen_(screen), today_(TodayDate()), today_stamp_(TodayStamp()) {
  timer_.start(kMinute, Qt::VeryCoarseTimer, this);
  screen.installEventFilter(this);
}

void DayWatch::timerEvent(QTimerEvent* event) {
  if (event->timerId() == timer_.timerId()) Look();
}

bool DayWatch::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &screen_ && event->type() == QEvent::WindowActivate && timer_.isActive()) Look();
  return QObject::eventFilter(watched, event);
}

void DayWatch::Look() {
  const QWidget* modal = QApplication::activeModalWidget();
  const bool busy =
      QApplication::activePopupWidget() != nullptr || (modal != nullptr && modal != &screen_);
  if (busy || TodayStamp() == today_stamp_) return;
  today_stamp_ = TodayStamp();
  const QDate before = std::exchange(today_, TodayDate());
  Q_EMIT DayChanged(before);
}

}  // namespace brovanta
