#include "ui/base/row_view.h"

#include <QHeaderView>
#include <QPainter>
#include <QScroller>
#include <QTreeView>

#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {

namespace {

/// The first line says how the list is, what follows what can be done about it.
void PaintEmptyText(QPainter& painter, const QRect& ground, const QString& text) {
  constexpr int kMargin = 24;
  constexpr int kLineGap = 6;
  constexpr int kHow = static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap;
  const QRect room = ground.adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QFont font = painter.font();
  QRect head;
  painter.setFont(BoldFont(font));
  painter.setPen(theme::kText);
  painter.drawText(room, kHow, text.section(QLatin1Char('\n'), 0, 0), &head);
  painter.setFont(font);
  painter.setPen(theme::kQuietText);
  painter.drawText(room.adjusted(0, head.height() + kLineGap, 0, 0), kHow,
                   text.section(QLatin1Char('\n'), 1));
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
