#include "ui/base/row_layout.h"

namespace brovanta {
namespace {

constexpr int kFilterSide = 5;  // as in the forms
constexpr int kFilterGap = 6;
constexpr int kLeastSide = 2;

}  // namespace

int WidthInARow(const QLayout& line) {
  const QMargins margins = line.contentsMargins();
  int wanted = margins.left() + margins.right() + line.spacing() * (line.count() - 1);
  for (int i = 0; i < line.count(); ++i) wanted += line.itemAt(i)->sizeHint().width();
  return wanted;
}

void SetSides(QLayout& line, int side) {
  const QMargins before = line.contentsMargins();
  const QMargins sides(side, before.top(), side, before.bottom());
  if (sides != before) line.setContentsMargins(sides);
}

int ArrangeFilters(QBoxLayout& line, int room) {
  int buttons = 0;
  for (int i = 0; i < line.count(); ++i) buttons += line.itemAt(i)->sizeHint().width();
  const int wanted = buttons + kFilterGap + 2 * kFilterSide;
  const bool close = wanted > room && buttons + 2 * kLeastSide <= room;
  SetSides(line, close ? kLeastSide : kFilterSide);
  const int gap = close ? 0 : kFilterGap;
  // A line that is told what it has asks for an arrangement all the same, which brings us here.
  if (line.spacing() != gap) line.setSpacing(gap);
  SetInARow(line, close || wanted <= room);
  return wanted;
}

void SetInARow(QBoxLayout& line, bool in_a_row) {
  const auto direction = in_a_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
  if (line.direction() != direction) line.setDirection(direction);
}

}  // namespace brovanta
