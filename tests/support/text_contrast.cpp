#include "tests/support/text_contrast.h"

#include <QAction>
#include <QHash>
#include <QImage>
#include <QMenu>
#include <QWidget>
#include <cmath>

#include "tests/support/painted_texts.h"

namespace brovanta::test {
namespace {

constexpr int kScale = 2;                 // strokes are then wide enough to show their colour
constexpr double kRareShare = 1.0 / 200;  // of the pixels: what is rarer is an edge's mixture

bool IsDisabled(QWidget& screen, QPoint place) {
  QWidget* const child = screen.childAt(place);
  QWidget& widget = child == nullptr ? screen : *child;
  if (!widget.isEnabled()) return true;
  auto* const menu = qobject_cast<QMenu*>(&widget);
  const QAction* const action = menu == nullptr ? nullptr : menu->actionAt(place);
  return action != nullptr && !action->isEnabled();
}

QImage PictureOf(QWidget& screen) {
  QImage picture(screen.size() * kScale, QImage::Format_RGB32);
  picture.setDevicePixelRatio(kScale);
  picture.fill(screen.palette().color(QPalette::Window));
  screen.render(&picture);
  return picture;
}

void LookAtPixels(const QImage& picture, ShownText& text) {
  const QRect rect = QRect(text.rect.topLeft() * kScale, text.rect.size() * kScale) &
                     QRect(QPoint(), picture.size());
  QHash<QRgb, int> counts;
  for (int y = rect.top(); y <= rect.bottom(); ++y) {
    const auto* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = rect.left(); x <= rect.right(); ++x) ++counts[line[x]];
  }
  int most = 0;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
    if (it.value() <= most) continue;
    most = it.value();
    text.ground = QColor::fromRgb(it.key());
  }
  const double rare = rect.width() * rect.height() * kRareShare;
  text.ink = text.ground;
  for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
    if (it.value() < rare) continue;
    const QColor color = QColor::fromRgb(it.key());
    const double contrast = Contrast(color, text.ground);
    if (contrast <= text.contrast) continue;
    text.contrast = contrast;
    text.ink = color;
  }
}

double Luminance(const QColor& color) {
  const auto channel = [](double value) {
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF()) +
         0.0722 * channel(color.blueF());
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one);
  const double b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QList<ShownText> ShownTexts(QWidget& screen) {
  const QImage picture = PictureOf(screen);
  QList<ShownText> texts;
  for (const PaintedText& painted : PaintedTexts(screen)) {
    ShownText text{
        painted.text, painted.shown.toAlignedRect() & screen.rect(), painted.pixel_size, {}, {}};
    if (text.rect.width() < 2 || text.rect.height() < 2) continue;
    if (IsDisabled(screen, text.rect.center())) continue;
    LookAtPixels(picture, text);
    texts.append(text);
  }
  return texts;
}

std::string TooFaint(QWidget& screen, double least) {
  std::string faint;
  for (const ShownText& text : ShownTexts(screen)) {
    if (text.contrast >= least) continue;
    faint += QStringLiteral("\"%1\" at %2,%3: %4 on %5 is %6:1\n")
                 .arg(text.text)
                 .arg(text.rect.x())
                 .arg(text.rect.y())
                 .arg(text.ink.name(), text.ground.name())
                 .arg(text.contrast, 0, 'f', 2)
                 .toStdString();
  }
  return faint;
}

}  // namespace brovanta::test
