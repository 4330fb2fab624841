// Colours, sizes and the style sheet that all screens share.
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
inline constexpr QColor kSelection{226, 230, 253};
inline constexpr QColor kWarm{176, 72, 0};  ///< the one warm accent: overdue
inline constexpr int kRowHeight = 48;
inline constexpr int kHeadingHeight = 28;
inline constexpr int kFingerHeight = 40;  ///< least height of what is tapped
}  // namespace theme

/// Gives the application its palette, style and style sheet; call once, before the first window.
void ApplyTheme(QApplication& application);

}  // namespace brovanta
