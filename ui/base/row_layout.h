// Lines of controls that stand side by side where there is room and one below the other elsewhere.
#pragma once

#include <QBoxLayout>

namespace brovanta {

/// The width that a line of controls wants when they stand side by side.
[[nodiscard]] int WidthInARow(const QLayout& line);

/// Side by side, or one below the other.
void SetInARow(QBoxLayout& line, bool in_a_row);

}  // namespace brovanta
