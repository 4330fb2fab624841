#include "ui/websearch/agent_delegate.h"

#include <QIcon>
#include <QPainter>
#include <algorithm>

#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kNameColumn = 0;

/// Of the same size in all rows and both columns.
QFont FontOfRows(const QStyleOptionViewItem& option) {
  if (option.widget == nullptr) return option.font;
  return RowFont(option.font, option.widget->width() - option.decorationSize.width() - kRowGap);
}

}  // namespace

void AgentDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  painter->save();
  PaintRowGround(*painter, option, theme::kGround);
  const bool is_name = index.column() == kNameColumn;
  QRect text = option.rect.adjusted(is_name ? theme::kMargin : 0, 0, -kRowRightMargin, 0);
  if (is_name) {
    const QSize picture = option.decorationSize;
    index.data(Qt::DecorationRole)
        .value<QIcon>()
        .paint(painter, QRect(text.topLeft(), QSize(picture.width(), text.height())));
    text.setLeft(text.left() + picture.width() + kRowGap);
  }
  const QString words = index.data().toString();
  PaintRowText(*painter, FittingFont(FontOfRows(option), words, text.width()),
               is_name ? theme::kText : theme::kQuietText, text, words,
               is_name ? Qt::AlignLeft : Qt::AlignRight);
  PaintRowLine(*painter, option.rect, 0);
  painter->restore();
}

QSize AgentDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QFontMetrics metrics(FontOfRows(option));
  const int wanted = metrics.horizontalAdvance(index.data().toString()) + 1 + kRowRightMargin;
  return {std::min(wanted, widest_),
          std::max(theme::kFingerHeight, metrics.height() + 2 * kRowPadding)};
}

}  // namespace brovanta
