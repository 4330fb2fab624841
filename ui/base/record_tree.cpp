#include "ui/base/record_tree.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "ui/base/record_delegate.h"
#include "ui/base/row_view.h"

namespace brovanta {

RecordTree::RecordTree(QWidget* parent)
    : QTreeView(parent),
      model_(new RecordModel(this)),
      delegate_(new RecordDelegate(*this, *model_)) {
  setModel(model_);
  SetUpRowView(*this);
  setItemDelegate(delegate_);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { Q_EMIT CaretChanged(); });
  connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
    if (model_->RecordAt(index) != nullptr) Q_EMIT RecordChosen();
  });
  connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& heading) {
    // A hidden row must not be what a command acts on.
    if (Caret().parent() == heading) setCurrentIndex(heading);
  });
}

void RecordTree::SetEmptyText(const QString& text) {
  empty_text_ = text;
  DescribeEmptyView(*this, empty_text_);
  if (!rows().empty()) return;
  viewport()->update();
  updateGeometry();  // LeastHeight
}

int RecordTree::LeastHeight(int lowest, int width) const {
  return rows().empty() ? std::max(lowest, EmptyTextHeight(*this, empty_text_, width)) : lowest;
}

void RecordTree::ClearRows() { SetRows({}); }

void RecordTree::SetRows(RecordRows rows) {
  const QSignalBlocker silent(this);
  setUpdatesEnabled(false);
  model_->SetRows(std::move(rows));
  expandAll();
  row_height_ = delegate_->RowHeight();
  verticalScrollBar()->setValue(0);
  DescribeEmptyView(*this, empty_text_);
  setUpdatesEnabled(true);
}

QModelIndex RecordTree::Caret() const { return CaretOf(*this); }

std::optional<TreeItemInfo> RecordTree::CaretInfo() const {
  const RecordRow* record = model_->RecordAt(Caret());
  if (record == nullptr) return std::nullopt;
  return record->info();
}

void RecordTree::updateGeometries() {
  // What waits to be laid out comes back here; in the middle of the base's work it would be after
  // the rows are no longer said to be equally high.
  executeDelayedItemsLayout();
  // The base would ask for the height of every single row to find the range of the scroll bar.
  QScrollBar& bar = *verticalScrollBar();
  const int position = bar.value();
  const int end = bar.maximum();
  {
    const QSignalBlocker silent(bar);
    setUniformRowHeights(true);
    QTreeView::updateGeometries();
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
  for (int i = 0; i < model_->rowCount(); ++i) {
    const QModelIndex heading = HeadingIndex(i);
    height += delegate_->HeadingHeight();
    if (isExpanded(heading)) height += model_->rowCount(heading) * delegate_->RowHeight();
  }
  return height;
}

void RecordTree::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  DropFocusRow(*this);
}

void RecordTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QTreeView::keyPressEvent(event);
    return;
  }
  event->accept();
  const QModelIndex caret = Caret();
  if (model_->HeadingAt(caret) != nullptr) setExpanded(caret, !isExpanded(caret));
  if (model_->RecordAt(caret) != nullptr) Q_EMIT RecordChosen();
}

void RecordTree::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->position().toPoint();
  const QModelIndex index = indexAt(position);
  const bool on_chevron = model_->HeadingAt(index) != nullptr && position.x() < kRowIndent &&
                          event->button() == Qt::LeftButton;
  if (on_chevron) {
    setExpanded(index, !isExpanded(index));
    event->accept();
    return;
  }
  QTreeView::mousePressEvent(event);
}

void RecordTree::resizeEvent(QResizeEvent* event) {
  // The letters of large print go with the width, and the heights of the rows with them.
  if (delegate_->RowHeight() != std::exchange(row_height_, delegate_->RowHeight())) {
    scheduleDelayedItemsLayout();
  }
  QTreeView::resizeEvent(event);
}

void RecordTree::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  PaintRowViewSigns(*this, empty_text_);
}

}  // namespace brovanta
