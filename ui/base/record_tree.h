// The tree of records under date headings, as the main screen and the coupon picker show it.
#pragma once

#include <QString>
#include <QTreeView>
#include <optional>

#include "ui/base/record_model.h"

namespace brovanta {

class RecordDelegate;

/// Rows are selected by the user only: neither the focus nor a rebuild takes one. The caret is the
/// selected row, a heading or a record.
class RecordTree : public QTreeView {
  Q_OBJECT

 public:
  explicit RecordTree(QWidget* parent = nullptr);

  /// Quiet words on the ground of a tree without rows.
  void SetEmptyText(const QString& text);
  [[nodiscard]] const QString& empty_text() const { return empty_text_; }

  /// How high the list should be at least in this width: `lowest`, or without rows as high as what
  /// it says then.
  [[nodiscard]] int LeastHeight(int lowest, int width) const;

  /// Drops every row. Sends no signal.
  void ClearRows();

  /// Replaces every row; all headings are open. Sends no signal.
  void SetRows(RecordRows rows);
  [[nodiscard]] const RecordRows& rows() const { return model_->rows(); }

  /// The index of a heading and of a record under it, both counted from 0.
  [[nodiscard]] QModelIndex HeadingIndex(int heading) const { return model_->index(heading, 0); }
  [[nodiscard]] QModelIndex RecordIndex(int heading, int record) const {
    return model_->index(record, 0, HeadingIndex(heading));
  }

  /// Invalid while no row is selected.
  [[nodiscard]] QModelIndex Caret() const;

  /// The info of the caret's row; nothing without a caret and for a heading.
  [[nodiscard]] std::optional<TreeItemInfo> CaretInfo() const;

 Q_SIGNALS:
  /// The user selected another row or none.
  void CaretChanged();
  /// Double tap, Enter or Return on a record row.
  void RecordChosen();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void updateGeometries() override;

 private:
  [[nodiscard]] int ContentsHeight() const;

  RecordModel* model_;
  RecordDelegate* delegate_;
  QString empty_text_;
  int row_height_ = 0;  // as it was laid out
};

}  // namespace brovanta
