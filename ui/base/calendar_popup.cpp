#include "ui/base/calendar_popup.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/base/calendar_looks.h"
#include "ui/base/period.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {
constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr QSize kFingerSize{328, 312};  // every date a finger wide and high
}  // namespace

CalendarPopup::CalendarPopup(QWidget& screen, int control_id)
    : QWidget(&screen), screen_(screen), control_id_(control_id), frame_(new QWidget(this)) {
  SetDate(TodayDate());
  setObjectName(QStringLiteral("calendarPopup"));
  setAccessibleName(tr("Calendar"));
  frame_->setObjectName(QStringLiteral("calendarFrame"));
  frame_->setAutoFillBackground(true);
  hide();
  screen.installEventFilter(this);
}

void CalendarPopup::MakeCalendar() {
  calendar_ = new QCalendarWidget(frame_);
  calendar_->setObjectName(QStringLiteral("calendar"));
  calendar_->setProperty("controlId", control_id_);
  auto* layout = new QVBoxLayout(frame_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(calendar_);
  DressCalendar(*calendar_);
  connect(calendar_, &QCalendarWidget::clicked, this, &CalendarPopup::Choose);
  connect(calendar_, &QCalendarWidget::activated, this, &CalendarPopup::Choose);
}

void CalendarPopup::Open(const QWidget& anchor) {
  if (calendar_ == nullptr) MakeCalendar();
  focus_before_ = QApplication::focusWidget();
  QTextCharFormat today;
  today.setFontWeight(QFont::Bold);
  today.setFontUnderline(true);
  calendar_->setSelectedDate(date_);
  calendar_->setDateTextFormat({}, {});
  calendar_->setDateTextFormat(TodayDate(), today);
  calendar_->showSelectedDate();
  anchor_bottom_ = anchor.mapTo(&screen_, QPoint(0, anchor.height())).y();
  Place();
  show();
  raise();
  calendar_->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::SetDate(QDate date) {
  date_ = qBound(FirstPickableDate(), date, LastPickableDate());
}

void CalendarPopup::Place() {
  setGeometry(screen_.rect());
  const QSize room = size() - QSize(2 * kMargin, 2 * kMargin);
  if (calendar_ != nullptr) FitCalendar(*calendar_, std::min(room.width(), kFingerSize.width()));
  const QSize taken = frame_->sizeHint().expandedTo(kFingerSize).boundedTo(room);
  const int left = (width() - taken.width()) / 2;
  const int top = std::min(anchor_bottom_ + kGap, height() - kMargin - taken.height());
  frame_->setGeometry({{left, std::max(kMargin, top)}, taken});
}

void CalendarPopup::Choose(QDate date) {
  if (!isVisible()) return;  // the second half of a double click
  date_ = date;
  Close();
  Q_EMIT Chosen();
}

void CalendarPopup::Close() {
  hide();
  if (focus_before_ != nullptr) focus_before_->setFocus(Qt::PopupFocusReason);
}

bool CalendarPopup::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

bool CalendarPopup::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &screen_ && event->type() == QEvent::Resize && isVisible()) Place();
  return QWidget::eventFilter(watched, event);
}

bool CalendarPopup::focusNextPrevChild(bool next) {
  QWidget* start = QApplication::focusWidget();
  if (start == nullptr || !isAncestorOf(start)) return false;
  QWidget* widget = start;
  do {
    widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    const bool takes_focus = isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
                             (widget->focusPolicy() & Qt::TabFocus) != 0;
    if (takes_focus && widget->focusProxy() == nullptr) {
      widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
      return true;
    }
  } while (widget != start);
  return true;
}

void CalendarPopup::keyPressEvent(QKeyEvent* event) {
  event->accept();  // nothing reaches the screen below
  if (event->key() == Qt::Key_Escape) Close();
}

void CalendarPopup::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (!frame_->geometry().contains(event->position().toPoint())) Close();
}

void CalendarPopup::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), theme::kVeil);
  painter.fillRect(frame_->geometry().adjusted(-1, -1, 1, 1), theme::kNavy);
}

}  // namespace brovanta
