#include "ui/base/row_layout.h"

#include <algorithm>

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

FilterPlan PlanFilters(const QBoxLayout& line, int room) {
  int buttons = 0;
  int highest = 0;
  int one_below_the_other = 0;
  for (int i = 0; i < line.count(); ++i) {
    const QSize size = line.itemAt(i)->sizeHint();
    buttons += size.width();
    highest = std::max(highest, size.height());
    one_below_the_other += size.height();
  }
  FilterPlan plan;
  plan.wanted = buttons + kFilterGap + 2 * kFilterSide;
  plan.close = plan.wanted > room && buttons + 2 * kLeastSide <= room;
  plan.in_a_row = plan.close || plan.wanted <= room;
  plan.height = plan.in_a_row ? highest : one_below_the_other + kFilterGap * (line.count() - 1);
  return plan;
}

int ArrangeFilters(QBoxLayout& line, int room) {
  const FilterPlan plan = PlanFilters(line, room);
  SetSides(line, plan.close ? kLeastSide : kFilterSide);
  const int gap = plan.close ? 0 : kFilterGap;
  // A line that is told what it has asks for an arrangement all the same, which brings us here.
  if (line.spacing() != gap) line.setSpacing(gap);
  SetInARow(line, plan.in_a_row);
  return plan.wanted;
}

void SetInARow(QBoxLayout& line, bool in_a_row) {
  const auto direction = in_a_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
  if (line.direction() != direction) line.setDirection(direction);
}

}  // namespace brovanta
