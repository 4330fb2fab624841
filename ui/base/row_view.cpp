#include "ui/base/row_view.h"

#include <QHeaderView>
#include <QPainter>
#include <QScroller>
#include <QTreeView>

#include "ui/base/theme.h"

namespace brovanta {

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

void PaintRowViewSigns(QTreeView& view, const QString& empty_text) {
  QPainter painter(view.viewport());
  const QRect ground = view.viewport()->rect();
  if (view.model()->rowCount() == 0 && !empty_text.isEmpty()) {
    constexpr int kMargin = 24;
    painter.setPen(theme::kQuietText);
    painter.drawText(ground.adjusted(kMargin, kMargin, -kMargin, -kMargin),
                     static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap,
                     empty_text);
  }
  if (view.hasFocus() && !CaretOf(view).isValid()) {
    painter.setPen(theme::kNavy);
    painter.drawRect(ground.adjusted(0, 0, -1, -1));
  }
}

}  // namespace brovanta
