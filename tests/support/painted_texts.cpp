#include "tests/support/painted_texts.h"

#include <QFontInfo>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

namespace brovanta::test {
namespace {

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
    const QRectF whole = transform_.mapRect(rect);
    QRectF shown = whole;
    if (painter()->hasClipping()) {
      shown &= transform_.mapRect(painter()->clipBoundingRect());
    }
    texts.append({item.text(), whole, shown, QFontInfo(item.font()).pixelSize()});
  }

  QList<PaintedText> texts;

 private:
  QTransform transform_;
};

class TextDevice : public QPaintDevice {
 public:
  explicit TextDevice(QSize size) : size_(size) {}

  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
  [[nodiscard]] const QList<PaintedText>& texts() const { return engine_.texts; }

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

}  // namespace

QList<PaintedText> PaintedTexts(QWidget& widget, bool with_children) {
  TextDevice device(widget.size());
  QWidget::RenderFlags parts = QWidget::DrawWindowBackground;
  parts.setFlag(QWidget::DrawChildren, with_children);
  widget.render(&device, QPoint(), QRegion(), parts);
  return device.texts();
}

}  // namespace brovanta::test
