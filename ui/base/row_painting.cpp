#include "ui/base/row_painting.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>

#include "ui/base/theme.h"

namespace brovanta {
namespace {
constexpr int kSelectionBar = 3;
}  // namespace

QFont ScaledFont(QFont font, double scale) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * scale)));
  }
  return font;
}

QFont FittingFont(const QFont& font, const QString& text, int room, int least) {
  const auto taken = [&text](const QFont& tried) {
    return QFontMetrics(tried).horizontalAdvance(text) + 1;
  };
  QFont fitting = FittingFont(font, taken(font), room, least);
  // The widths of letters do not go with their heights to the pixel.
  for (int pixels = QFontInfo(fitting).pixelSize(); pixels > least && taken(fitting) > room;) {
    fitting.setPixelSize(--pixels);
  }
  return fitting;
}

QFont FittingFont(const QFont& font, int wanted, int room, int least) {
  if (wanted <= room) return font;
  const int pixels = QFontInfo(font).pixelSize();
  if (pixels <= least) return font;
  QFont smaller = font;
  smaller.setPixelSize(std::max(least, pixels * room / wanted));
  return smaller;
}

QFont RowFont(const QFont& font, int room) {
  constexpr int kLetters = 16;  // of which most words in a row have fewer
  const QString letters(kLetters, QLatin1Char('n'));
  return FittingFont(font, QFontMetrics(font).horizontalAdvance(letters), room);
}

QFont FontForWords(const QFont& font, const QString& text, int room) {
  static const QRegularExpression kBlank(QStringLiteral("\\s"));
  const QFontMetrics metrics(font);
  QString longest;
  for (const QString& word : text.split(kBlank)) {
    if (metrics.horizontalAdvance(word) > metrics.horizontalAdvance(longest)) longest = word;
  }
  return FittingFont(font, longest, room);
}

QFont BoldFont(QFont font) {
  font.setBold(true);
  return font;
}

void PaintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QColor& ground) {
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter.fillRect(option.rect, selected ? theme::kSelection : ground);
  if (!selected) return;
  QRect bar = option.rect;
  bar.setWidth(kSelectionBar);
  painter.fillRect(bar, theme::kNavy);
}

void PaintRowLine(QPainter& painter, const QRect& row, int indent) {
  QRect line = row;
  line.setTop(line.bottom());
  line.setLeft(line.left() + indent);
  painter.fillRect(line, theme::kLine);
}

void PaintRowText(QPainter& painter, const QFont& font, const QColor& color, const QRect& rect,
                  const QString& text, Qt::Alignment alignment) {
  painter.setFont(font);
  painter.setPen(color);
  const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width());
  painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                   shown);
}

RowLines TwoLines(const QRect& inner, int upper_height, int lower_height) {
  const int slack = std::max(0, inner.height() - upper_height - lower_height);
  return {
      {inner.left(), inner.top() + slack / 3, inner.width(), upper_height},
      {inner.left(), inner.bottom() + 1 - lower_height - slack / 3, inner.width(), lower_height}};
}

namespace {

/// A text at the right end of a line as it is painted.
struct SideText {
  QFont font;
  int width = 0;
};

SideText SideTextIn(int row_width, const QFont& font, const QString& text) {
  const int most = static_cast<int>(row_width * kSideTextShare);
  const QFont fitting = FittingFont(font, text, most);
  const int wanted = QFontMetrics(fitting).horizontalAdvance(text) + 1;
  return {fitting, std::min(wanted, most)};
}

}  // namespace

QRect PaintSideText(QPainter& painter, const QFont& font, const QColor& color, const QRect& line,
                    int row_width, const QString& text) {
  if (text.isEmpty()) return line;
  const SideText side = SideTextIn(row_width, font, text);
  PaintRowText(painter, side.font, color,
               {line.right() + 1 - side.width, line.top(), side.width, line.height()}, text,
               Qt::AlignRight);
  return line.adjusted(0, 0, -side.width - kRowGap, 0);
}

int RoomBesideSideText(const QFont& font, const QRect& line, int row_width, const QString& text) {
  if (text.isEmpty()) return line.width();
  return line.width() - SideTextIn(row_width, font, text).width - kRowGap;
}

}  // namespace brovanta
