#include "ui/base/row_view.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPainter>
#include <QScroller>
#include <QTreeView>
#include <algorithm>

#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

constexpr int kAroundWords = 24;
constexpr int kLeastAroundWords = 6;  // on a ground with little room
constexpr int kLineGap = 6;
constexpr int kHow = static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap;

/// What an empty list says: how it is, and what can be done about it.
struct EmptyWords {
  QString head;
  QString rest;
  QFont font;
  int around = kAroundWords;

  [[nodiscard]] QRect Room(const QRect& ground) const {
    return ground.adjusted(around, around, -around, -around);
  }
  [[nodiscard]] int HeadHeight(const QRect& room) const {
    return QFontMetrics(BoldFont(font)).boundingRect(room, kHow, head).height();
  }
  [[nodiscard]] QRect Below(const QRect& room) const {
    return QFontMetrics(font).boundingRect(room, kHow, rest);
  }
  [[nodiscard]] int Height(const QRect& room) const {
    return HeadHeight(room) + (rest.isEmpty() ? 0 : kLineGap + Below(room).height());
  }
  [[nodiscard]] bool Fit(const QRect& ground) const {
    const QRect room = Room(ground);
    return Height(room) <= room.height() && Below(room).width() <= room.width();
  }
  /// With less ground around them where there is little, and then in smaller letters.
  void MakeFit(const QRect& ground) {
    if (Fit(ground)) return;
    around = kLeastAroundWords;
    int pixels = QFontInfo(font).pixelSize();
    while (pixels > theme::kLeastTextPixels && !Fit(ground)) font.setPixelSize(--pixels);
    if (!Fit(ground)) rest.clear();  // what can be done; it is described to screen readers as well
  }
};

EmptyWords WordsOf(const QString& text, const QFont& font) {
  return {text.section(QLatin1Char('\n'), 0, 0), text.section(QLatin1Char('\n'), 1), font};
}

void PaintEmptyText(QPainter& painter, const QRect& ground, const QString& text) {
  EmptyWords words = WordsOf(text, painter.font());
  words.MakeFit(ground);
  const QRect room = words.Room(ground);
  painter.setFont(BoldFont(words.font));
  painter.setPen(theme::kText);
  painter.drawText(room, kHow, words.head);
  painter.setFont(words.font);
  painter.setPen(theme::kQuietText);
  painter.drawText(room.adjusted(0, words.HeadHeight(room) + kLineGap, 0, 0), kHow, words.rest);
}

}  // namespace

void SetUpRowView(QTreeView& view) {
  view.header()->hide();
  view.setIndentation(0);
  view.setRootIsDecorated(false);
  view.setFrameShape(QFrame::NoFrame);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view.setTabKeyNavigation(false);
  QScroller::grabGesture(view.viewport(), QScroller::TouchGesture);
}

QModelIndex CaretOf(const QTreeView& view) {
  const QModelIndexList selected = view.selectionModel()->selectedIndexes();
  return selected.isEmpty() ? QModelIndex() : selected.first();
}

void DropFocusRow(QTreeView& view) {
  if (!CaretOf(view).isValid()) view.selectionModel()->clearCurrentIndex();
  view.viewport()->update();
}

void DescribeEmptyView(QTreeView& view, const QString& empty_text) {
  view.setAccessibleDescription(view.model()->rowCount() == 0 ? empty_text : QString());
}

int EmptyTextHeight(const QTreeView& view, const QString& empty_text, int width) {
  EmptyWords words = WordsOf(empty_text, view.font());
  const int pixels = QFontInfo(words.font).pixelSize();
  words.font.setPixelSize(std::min(pixels, theme::kLeastTextPixels));
  words.around = kLeastAroundWords;
  const QRect room = words.Room({0, 0, width, QWIDGETSIZE_MAX});
  return words.Height(room) + 2 * (words.around + view.frameWidth());
}

void PaintRowViewSigns(QTreeView& view, const QString& empty_text) {
  QPainter painter(view.viewport());
  const QRect ground = view.viewport()->rect();
  if (view.model()->rowCount() == 0) PaintEmptyText(painter, ground, empty_text);
  if (!view.hasFocus()) return;
  const QModelIndex caret = CaretOf(view);
  const QRect framed = caret.isValid() ? view.visualRect(caret) : ground;
  painter.setPen(theme::kNavy);
  painter.drawRect(framed.adjusted(0, 0, -1, -1));
}

}  // namespace brovanta
