// How well texts stand out from their ground, taken from the picture of a screen.
#pragma once

#include <QColor>
#include <QList>
#include <QRect>
#include <QString>
#include <string>

class QWidget;

namespace brovanta::test {

/// A text of a screen as its picture shows it.
struct ShownText {
  QString text;
  QRect rect;          ///< in the screen's coordinates
  int pixel_size = 0;  ///< of its font
  QColor ink;          ///< the strongest of the frequent colours in the rectangle
  QColor ground;       ///< the most frequent one
  double contrast = 1.0;
};

/// The contrast of two colours, 1 to 21, by the formula of the accessibility guidelines for the
/// web.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

/// Every text that is painted when the screen is, with what its pixels have to say. Texts of
/// disabled controls and commands, and what is clipped away, are left out.
[[nodiscard]] QList<ShownText> ShownTexts(QWidget& screen);

/// The texts whose contrast is less, one on a line; empty when all is well.
[[nodiscard]] std::string TooFaint(QWidget& screen, double least = 4.5);

}  // namespace brovanta::test
