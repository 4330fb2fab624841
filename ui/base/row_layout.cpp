#include "ui/base/row_layout.h"

namespace brovanta {

int WidthInARow(const QLayout& line) {
  const QMargins margins = line.contentsMargins();
  int wanted = margins.left() + margins.right() + line.spacing() * (line.count() - 1);
  for (int i = 0; i < line.count(); ++i) wanted += line.itemAt(i)->sizeHint().width();
  return wanted;
}

void SetInARow(QBoxLayout& line, bool in_a_row) {
  const auto direction = in_a_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
  if (line.direction() != direction) line.setDirection(direction);
}

}  // namespace brovanta
