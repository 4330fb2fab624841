// The strokes that the painted rows of all lists share.
#pragma once

#include <QFont>
#include <QString>
#include <QStyleOptionViewItem>

#include "ui/base/theme.h"

class QPainter;

namespace brovanta {

inline constexpr int kRowRightMargin = 10;
inline constexpr int kRowGap = 8;               ///< between texts of one line
inline constexpr int kRowPadding = 5;           ///< above the first line and below the last
inline constexpr double kSideTextShare = 0.45;  ///< of the row's width, at most, for a right text
// Of the text of the screens. What a list is read for is the largest, at arm's length.
inline constexpr double kNameTextScale = 1.15;

[[nodiscard]] QFont ScaledFont(QFont font, double scale);
[[nodiscard]] QFont BoldFont(QFont font);

/// The font, smaller where large print would cut a text that must be read whole, but never small.
[[nodiscard]] QFont FittingFont(const QFont& font, const QString& text, int room,
                                int least = theme::kLeastTextPixels);
/// The same for what takes `wanted` pixels in this font.
[[nodiscard]] QFont FittingFont(const QFont& font, int wanted, int room,
                                int least = theme::kLeastTextPixels);

/// The font for the rows of a list that leaves so much room for their texts: large print is as
/// large in all of them as the width allows, so that what a row is about stays larger than the
/// rest.
[[nodiscard]] QFont RowFont(const QFont& font, int room);

/// A font in which no word of a text is wider than the room.
[[nodiscard]] QFont FontForWords(const QFont& font, const QString& text, int room);

/// The ground of a row, which shows whether the row is selected.
void PaintRowGround(QPainter& painter, const QStyleOptionViewItem& option, const QColor& ground);

/// The thin line at the lower edge of a row, from `indent` on.
void PaintRowLine(QPainter& painter, const QRect& row, int indent);

/// One line of text, cut with an ellipsis, in a rectangle.
void PaintRowText(QPainter& painter, const QFont& font, const QColor& color, const QRect& rect,
                  const QString& text, Qt::Alignment alignment);

/// The upper and the lower line of a two-line row within the row's inner rectangle.
struct RowLines {
  QRect upper;
  QRect lower;
};
[[nodiscard]] RowLines TwoLines(const QRect& inner, int upper_height, int lower_height);

/// A text at the right end of a line, and what it leaves of the line for the text at the left.
[[nodiscard]] QRect PaintSideText(QPainter& painter, const QFont& font, const QColor& color,
                                  const QRect& line, int row_width, const QString& text);

/// What it would leave, in pixels.
[[nodiscard]] int RoomBesideSideText(const QFont& font, const QRect& line, int row_width,
                                     const QString& text);

}  // namespace brovanta
