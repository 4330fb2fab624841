// A list of painted rows that are items of their own, at most one of them selected.
#pragma once

#include <QTreeWidget>

namespace brovanta {

/// Rows are selected by the user only: neither the focus nor a rebuild takes one. The caret is the
/// selected row. No header; scrolls by finger.
class RowTree : public QTreeWidget {
  Q_OBJECT

 public:
  explicit RowTree(QWidget* parent = nullptr);
  ~RowTree() override;

  /// Quiet words on the ground of a tree without rows.
  void SetEmptyText(const QString& text);
  [[nodiscard]] const QString& empty_text() const { return empty_text_; }

  /// nullptr while no row is selected.
  [[nodiscard]] QTreeWidgetItem* Caret() const;

 Q_SIGNALS:
  /// The user selected another row or none.
  void CaretChanged();
  /// Double tap, or Enter or Return on the caret.
  void RowChosen(QTreeWidgetItem* row);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString empty_text_;
};

}  // namespace brovanta
