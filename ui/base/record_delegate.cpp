#include "ui/base/record_delegate.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/base/icons.h"
#include "ui/base/record_model.h"
#include "ui/base/row_painting.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr int kHeadingPadding = 4;
constexpr int kMarkSize = 12;
constexpr int kLeastDetail = 13;

/// The font, smaller where large print would cut a heading's end off.
QFont Fitting(const QFont& font, const QString& text, int width) {
  constexpr double kSmallest = 0.5;
  const int wanted = QFontMetrics(font).horizontalAdvance(text) + 1;
  if (wanted <= width) return font;
  return ScaledFont(font, std::max(kSmallest, 0.98 * width / wanted));
}

/// The words, or their brief form where even small letters would cut them.
const QString& DetailThatFits(const QFont& font, const DetailWords& words, int room) {
  if (words.brief.isEmpty()) return words.text;
  const QFont fitting = FittingFont(font, words.text, room);
  return QFontMetrics(fitting).horizontalAdvance(words.text) <= room ? words.text : words.brief;
}

/// A name that large print would cut gets smaller, so that more of it is read, but stays large.
QFont NameFont(const QFont& font, const QString& name, int width) {
  constexpr int kLeastName = 20;
  return FittingFont(font, name, width, kLeastName);
}

/// The font, as small as that of a name that got smaller: nothing in a row is larger than its name.
QFont NoLargerThan(const QFont& name, QFont font) {
  const int most = QFontInfo(name).pixelSize();
  if (QFontInfo(font).pixelSize() > most) font.setPixelSize(most);
  return font;
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
  painter.setPen(QPen(QColor(theme::kNavy), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(path);
}

}  // namespace

RecordDelegate::RecordDelegate(QTreeView& tree, const RecordModel& model)
    : QStyledItemDelegate(&tree),
      tree_(tree),
      model_(model),
      recurring_mark_(NamedIcon(QStringLiteral("mark_recurring"), theme::kQuietText)) {}

// The width is that with the scroll bar, which may not come and go with the height of the rows.
const RecordDelegate::Look& RecordDelegate::LookNow() const {
  const QFont font = tree_.font();
  if (look_.row_height != 0 && look_.of == font && look_.width == tree_.width()) return look_;
  look_.of = font;
  look_.width = tree_.width();
  look_.side = RowFont(font, look_.width - kRowIndent - kRowRightMargin);
  look_.name = ScaledFont(look_.side, kNameTextScale);
  look_.bold = BoldFont(look_.side);
  const int lines =
      QFontMetrics(look_.name).height() + std::max(QFontMetrics(look_.bold).height(), kMarkSize);
  look_.row_height = std::max(theme::kRowHeight, lines + 2 * kRowPadding);
  look_.heading_height =
      std::max(theme::kHeadingHeight, QFontMetrics(look_.bold).height() + 2 * kHeadingPadding);
  return look_;
}

QSize RecordDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                               const QModelIndex& index) const {
  const Look& look = LookNow();
  const bool heading = model_.HeadingAt(index) != nullptr;
  return {kRowIndent, heading ? look.heading_height : look.row_height};
}

void RecordDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (const HeadingRow* heading = model_.HeadingAt(index)) {
    PaintHeading(*painter, option, *heading, tree_.isExpanded(index));
  } else if (const RecordRow* record = model_.RecordAt(index)) {
    PaintRecord(*painter, option, *record);
  }
  painter->restore();
}

void RecordDelegate::PaintHeading(QPainter& painter, const QStyleOptionViewItem& option,
                                  const HeadingRow& row, bool open) const {
  const Look& look = LookNow();
  PaintRowGround(painter, option, theme::kBar);
  const QRectF rect = option.rect;
  PaintChevron(painter, {rect.left() + kRowIndent / 2.0 + 2, rect.center().y()}, open);
  const QRect room = option.rect.adjusted(kRowIndent, 0, -kRowGap, 0);
  const QString words = row.Words();
  PaintRowText(painter, Fitting(look.bold, words, room.width()), theme::kNavy, room, words,
               Qt::AlignLeft);
}

void RecordDelegate::PaintRecord(QPainter& painter, const QStyleOptionViewItem& option,
                                 const RecordRow& row) const {
  const Look& look = LookNow();
  PaintRowGround(painter, option, theme::kGround);
  PaintRowLine(painter, option.rect, kRowIndent);

  const QRect inner = option.rect.adjusted(kRowIndent, kRowPadding, -kRowRightMargin, -kRowPadding);
  const int name_height = QFontMetrics(look.name).height();
  const int detail_height = std::max(QFontMetrics(look.bold).height(), kMarkSize);
  const TreeItemInfo info = row.info();
  const DetailWords words = row.Words();
  RowLines lines = TwoLines(inner, name_height, detail_height);
  if (words.text.isEmpty() && !row.recurring()) lines.upper = inner;  // no second line
  QRect lower = lines.lower;
  const int row_width = option.rect.width();
  const int beside = RoomBesideSideText(look.side, lines.upper, row_width, info.storeName);
  const QFont store = NoLargerThan(NameFont(look.name, info.name, beside), look.side);
  const QRect upper =
      PaintSideText(painter, store, theme::kQuietText, lines.upper, row_width, info.storeName);
  const QFont name = NameFont(look.name, info.name, upper.width());
  PaintRowText(painter, name, theme::kText, upper, info.name, Qt::AlignLeft);

  if (row.recurring()) {
    const int right = lower.right() + 1 - kMarkSize / 3;
    recurring_mark_.paint(
        &painter, {right - kMarkSize, lower.center().y() - kMarkSize / 2, kMarkSize, kMarkSize});
    lower.setWidth(lower.width() - kMarkSize - kMarkSize / 3 - kRowGap);
  }
  const QFont detail = NoLargerThan(name, words.overdue ? look.bold : look.side);
  const QString& text = DetailThatFits(detail, words, lower.width());
  PaintRowText(painter, FittingFont(detail, text, lower.width(), kLeastDetail),
               words.overdue ? theme::kWarm : theme::kQuietText, lower, text, Qt::AlignLeft);
}

}  // namespace brovanta
