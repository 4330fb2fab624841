// Driving a form and looking at it: typing, tab order, numbered controls, what is clipped,
// pictures.
#pragma once

#include <QList>
#include <QSize>
#include <QStringList>
#include <string>

class QWidget;

namespace brovanta::test {

/// The sizes that every screen is tried at.
[[nodiscard]] QList<QSize> ScreenSizes();

/// The visible controls that are smaller than what they have to show, stand out of their parent or
/// overlap a neighbour, one on a line as "name: what is
/// wrong"; empty when all is well. What a scroll area hides is not clipped.
[[nodiscard]] std::string Clipped(QWidget* form);

/// The names of the controls that Tab reaches from the one with the focus, once around, separated
/// by blanks.
[[nodiscard]] std::string TabOrder(QWidget* form);

/// The control with this number (dynamic property controlId), nullptr when there is none or more
/// than one.
[[nodiscard]] QWidget* Control(QWidget* form, int control_id);

/// Types any text, key by key (QTest::keyClicks takes ASCII only).
void TypeText(QWidget* field, const QString& text);

/// Saves a picture of the form as "<name>_<width>x<height>.png" in the folder that the environment
/// variable BROVANTA_PICTURES names; without it, does nothing.
void SavePicture(QWidget* form, const QString& name);

}  // namespace brovanta::test
