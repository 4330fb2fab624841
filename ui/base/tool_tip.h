// Tool tips that say what is stored, and that the keyboard finds too.
#pragma once

#include <QString>

class QWidget;

namespace brovanta {

/// The text as a tool tip that shows it as it stands, even where it looks like markup.
[[nodiscard]] QString ToolTipText(const QString& text);

/// Shows the control's tool tip below it while the keyboard's focus is on it.
void ShowToolTipOnFocus(QWidget* control);

}  // namespace brovanta
