// The texts that a widget paints, as its painter gets them.
#pragma once

#include <QList>
#include <QRectF>
#include <QRegion>
#include <QString>
#include <QWidget>

namespace brovanta::test {

/// A text that was painted, in the widget's coordinates.
struct PaintedText {
  QString text;
  QRectF whole;        ///< what it takes
  QRectF shown;        ///< what is left of that where the painter clips
  int pixel_size = 0;  ///< of its font
};

/// Every text that is painted when the widget is, with those of its children if wanted.
[[nodiscard]] QList<PaintedText> PaintedTexts(QWidget& widget, bool with_children = true);

}  // namespace brovanta::test
