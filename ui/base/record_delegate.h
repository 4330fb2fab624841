// Paints the rows of a record tree: heading bands and two-line records.
#pragma once

#include <QFont>
#include <QIcon>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace brovanta {

class HeadingRow;
class RecordModel;
class RecordRow;

/// Left edge of all row texts, and width of the column with the chevrons.
inline constexpr int kRowIndent = 28;

class RecordDelegate : public QStyledItemDelegate {
 public:
  /// Both must outlive it; the tree owns it.
  RecordDelegate(QTreeView& tree, const RecordModel& model);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

  /// The height of each record row and of each heading, in logical pixels.
  [[nodiscard]] int RowHeight() const { return LookNow().row_height; }
  [[nodiscard]] int HeadingHeight() const { return LookNow().heading_height; }

 private:
  /// Fonts and heights that follow from the tree's font.
  struct Look {
    QFont of;       ///< the tree's font, for
    int width = 0;  ///< of the tree
    QFont side;     ///< stores and details; what the others are made of
    QFont name;     ///< what a row is about
    QFont bold;     ///< headings and what is overdue
    int row_height = 0;
    int heading_height = 0;
  };

  [[nodiscard]] const Look& LookNow() const;
  void PaintHeading(QPainter& painter, const QStyleOptionViewItem& option, const HeadingRow& row,
                    bool open) const;
  void PaintRecord(QPainter& painter, const QStyleOptionViewItem& option,
                   const RecordRow& row) const;

  QTreeView& tree_;
  const RecordModel& model_;
  QIcon recurring_mark_;
  mutable Look look_;
};

}  // namespace brovanta
