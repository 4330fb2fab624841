// What is wrong with a screen for someone who hears it instead of seeing it.
#pragma once

#include <QStringList>

class QWidget;

namespace brovanta::test {

/// What is wrong in the tree that screen readers get of a widget and all that is visible in it: a
/// control without a name, a field without a label, a label before a field that is not its own, a
/// control with the role of another, a button without a text that does not say more. Empty when all
/// is well.
[[nodiscard]] QStringList AccessibleComplaints(QWidget& screen);

/// What a screen reader calls the rows of a list, from top to bottom.
[[nodiscard]] QStringList SpokenRows(QWidget& list);

}  // namespace brovanta::test
