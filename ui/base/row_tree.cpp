#include "ui/base/row_tree.h"

#include <QKeyEvent>

#include "ui/base/row_view.h"

namespace brovanta {

RowTree::RowTree(QWidget* parent) : QTreeWidget(parent) {
  setColumnCount(1);
  SetUpRowView(*this);
  connect(this, &QTreeWidget::itemSelectionChanged, this, &RowTree::CaretChanged);
  const auto describe = [this] { DescribeEmptyView(*this, empty_text_); };
  connect(model(), &QAbstractItemModel::rowsInserted, this, describe);
  connect(model(), &QAbstractItemModel::rowsRemoved, this, describe);
  connect(model(), &QAbstractItemModel::modelReset, this, describe);
  connect(this, &QTreeWidget::itemDoubleClicked, this,
          [this](QTreeWidgetItem* row) { Q_EMIT RowChosen(row); });
}

// The model says that its rows go, when the empty text has gone already.
RowTree::~RowTree() { model()->disconnect(this); }

void RowTree::SetEmptyText(const QString& text) {
  empty_text_ = text;
  DescribeEmptyView(*this, empty_text_);
  if (topLevelItemCount() == 0) viewport()->update();
}

QTreeWidgetItem* RowTree::Caret() const { return itemFromIndex(CaretOf(*this)); }

void RowTree::focusInEvent(QFocusEvent* event) {
  QTreeWidget::focusInEvent(event);
  DropFocusRow(*this);
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
  PaintRowViewSigns(*this, empty_text_);
}

}  // namespace brovanta
