#include "ui/base/lined_frame.h"

#include <QPainter>

#include "ui/base/theme.h"

namespace brovanta {

LinedFrame::LinedFrame(QWidget* parent, Lines lines) : QFrame(parent), lines_(lines) {
  setFrameShape(QFrame::NoFrame);
}

void LinedFrame::SetLines(Lines lines) {
  lines_ = lines;
  update();
}

void LinedFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (lines_ == Lines::kAround) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme::kLine);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius,
                            theme::kRadius);
    return;
  }
  painter.fillRect(rect(), theme::kBar);
  const int y = lines_ == Lines::kAbove ? 0 : height() - 1;
  painter.fillRect(0, y, width(), 1, theme::kLine);
}

}  // namespace brovanta
