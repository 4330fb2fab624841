// Colours, sizes and the style that all screens share.
#pragma once

#include <QColor>
#include <functional>

class QApplication;
class QObject;
class QWidget;

namespace brovanta {

/// One colour of the program in its two palettes; wherever a QColor is asked for it is that of the
/// palette in use.
class ThemeColor {
 public:
  constexpr ThemeColor() = default;
  constexpr ThemeColor(QRgb light, QRgb dark) : light_(light), dark_(dark) {}
  /// The same in both.
  explicit ThemeColor(const QColor& color) : light_(color.rgba()), dark_(color.rgba()) {}

  operator QColor() const;  // NOLINT(google-explicit-constructor): it stands for a colour

 private:
  QRgb light_ = 0;
  QRgb dark_ = 0;
};

namespace theme {
inline constexpr ThemeColor kGround{0xffffffff, 0xff14161f};
inline constexpr ThemeColor kNavy{0xff000080, 0xffaebcff};  ///< the accent: navy, by night its tint
inline constexpr ThemeColor kText{0xff1a1a2e, 0xffe9eaf5};
inline constexpr ThemeColor kQuietText{0xff5c5e78, 0xffb3b7d3};
inline constexpr ThemeColor kBar{0xfff4f5fb, 0xff20222f};  ///< headings, tab strip, command bar
inline constexpr ThemeColor kLine{0xffd9dae8, 0xff3a3d54};
inline constexpr ThemeColor kFieldLine{0xff8a8caa, 0xff7a7da0};  ///< frames of fields and buttons
inline constexpr ThemeColor kDisabledText{0xff9698b0, 0xff6c6f8c};
inline constexpr ThemeColor kSelection{0xffe2e6fd, 0xff2c3262};
inline constexpr ThemeColor kWarm{0xffac4600, 0xffffb070};  ///< the one warm accent: overdue
inline constexpr ThemeColor kVeil{0x48000040, 0x90000000};  ///< over a screen that must wait
inline constexpr int kRowHeight = 48;
inline constexpr int kHeadingHeight = 40;
inline constexpr int kFingerHeight = 40;  ///< least height of what is tapped
inline constexpr int kMargin = 12;        ///< a form's distance from the screen's edge
inline constexpr int kRadius = 6;         ///< corners of fields and buttons
inline constexpr int kMessageIconSize = 32;
inline constexpr int kLeastTextPixels = 14;
}  // namespace theme

/// Gives the application its palette and style, and text of at least 14 pixels (a larger system
/// font is kept); call once, before the first window. The palette is the dark one where that of the
/// desktop is dark.
void ApplyTheme(QApplication& application);

/// Takes the dark or the light palette, in all windows that are open as well.
void UseDarkPalette(bool dark);
[[nodiscard]] bool UsesDarkPalette();

/// Takes the palette that goes with the desktop's, which may have changed: the main window calls it
/// when it hears of a new one (QEvent::ThemeChange).
void FollowDesktop();

/// Does the work now and whenever the widget has got another palette, as long as the widget lives:
/// for what a widget has taken from the palette in use. What is returned is a child of the widget,
/// with whose end the work ends.
QObject* KeepInPalette(QWidget& widget, std::function<void()> work);

/// Writes the widget's text in the accent.
void InkWithAccent(QWidget& widget);

}  // namespace brovanta
