// What a screen reader is told of the owner-drawn button.
#pragma once

namespace brovanta {

/// From the first call on every ColorButton is a push button, a check box or a button with a menu
/// to screen readers, by what it does at the moment; its text is its name, and its tool tip says
/// more. Without a text the tool tip is the name as well.
void SpeakForColorButtons();

}  // namespace brovanta
