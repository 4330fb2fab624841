#include "ui/base/reading_area.h"

#include <QEvent>
#include <QPainter>

#include "ui/base/theme.h"

namespace brovanta {

ReadingArea::ReadingArea(QWidget* parent) : QScrollArea(parent) {
  setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
}

bool ReadingArea::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QScrollArea::event(event);
  if (hasFocus()) {
    QPainter painter(this);
    painter.setPen(theme::kNavy);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  return true;
}

}  // namespace brovanta
