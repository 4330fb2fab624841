// Colours, sizes and the style that all screens share.
#pragma once

#include <QColor>

class QApplication;

namespace brovanta {

namespace theme {
inline constexpr QColor kGround{255, 255, 255};
inline constexpr QColor kNavy{0, 0, 128};
inline constexpr QColor kText{26, 26, 46};
inline constexpr QColor kQuietText{92, 94, 120};
inline constexpr QColor kBar{244, 245, 251};  ///< headings, tab strip, command bar
inline constexpr QColor kLine{217, 218, 232};
inline constexpr QColor kFieldLine{138, 140, 170};  ///< frames of fields and buttons
inline constexpr QColor kDisabledText{150, 152, 176};
inline constexpr QColor kSelection{226, 230, 253};
inline constexpr QColor kWarm{172, 70, 0};  ///< the one warm accent: overdue
inline constexpr int kRowHeight = 48;
inline constexpr int kHeadingHeight = 28;
inline constexpr int kFingerHeight = 40;  ///< least height of what is tapped
inline constexpr int kMargin = 12;        ///< a form's distance from the screen's edge
inline constexpr int kRadius = 6;         ///< corners of fields and buttons
inline constexpr int kMessageIconSize = 32;
inline constexpr int kLeastTextPixels = 14;
}  // namespace theme

/// Gives the application its palette and style, and text of at least 14 pixels (a larger system
/// font is kept); call once, before the first window.
void ApplyTheme(QApplication& application);

}  // namespace brovanta
