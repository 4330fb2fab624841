#include "ui/base/record_tree.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

#include "ui/base/record_delegate.h"

namespace brovanta {

RecordTree::RecordTree(QWidget* parent) : RowTree(parent), delegate_(new RecordDelegate(*this)) {
  setItemDelegate(delegate_);
  connect(this, &RowTree::RowChosen, this, [this](const QTreeWidgetItem* row) {
    if (InfoOf(row) != nullptr) Q_EMIT RecordChosen();
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

const TreeItemInfo* RecordTree::CaretInfo() const { return InfoOf(Caret()); }

void RecordTree::updateGeometries() {
  // The base would ask for the height of every single row to find the range of the scroll bar.
  QScrollBar& bar = *verticalScrollBar();
  const int position = bar.value();
  const int end = bar.maximum();
  {
    const QSignalBlocker silent(bar);
    setUniformRowHeights(true);
    RowTree::updateGeometries();
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
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  QTreeWidgetItem* caret = Caret();
  if (!enter || caret == nullptr || InfoOf(caret) != nullptr) {
    RowTree::keyPressEvent(event);
    return;
  }
  event->accept();
  caret->setExpanded(!caret->isExpanded());
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
  RowTree::mousePressEvent(event);
}

}  // namespace brovanta
