#include "ui/base/record_tree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QScroller>
#include <QSignalBlocker>
#include <algorithm>

#include "ui/base/record_delegate.h"
#include "ui/base/theme.h"

namespace brovanta {

RecordTree::RecordTree(QWidget* parent)
    : QTreeWidget(parent), delegate_(new RecordDelegate(*this)) {
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
  setItemDelegate(delegate_);
  QScroller::grabGesture(viewport(), QScroller::TouchGesture);
  connect(this, &QTreeWidget::itemSelectionChanged, this, &RecordTree::CaretChanged);
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item) {
    if (InfoOf(item) != nullptr) Q_EMIT RecordChosen();
  });
  connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* heading) {
    // A hidden row must not be what a command acts on.
    const QTreeWidgetItem* caret = Caret();
    if (caret != nullptr && caret->parent() == heading) setCurrentItem(heading);
  });
}

void RecordTree::ClearRows() { SetRows({}); }

void RecordTree::SetRows(const QList<QTreeWidgetItem*>& headings) {
  const QSignalBlocker silent(this);
  setUpdatesEnabled(false);
  clear();
  if (!headings.isEmpty()) {
    addTopLevelItems(headings);
    expandAll();
  }
  verticalScrollBar()->setValue(0);
  setUpdatesEnabled(true);
}

void RecordTree::SetEmptyText(const QString& text) {
  empty_text_ = text;
  if (topLevelItemCount() == 0) viewport()->update();
}

const TreeItemInfo* RecordTree::CaretInfo() const { return InfoOf(Caret()); }

QTreeWidgetItem* RecordTree::Caret() const {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.first();
}

void RecordTree::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  // The base takes the first row as its current one, and the next arrow key would pass it over.
  if (Caret() == nullptr) selectionModel()->clearCurrentIndex();
  viewport()->update();
}

void RecordTree::updateGeometries() {
  // The base would ask for the height of every single row to find the range of the scroll bar.
  QScrollBar& bar = *verticalScrollBar();
  const int position = bar.value();
  const int end = bar.maximum();
  {
    const QSignalBlocker silent(bar);
    setUniformRowHeights(true);
    QTreeWidget::updateGeometries();
    setUniformRowHeights(false);
    bar.setRange(0, std::max(0, ContentsHeight() - viewport()->height()));
    bar.setSingleStep(delegate_->RowHeight());
    bar.setValue(position);
  }
  if (bar.maximum() != end) Q_EMIT bar.rangeChanged(0, bar.maximum());
  if (bar.value() != position) viewport()->update();
}

int RecordTree::ContentsHeight() const {
  int height = 0;
  for (int i = 0; i < topLevelItemCount(); ++i) {
    const QTreeWidgetItem* heading = topLevelItem(i);
    height += delegate_->HeadingHeight();
    if (heading->isExpanded()) height += heading->childCount() * delegate_->RowHeight();
  }
  return height;
}

void RecordTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTreeWidget::keyPressEvent(event);
    return;
  }
  event->accept();
  QTreeWidgetItem* caret = Caret();
  if (InfoOf(caret) != nullptr) {
    Q_EMIT RecordChosen();
  } else if (caret != nullptr) {
    caret->setExpanded(!caret->isExpanded());
  }
}

void RecordTree::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  QTreeWidgetItem* item = itemAt(position);
  const bool on_chevron = item != nullptr && item->type() == kHeadingRow &&
                          position.x() < kRowIndent && event->button() == Qt::LeftButton;
  if (on_chevron) {
    item->setExpanded(!item->isExpanded());
    event->accept();
    return;
  }
  QTreeWidget::mousePressEvent(event);
}

void RecordTree::paintEvent(QPaintEvent* event) {
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
