#include "ui/websearch/result_delegate.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "ui/base/row_painting.h"
#include "ui/base/theme.h"
#include "ui/websearch/result_list.h"

namespace brovanta {

ResultDelegate::ResultDelegate(ResultList& list) : QStyledItemDelegate(&list), list_(list) {}

const ResultDelegate::Look& ResultDelegate::LookFor(const QFont& font) const {
  if (look_.row_height != 0 && look_.of == font) return look_;
  look_.of = font;
  look_.bold = BoldFont(font);
  const int lines = QFontMetrics(look_.bold).height() + QFontMetrics(look_.of).height();
  look_.row_height = std::max(theme::kRowHeight, lines + 2 * kRowPadding);
  return look_;
}

QSize ResultDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& /*index*/) const {
  return {0, LookFor(list_.font()).row_height};
}

void ResultDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  if (index.column() != 0) return;
  const Look& look = LookFor(list_.font());
  const auto& row = *static_cast<const ResultRow*>(list_.itemFromIndex(index));
  QStyleOptionViewItem whole(option);
  whole.rect.setLeft(0);
  whole.rect.setWidth(list_.viewport()->width());
  painter->save();
  PaintRowGround(*painter, whole, theme::kGround);
  PaintRowLine(*painter, whole.rect, theme::kMargin);
  const QRect inner =
      whole.rect.adjusted(theme::kMargin, kRowPadding, -kRowRightMargin, -kRowPadding);
  const RowLines lines =
      TwoLines(inner, QFontMetrics(look.bold).height(), QFontMetrics(look.of).height());
  const QRect rest = PaintSideText(*painter, look.bold, theme::kNavy, lines.upper,
                                   whole.rect.width(), row.subitem(kPriceSubitem).trimmed());
  // A line break or a run of blanks out of a web page has no place in a line.
  PaintRowText(*painter, look.bold, theme::kText, rest, row.subitem(kTitleSubitem).simplified(),
               Qt::AlignLeft);
  PaintRowText(*painter, look.of, theme::kQuietText, lines.lower,
               row.subitem(kWebSiteSubitem).simplified(), Qt::AlignLeft);
  painter->restore();
}

}  // namespace brovanta
