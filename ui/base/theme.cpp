#include "ui/base/theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QScreen>

#include "ui/base/program_style.h"

namespace brovanta {

namespace {

QPalette ProgramPalette() {
  using theme::kNavy;
  QPalette palette;
  palette.setColor(QPalette::Window, theme::kGround);
  palette.setColor(QPalette::WindowText, theme::kText);
  palette.setColor(QPalette::Base, theme::kGround);
  palette.setColor(QPalette::AlternateBase, theme::kBar);
  palette.setColor(QPalette::Text, theme::kText);
  palette.setColor(QPalette::Button, theme::kBar);
  palette.setColor(QPalette::ButtonText, kNavy);
  palette.setColor(QPalette::BrightText, theme::kGround);
  palette.setColor(QPalette::Highlight, theme::kSelection);
  palette.setColor(QPalette::HighlightedText, kNavy);
  palette.setColor(QPalette::Link, kNavy);
  palette.setColor(QPalette::LinkVisited, kNavy);
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

}  // namespace

void ApplyTheme(QApplication& application) {
  QApplication::setStyle(new ProgramStyle);
  application.setPalette(ProgramPalette());
  RaiseFont();
}

}  // namespace brovanta
