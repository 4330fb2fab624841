// Lines of controls that stand side by side where there is room and one below the other elsewhere.
#pragma once

#include <QBoxLayout>

namespace brovanta {

/// The width that a line of controls wants when they stand side by side.
[[nodiscard]] int WidthInARow(const QLayout& line);

/// The margins of a line at its ends.
void SetSides(QLayout& line, int side);

/// Two filters, which stand side by side, close together where there is little room, and below each
/// other where that does not help.
struct FilterPlan {
  int wanted = 0;  ///< to stand side by side as usual
  bool close = false;
  bool in_a_row = false;
  int height = 0;  ///< of the line
};
[[nodiscard]] FilterPlan PlanFilters(const QBoxLayout& line, int room);

/// Arranges them so. Returns what they want to stand side by side as usual.
int ArrangeFilters(QBoxLayout& line, int room);

/// Side by side, or one below the other.
void SetInARow(QBoxLayout& line, bool in_a_row);

}  // namespace brovanta
