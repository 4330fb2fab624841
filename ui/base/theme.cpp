#include "ui/base/theme.h"

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <QToolTip>
#include <QWidget>
#include <utility>

#include "ui/base/program_style.h"

namespace brovanta {

namespace {

QPalette ProgramPalette() {
  const QColor accent = theme::kNavy;
  QPalette palette;
  palette.setColor(QPalette::Window, theme::kGround);
  palette.setColor(QPalette::WindowText, theme::kText);
  palette.setColor(QPalette::Base, theme::kGround);
  palette.setColor(QPalette::AlternateBase, theme::kBar);
  palette.setColor(QPalette::Text, theme::kText);
  palette.setColor(QPalette::Button, theme::kBar);
  palette.setColor(QPalette::ButtonText, accent);
  palette.setColor(QPalette::BrightText, theme::kGround);
  palette.setColor(QPalette::Highlight, theme::kSelection);
  palette.setColor(QPalette::HighlightedText, accent);
  palette.setColor(QPalette::Link, accent);
  palette.setColor(QPalette::LinkVisited, accent);
  palette.setColor(QPalette::PlaceholderText, theme::kQuietText);
  palette.setColor(QPalette::ToolTipBase, theme::kGround);
  palette.setColor(QPalette::ToolTipText, theme::kText);
  palette.setColor(QPalette::Light, theme::kGround);
  palette.setColor(QPalette::Midlight, theme::kBar);
  palette.setColor(QPalette::Mid, theme::kLine);
  palette.setColor(QPalette::Dark, theme::kFieldLine);
  palette.setColor(QPalette::Shadow, theme::kLine);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, theme::kDisabledText);
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, theme::kBar);
  return palette;
}

/// The size that was asked for. QFontInfo tells the one that was found, but loads the font for it,
/// and this one may not be shown at all.
int PixelsOf(const QFont& font) {
  constexpr double kPointsPerInch = 72;
  if (font.pixelSize() > 0) return font.pixelSize();
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return 0;
  return qRound(font.pointSizeF() * screen->logicalDotsPerInchY() / kPointsPerInch);
}

/// Small system fonts are made for a mouse; what is larger is the person's choice and stays.
void RaiseFont() {
  QFont font = QApplication::font();
  const int pixels = PixelsOf(font);
  if (pixels >= theme::kLeastTextPixels || pixels <= 0) return;
  font.setPixelSize(theme::kLeastTextPixels);
  QApplication::setFont(font);
}

bool dark_palette = false;

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

/// Some desktops give the application a palette, others tell the style only that they are dark.
bool LooksDark() {
  return IsDark(QGuiApplication::palette()) || IsDark(QApplication::style()->standardPalette());
}

class PaletteKeeper : public QObject {
 public:
  PaletteKeeper(QWidget& widget, std::function<void()> work)
      : QObject(&widget), work_(std::move(work)) {
    widget.installEventFilter(this);
    Work();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == parent() && event->type() == QEvent::PaletteChange) Work();
    return false;
  }

 private:
  // The work may change the palette itself.
  void Work() {
    if (std::exchange(working_, true)) return;
    work_();
    working_ = false;
  }

  std::function<void()> work_;
  bool working_ = false;
};

}  // namespace

ThemeColor::operator QColor() const { return QColor::fromRgba(dark_palette ? dark_ : light_); }

void ApplyTheme(QApplication& /*application*/) {
  QApplication::setStyle(new ProgramStyle);
  UseDarkPalette(LooksDark());
  RaiseFont();
}

void UseDarkPalette(bool dark) {
  dark_palette = dark;
  const QPalette palette = ProgramPalette();
  QApplication::setPalette(palette);
  QToolTip::setPalette(palette);
}

bool UsesDarkPalette() { return dark_palette; }

void FollowDesktop() {
  QApplication::setPalette(QPalette());  // one that says nothing lets the desktop's be seen
  UseDarkPalette(LooksDark());
}

QObject* KeepInPalette(QWidget& widget, std::function<void()> work) {
  return new PaletteKeeper(widget, std::move(work));
}

void InkWithAccent(QWidget& widget) {
  KeepInPalette(widget, [&widget] {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, theme::kNavy);
    widget.setPalette(palette);
  });
}

}  // namespace brovanta
