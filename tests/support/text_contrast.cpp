#include "tests/support/text_contrast.h"

#include <QAction>
#include <QFontInfo>
#include <QHash>
#include <QImage>
#include <QMenu>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>
#include <cmath>

namespace brovanta::test {
namespace {

constexpr int kScale = 2;                 // strokes are then wide enough to show their colour
constexpr double kRareShare = 1.0 / 200;  // of the pixels: what is rarer is an edge's mixture

/// Notes where texts are painted, and paints nothing.
class TextEngine : public QPaintEngine {
 public:
  TextEngine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState& now) override {
    // The painter's own does not tell where a widget lies in its screen.
    if (now.state().testFlag(DirtyTransform)) transform_ = now.transform();
  }
  void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/,
                  const QRectF& /*from*/) override {}
  void drawPath(const QPainterPath& /*path*/) override {}
  void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
  [[nodiscard]] Type type() const override { return User; }

  void drawTextItem(const QPointF& position, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty()) return;
    const QRectF rect(position.x(), position.y() - item.ascent(), item.width(),
                      item.ascent() + item.descent());
    QRectF shown = transform_.mapRect(rect);
    if (painter()->hasClipping()) {
      shown &= transform_.mapRect(painter()->clipBoundingRect());
    }
    texts.append({item.text(), shown.toAlignedRect(), QFontInfo(item.font()).pixelSize(), {}, {}});
  }

  QList<ShownText> texts;

 private:
  QTransform transform_;
};

class TextDevice : public QPaintDevice {
 public:
  explicit TextDevice(QSize size) : size_(size) {}

  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] const QList<ShownText>& texts() const { return engine_.texts; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    constexpr int kDotsPerInch = 96;
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return kDotsPerInch;
      case PdmDepth:
        return 32;
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return 0;
    }
  }

 private:
  QSize size_;
  mutable TextEngine engine_;
};

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
  TextDevice device(screen.size());
  screen.render(&device);
  const QImage picture = PictureOf(screen);
  QList<ShownText> texts;
  for (ShownText text : device.texts()) {
    text.rect &= screen.rect();
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
