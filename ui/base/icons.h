// The program's own pictures, by their number, drawn as SVG in res/. They follow the palette in
// use.
#pragma once

#include <QIcon>
#include <QPixmap>

#include "ui/base/theme.h"

class QLabel;

namespace brovanta {

/// The icon with this number ("icon_136_daily.svg"), sharp at every scale; a null icon for a number
/// that the program does not have.
[[nodiscard]] QIcon NumberedIcon(int number);

/// One of the four tab pictures (bitmap 135), index 0 to 3, with its selected and unselected look.
[[nodiscard]] QIcon TabIcon(int index);

/// The picture of a tool bar command (tool bar 129), by command number, with a disabled look.
[[nodiscard]] QIcon CommandIcon(int command);

/// The picture of that file name without its ending ("mark_recurring"), drawn in one colour; a null
/// icon for a name that the program does not have. There are mark_recurring, chevron_down,
/// chevron_right, chevron_left, question and warning besides the numbered ones.
[[nodiscard]] QIcon NamedIcon(const QString& name, ThemeColor color);

/// Shows the icon in a label, in the palette in use whichever that is.
void ShowIcon(QLabel& label, const QIcon& icon, QSize size, QIcon::State state = QIcon::Off);

}  // namespace brovanta
