// The tree of records under date headings, as the main screen and the coupon picker show it.
#pragma once

#include <QList>
#include <QTreeWidget>

#include "ui/base/record_row.h"

namespace brovanta {

class RecordDelegate;

/// At most one row is selected, by the user only: neither the focus nor a rebuild takes one. The
/// caret is the selected row.
class RecordTree : public QTreeWidget {
  Q_OBJECT

 public:
  explicit RecordTree(QWidget* parent = nullptr);

  /// Deletes every row. Sends no signal.
  void ClearRows();

  /// Replaces every row by these headings with their rows, which the tree owns from now on; all
  /// are expanded. Sends no signal.
  void SetRows(const QList<QTreeWidgetItem*>& headings);

  /// Quiet words on the ground of a tree without rows.
  void SetEmptyText(const QString& text);
  [[nodiscard]] const QString& empty_text() const { return empty_text_; }

  /// The info of the caret's row; nullptr without a caret and for a heading.
  [[nodiscard]] const TreeItemInfo* CaretInfo() const;

 Q_SIGNALS:
  /// The user selected another row or none.
  void CaretChanged();
  /// Double tap, Enter or Return on a record row.
  void RecordChosen();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void updateGeometries() override;

 private:
  [[nodiscard]] QTreeWidgetItem* Caret() const;
  [[nodiscard]] int ContentsHeight() const;

  RecordDelegate* delegate_;
  QString empty_text_;
};

}  // namespace brovanta
