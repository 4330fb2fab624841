// The tree of records under date headings, as the main screen and the coupon picker show it.
#pragma once

#include <QList>

#include "ui/base/record_row.h"
#include "ui/base/row_tree.h"

namespace brovanta {

class RecordDelegate;

class RecordTree : public RowTree {
  Q_OBJECT

 public:
  explicit RecordTree(QWidget* parent = nullptr);

  /// Deletes every row. Sends no signal.
  void ClearRows();

  /// Replaces every row by these headings with their rows, which the tree owns from now on; all
  /// are expanded. Sends no signal.
  void SetRows(const QList<QTreeWidgetItem*>& headings);

  /// The info of the caret's row; nullptr without a caret and for a heading.
  [[nodiscard]] const TreeItemInfo* CaretInfo() const;

 Q_SIGNALS:
  /// Double tap, Enter or Return on a record row.
  void RecordChosen();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void updateGeometries() override;

 private:
  [[nodiscard]] int ContentsHeight() const;

  RecordDelegate* delegate_;
};

}  // namespace brovanta
