// The on-screen keyboard: shown for text fields, put away for lists and date pickers.
#pragma once

#include <QObject>

class QWidget;

namespace brovanta {

/// What the on-screen keyboard is told; tests put their own in place.
using InputPanelHandler = void (*)(bool show);

/// Replaces the handler (nullptr: the platform's input method); returns what was in place before.
InputPanelHandler SetInputPanelHandler(InputPanelHandler handler);

/// Shows or hides the on-screen keyboard.
void ShowInputPanel(bool show);

/// From now on the panel is shown (hidden) whenever the widget, or for a combo box its edit field,
/// takes the focus.
void ShowInputPanelOnFocus(QWidget* widget);
void HideInputPanelOnFocus(QWidget* widget);

}  // namespace brovanta
