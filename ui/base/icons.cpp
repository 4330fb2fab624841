#include "ui/base/icons.h"

#include <QDir>
#include <QFile>
#include <QIconEngine>
#include <QLabel>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "ui/base/theme.h"

/// The pictures lie in a static library, where the linker would drop what nobody mentions. The
/// macro does not work inside a namespace.
static void RegisterPictures() {
  static const bool kRegistered = [] {
    Q_INIT_RESOURCE(pictures);
    return true;
  }();
  Q_UNUSED(kRegistered);
}

namespace brovanta {

namespace {

const QString kFolder = QStringLiteral(":/brovanta/");
/// The colour that all drawings are made in.
constexpr char kDrawnIn[] = "#000080";
constexpr int kProgramIcon = 128;

/// Draws one SVG in a colour for each of its looks, as vectors at whatever scale is asked for.
class SvgEngine : public QIconEngine {
 public:
  SvgEngine(const QString& file, ThemeColor off, ThemeColor on) : file_(file), off_(off), on_(on) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device() == nullptr ? 1.0 : painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, Render(rect.size() * ratio, mode, state));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Render(size, mode, state);
  }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal /*scale*/) override {
    return Render(size, mode, state);
  }

  /// What window managers are given; each size is drawn when a window opens.
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    return {{32, 32}, {64, 64}};
  }

  [[nodiscard]] QIconEngine* clone() const override { return new SvgEngine(file_, off_, on_); }

 private:
  [[nodiscard]] QPixmap Render(const QSize& size, QIcon::Mode mode, QIcon::State state) const {
    QColor color = state == QIcon::On ? on_ : off_;
    if (mode == QIcon::Disabled) color = theme::kDisabledText;
    const QString key = QStringLiteral("brovanta %1 %2 %3x%4")
                            .arg(file_, color.name())
                            .arg(size.width())
                            .arg(size.height());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    QFile file(file_);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QSvgRenderer renderer(file.readAll().replace(kDrawnIn, color.name().toLatin1()));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
  }

  QString file_;
  ThemeColor off_;
  ThemeColor on_;
};

QIcon IconFromFile(const QString& path, ThemeColor off, ThemeColor on) {
  RegisterPictures();
  if (!QFile::exists(path)) return {};
  return QIcon(new SvgEngine(path, off, on));
}

}  // namespace

QIcon NumberedIcon(int number) {
  RegisterPictures();
  static const QStringList kFiles = QDir(kFolder).entryList(QDir::Files, QDir::Name);
  // The program's own has a ground of its own, which is navy day and night.
  const ThemeColor color =
      number == kProgramIcon ? ThemeColor(QColor(QLatin1String(kDrawnIn))) : theme::kNavy;
  for (const char* const kind : {"icon", "bitmap"}) {
    const QString start = QStringLiteral("%1_%2_").arg(QLatin1String(kind)).arg(number);
    for (const QString& file : kFiles) {
      if (file.startsWith(start)) {
        return IconFromFile(kFolder + file, color, color);
      }
    }
  }
  return {};
}

QIcon TabIcon(int index) {
  return IconFromFile(kFolder + QStringLiteral("bitmap_135_tab_%1.svg").arg(index),
                      theme::kQuietText, theme::kNavy);
}

QIcon CommandIcon(int command) {
  return IconFromFile(kFolder + QStringLiteral("toolbar_129_%1.svg").arg(command), theme::kNavy,
                      theme::kNavy);
}

QIcon NamedIcon(const QString& name, ThemeColor color) {
  return IconFromFile(kFolder + name + QStringLiteral(".svg"), color, color);
}

void ShowIcon(QLabel& label, const QIcon& icon, QSize size, QIcon::State state) {
  static const QString kKeeper = QStringLiteral("shownIcon");
  delete label.findChild<QObject*>(kKeeper, Qt::FindDirectChildrenOnly);  // of the one before
  KeepInPalette(label, [&label, icon, size, state] {
    label.setPixmap(icon.pixmap(size, label.devicePixelRatioF(), QIcon::Normal, state));
  })->setObjectName(kKeeper);
}

}  // namespace brovanta
