// What is wrong with a screen for someone who works with keys.
#pragma once

#include <QStringList>

class QMenu;
class QWidget;

namespace brovanta::test {

/// Walks once around a screen by Tab and once by Shift+Tab, from the control that has the keyboard.
/// What is wrong: nothing has the keyboard, a control that is not reached, one that does not let
/// go, one that looks the same with and without the keyboard, an order that is not that of reading,
/// a way back that is another one. Empty when all is well.
[[nodiscard]] QStringList FocusComplaints(QWidget& screen);

/// The entries of an open menu that can be chosen and that the arrow keys do not reach.
[[nodiscard]] QStringList MenuComplaints(QMenu& menu);

}  // namespace brovanta::test
