#include "ui/base/wrapped_label.h"

#include <QPaintEvent>
#include <QPainter>
#include <QtMath>
#include <algorithm>

namespace brovanta {
namespace {

constexpr int kUsualWidth = 240;
constexpr int kNarrowest = 40;

// A text layout knows line breaks by a character of their own.
QString WithLineSeparators(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QLatin1Char('\r'), QChar(QChar::LineSeparator));
  return text.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator));
}

}  // namespace

WrappedLabel::WrappedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

int WrappedLabel::LayOut(int width) const {
  if (width == width_ && lines_.font() == font() && laid_out_ == text()) return height_;
  laid_out_ = text();
  width_ = width;
  lines_.setText(WithLineSeparators(laid_out_));
  lines_.setFont(font());
  QTextOption option(alignment() & Qt::AlignHorizontal_Mask);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  lines_.setTextOption(option);
  qreal height = 0;
  lines_.beginLayout();
  for (QTextLine line = lines_.createLine(); line.isValid(); line = lines_.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  lines_.endLayout();
  height_ = qCeil(height);
  return height_;
}

int WrappedLabel::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const int room = std::max(1, width - margins.left() - margins.right());
  return LayOut(room) + margins.top() + margins.bottom();
}

QSize WrappedLabel::sizeHint() const {
  const int natural = fontMetrics().size(0, text()).width() + 1;
  const int width = std::clamp(natural, kNarrowest, kUsualWidth);
  return {width, heightForWidth(width)};
}

QSize WrappedLabel::minimumSizeHint() const { return {kNarrowest, fontMetrics().height()}; }

void WrappedLabel::paintEvent(QPaintEvent* event) {
  const QRect room = contentsRect();
  LayOut(room.width());
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  lines_.draw(&painter, room.topLeft(), {}, event->rect());
}

}  // namespace brovanta
