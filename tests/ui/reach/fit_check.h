// What is wrong with a screen where there is little room.
#pragma once

#include <QRect>
#include <QStringList>

class QWidget;

namespace brovanta::test {

/// What does not fit a screen as large as it is at the moment: a text that is cut, a control that
/// lies outside and cannot be scrolled to or overlaps another, something in a bar or a list that is
/// lower than a finger. Empty when all is well. Rows of lists may cut what people have typed; a
/// field in which one types moves its text.
[[nodiscard]] QStringList FitComplaints(QWidget& screen);

/// Whether all of a widget can be seen in its window.
[[nodiscard]] bool IsWhollyVisible(const QWidget& widget);

}  // namespace brovanta::test
