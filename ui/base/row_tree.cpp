#include "ui/base/row_tree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScroller>

#include "ui/base/theme.h"

namespace brovanta {

RowTree::RowTree(QWidget* parent) : QTreeWidget(parent) {
  setColumnCount(1);
  header()->hide();
  setIndentation(0);
  setRootIsDecorated(false);
  setFrameShape(QFrame::NoFrame);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabKeyNavigation(false);
  QScroller::grabGesture(viewport(), QScroller::TouchGesture);
  connect(this, &QTreeWidget::itemSelectionChanged, this, &RowTree::CaretChanged);
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](QTreeWidgetItem* row) { Q_EMIT RowChosen(row); });
}

void RowTree::SetEmptyText(const QString& text) {
  empty_text_ = text;
  if (topLevelItemCount() == 0) viewport()->update();
}

QTreeWidgetItem* RowTree::Caret() const {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.first();
}

void RowTree::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  // The base takes the first row as its current one, and the next arrow key would pass it over.
  if (Caret() == nullptr) selectionModel()->clearCurrentIndex();
  viewport()->update();
}

void RowTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTreeWidget::keyPressEvent(event);
    return;
  }
  event->accept();
  if (QTreeWidgetItem* caret = Caret()) Q_EMIT RowChosen(caret);
}

void RowTree::paintEvent(QPaintEvent* event) {
  QTreeWidget::paintEvent(event);
  QPainter painter(viewport());
  if (topLevelItemCount() == 0 && !empty_text_.isEmpty()) {
    constexpr int kMargin = 24;
    painter.setPen(theme::kQuietText);
    painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                     static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap,
                     empty_text_);
  }
  if (hasFocus() && Caret() == nullptr) {
    painter.setPen(theme::kNavy);
    painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
  }
}

}  // namespace brovanta
