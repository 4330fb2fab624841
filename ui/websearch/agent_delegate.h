// Paints the rows of the list of search agents.
#pragma once

#include <QStyledItemDelegate>
#include <QWidget>

namespace brovanta {

/// One line, at least a finger high: the picture and the name in the first column, the state at the
/// right end of the second.
class AgentDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  /// What the column takes to show the whole text; large print gets smaller to take less.
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

  /// No column asks for more than this.
  void SetWidest(int width) { widest_ = width; }

 private:
  int widest_ = QWIDGETSIZE_MAX;
};

}  // namespace brovanta
