#include "ui/base/record_delegate.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/base/icons.h"
#include "ui/base/record_row.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kRightMargin = 10;
constexpr int kGap = 8;
constexpr int kSelectionBar = 3;
constexpr int kRowPadding = 5;
constexpr int kHeadingPadding = 4;
constexpr int kMarkSize = 12;
constexpr double kStoreShare = 0.45;  // of the row's width, at most
constexpr double kStoreScale = 0.92;
constexpr double kDetailScale = 0.87;

QFont Scaled(QFont font, double scale) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * scale)));
  }
  return font;
}

QFont Bold(QFont font) {
  font.setBold(true);
  return font;
}

/// The font, smaller where large print would cut a date's end off.
QFont Fitting(const QFont& font, const QString& text, int width) {
  constexpr double kSmallest = 0.6;
  const int wanted = QFontMetrics(font).horizontalAdvance(text) + 1;
  if (wanted <= width) return font;
  return Scaled(font, std::max(kSmallest, 0.98 * width / wanted));
}

void PaintGround(QPainter& painter, const QStyleOptionViewItem& option, const QColor& ground) {
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter.fillRect(option.rect, selected ? theme::kSelection : ground);
  if (!selected) return;
  QRect bar = option.rect;
  bar.setWidth(kSelectionBar);
  painter.fillRect(bar, theme::kNavy);
}

void PaintChevron(QPainter& painter, QPointF center, bool open) {
  constexpr double kReach = 3.0;
  QPainterPath path;
  if (open) {
    path.moveTo(center + QPointF(-kReach, -kReach / 2));
    path.lineTo(center + QPointF(0, kReach / 2));
    path.lineTo(center + QPointF(kReach, -kReach / 2));
  } else {
    path.moveTo(center + QPointF(-kReach / 2, -kReach));
    path.lineTo(center + QPointF(kReach / 2, 0));
    path.lineTo(center + QPointF(-kReach / 2, kReach));
  }
  painter.setPen(QPen(theme::kNavy, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

/// Draws one line of text, cut with an ellipsis, in a rectangle.
void PaintText(QPainter& painter, const QFont& font, const QColor& color, const QRect& rect,
               const QString& text, Qt::Alignment alignment) {
  painter.setFont(font);
  painter.setPen(color);
  const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width());
  painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                   shown);
}

}  // namespace

RecordDelegate::RecordDelegate(QTreeWidget& tree)
    : QStyledItemDelegate(&tree),
      tree_(tree),
      recurring_mark_(NamedIcon(QStringLiteral("mark_recurring"), theme::kQuietText)) {}

const RecordDelegate::Look& RecordDelegate::LookFor(const QFont& font) const {
  if (look_.row_height != 0 && look_.name == font) return look_;
  look_.name = font;
  look_.heading = Bold(Scaled(font, kStoreScale));
  look_.store = Scaled(font, kStoreScale);
  look_.detail = Scaled(font, kDetailScale);
  look_.overdue = Bold(look_.detail);
  const int lines =
      QFontMetrics(font).height() + std::max(QFontMetrics(look_.overdue).height(), kMarkSize);
  look_.row_height = std::max(theme::kRowHeight, lines + 2 * kRowPadding);
  look_.heading_height =
      std::max(theme::kHeadingHeight, QFontMetrics(look_.heading).height() + 2 * kHeadingPadding);
  return look_;
}

QSize RecordDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& index) const {
  const Look& look = LookFor(tree_.font());
  const bool heading = tree_.itemFromIndex(index)->type() == kHeadingRow;
  return {kRowIndent, heading ? look.heading_height : look.row_height};
}

void RecordDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const QTreeWidgetItem* item = tree_.itemFromIndex(index);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (item->type() == kHeadingRow) {
    PaintHeading(*painter, option, *static_cast<const HeadingRow*>(item));
  } else {
    PaintRecord(*painter, option, *static_cast<const RecordRow*>(item));
  }
  painter->restore();
}

void RecordDelegate::PaintHeading(QPainter& painter, const QStyleOptionViewItem& option,
                                  const HeadingRow& row) const {
  const Look& look = LookFor(tree_.font());
  PaintGround(painter, option, theme::kBar);
  const QRectF rect = option.rect;
  PaintChevron(painter, {rect.left() + kRowIndent / 2.0 + 2, rect.center().y()}, row.isExpanded());
  const QRect room = option.rect.adjusted(kRowIndent, 0, -kGap, 0);
  PaintText(painter, Fitting(look.heading, row.words(), room.width()), theme::kNavy, room,
            row.words(), Qt::AlignLeft);
}

void RecordDelegate::PaintRecord(QPainter& painter, const QStyleOptionViewItem& option,
                                 const RecordRow& row) const {
  const Look& look = LookFor(tree_.font());
  PaintGround(painter, option, theme::kGround);
  QRect line = option.rect;
  line.setTop(line.bottom());
  line.setLeft(line.left() + kRowIndent);
  painter.fillRect(line, theme::kLine);

  const QRect inner = option.rect.adjusted(kRowIndent, kRowPadding, -kRightMargin, -kRowPadding);
  const int name_height = QFontMetrics(look.name).height();
  const int detail_height = std::max(QFontMetrics(look.overdue).height(), kMarkSize);
  const int slack = std::max(0, inner.height() - name_height - detail_height);
  QRect upper(inner.left(), inner.top() + slack / 3, inner.width(), name_height);
  QRect lower(inner.left(), inner.bottom() + 1 - detail_height - slack / 3, inner.width(),
              detail_height);

  const QString& store = row.info().storeName;
  if (!store.isEmpty()) {
    const int wanted = QFontMetrics(look.store).horizontalAdvance(store) + 1;
    const int width = std::min(wanted, static_cast<int>(option.rect.width() * kStoreShare));
    PaintText(painter, look.store, theme::kQuietText,
              {inner.right() + 1 - width, upper.top(), width, upper.height()}, store,
              Qt::AlignRight);
    upper.setWidth(upper.width() - width - kGap);
  }
  PaintText(painter, look.name, theme::kText, upper, row.info().name, Qt::AlignLeft);

  if (row.recurring()) {
    const int right = lower.right() + 1 - kMarkSize / 3;
    recurring_mark_.paint(
        &painter, {right - kMarkSize, lower.center().y() - kMarkSize / 2, kMarkSize, kMarkSize});
    lower.setWidth(lower.width() - kMarkSize - kMarkSize / 3 - kGap);
  }
  const DetailWords words = row.Words();
  PaintText(painter, words.overdue ? look.overdue : look.detail,
            words.overdue ? theme::kWarm : theme::kQuietText, lower, words.text, Qt::AlignLeft);
}

}  // namespace brovanta
