// Paints the rows of a result list.
#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace brovanta {

class ResultList;

/// Two lines: the title, bold, with the price at the right; the web site below.
class ResultDelegate : public QStyledItemDelegate {
 public:
  explicit ResultDelegate(ResultList& list);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  /// Fonts and height that follow from the list's font.
  struct Look {
    QFont of;    ///< the list's font, which the other is made of: the site
    QFont bold;  ///< title and price
    int row_height = 0;
  };

  [[nodiscard]] const Look& LookFor(const QFont& font) const;

  ResultList& list_;
  mutable Look look_;
};

}  // namespace brovanta
