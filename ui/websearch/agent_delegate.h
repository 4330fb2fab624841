// Paints the rows of the list of search agents.
#pragma once

#include <QStyledItemDelegate>

namespace brovanta {

/// One line, at least a finger high: the picture and the name in the first column, the state at the
/// right end of the second.
class AgentDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  /// What the column takes to show the whole text.
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace brovanta
