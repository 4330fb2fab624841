#include "ui/base/icons.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

QImage Drawn(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal,
             QIcon::State state = QIcon::Off) {
  return icon.pixmap(QSize(size, size), 1.0, mode, state).toImage();
}

/// The most opaque colour of the picture: that of its strokes.
QColor Ink(const QImage& image) {
  QColor ink = Qt::transparent;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      if (color.alpha() > ink.alpha()) ink = color;
    }
  }
  return ink;
}

TEST(IconsTest, EveryNumberedIconIsThere) {
  for (const int number : {128, 134, 136, 137, 138, 146, 156, 161}) {
    EXPECT_FALSE(NumberedIcon(number).isNull()) << number;
    EXPECT_EQ(Ink(Drawn(NumberedIcon(number), 24)).alpha(), 255) << number;
  }
}

TEST(IconsTest, UnknownNumbersAndNamesGiveANullIcon) {
  EXPECT_TRUE(NumberedIcon(0).isNull());
  EXPECT_TRUE(NumberedIcon(13).isNull());
  EXPECT_TRUE(NumberedIcon(-1).isNull());
  EXPECT_TRUE(TabIcon(4).isNull());
  EXPECT_TRUE(CommandIcon(2770).isNull());
  EXPECT_TRUE(NamedIcon(QStringLiteral("nothing"), theme::kWarm).isNull());
}

TEST(IconsTest, TabIconsHaveAQuietAndASelectedLook) {
  for (int index = 0; index < 4; ++index) {
    EXPECT_EQ(Ink(Drawn(TabIcon(index), 48)), theme::kQuietText);
    EXPECT_EQ(Ink(Drawn(TabIcon(index), 48, QIcon::Normal, QIcon::On)), theme::kNavy);
  }
}

TEST(IconsTest, CommandIconsHaveADisabledLook) {
  for (const int command : {2771, 2772, 2773, 2789, 2785}) {
    EXPECT_EQ(Ink(Drawn(CommandIcon(command), 48)), theme::kNavy) << command;
    EXPECT_EQ(Ink(Drawn(CommandIcon(command), 48, QIcon::Disabled)), theme::kDisabledText);
  }
}

TEST(IconsTest, NamedIconsTakeTheColorAskedFor) {
  for (const char* const name :
       {"mark_recurring", "chevron_down", "chevron_right", "chevron_left", "warning", "question"}) {
    const QIcon icon = NamedIcon(QLatin1String(name), theme::kWarm);
    EXPECT_EQ(Ink(Drawn(icon, 48)), theme::kWarm) << name;
  }
}

TEST(IconsTest, PicturesAreDrawnAtTheScaleOfTheScreen) {
  const QPixmap pixmap = NumberedIcon(136).pixmap(QSize(20, 20), 3.0);
  EXPECT_EQ(pixmap.size(), QSize(60, 60));
  EXPECT_EQ(pixmap.devicePixelRatio(), 3.0);
}

TEST(IconsTest, PaintingOnADenseSurfaceUsesAllItsPixels) {
  QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(2.0);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  NumberedIcon(136).paint(&painter, QRect(0, 0, 20, 20));
  painter.end();
  EXPECT_EQ(image, NumberedIcon(136)
                       .pixmap(QSize(20, 20), 2.0)
                       .toImage()
                       .convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST(IconsTest, EveryDrawingIsValidAndOnTheTwentyFourGrid) {
  ASSERT_FALSE(NumberedIcon(128).isNull());
  const QDir folder(QStringLiteral(":/brovanta"));
  const QStringList files = folder.entryList({QStringLiteral("*.svg")});
  EXPECT_GE(files.size(), 20);
  for (const QString& name : files) {
    const QSvgRenderer renderer(folder.filePath(name));
    EXPECT_TRUE(renderer.isValid()) << name.toStdString();
    EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 24, 24)) << name.toStdString();
  }
}

/// Pixels that are neither drawn nor empty: the edges of the strokes.
int HalfDrawn(const QImage& image) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const int alpha = qAlpha(image.pixel(x, y));
      if (alpha > 0 && alpha < 255) ++count;
    }
  }
  return count;
}

// A picture that is made larger has edges that grow with its area, a drawing has edges that grow
// with their length.
TEST(IconsTest, PicturesAreSharpAtEveryScale) {
  for (const QString& file :
       QDir(QStringLiteral(":/brovanta")).entryList({QStringLiteral("*.svg")})) {
    const QIcon icon = NamedIcon(file.chopped(4), theme::kNavy);
    const QImage once = icon.pixmap(QSize(24, 24), 1.0).toImage();
    for (const double scale : {1.5, 2.0, 3.0}) {
      const QPixmap pixmap = icon.pixmap(QSize(24, 24), scale);
      EXPECT_EQ(pixmap.size(), QSize(24, 24) * scale) << file.toStdString();
      const int drawn = HalfDrawn(pixmap.toImage());
      const int enlarged =
          HalfDrawn(once.scaled(pixmap.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
      EXPECT_LT(drawn, enlarged * 0.8) << file.toStdString() << " at " << scale;
    }
  }
}

TEST(IconsTest, AllPicturesAreOfOneFamily) {
  const QStringList files = QDir(QStringLiteral(":/brovanta")).entryList({QStringLiteral("*.svg")});
  ASSERT_GT(files.size(), 25);
  const QString root =
      QStringLiteral(R"(viewBox="0 0 24 24" fill="none" stroke="#000080" stroke-width="%1" )"
                     R"(stroke-linecap="round" stroke-linejoin="round">)");
  for (const QString& name : files) {
    QFile file(QStringLiteral(":/brovanta/") + name);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString drawing = QString::fromUtf8(file.readAll());
    // Small marks beside a text have bolder strokes, so that they look as strong as the others.
    const bool mark =
        name.startsWith(QLatin1String("chevron")) || name == QLatin1String("icon_134_arrow.svg");
    const char* const width = mark                                          ? "3.5"
                              : name == QLatin1String("mark_recurring.svg") ? "2.5"
                                                                            : "1.75";
    EXPECT_TRUE(drawing.contains(root.arg(QLatin1String(width)))) << name.toStdString();
    EXPECT_FALSE(drawing.contains(QLatin1String("<image"))) << name.toStdString();
  }
}

TEST(IconsTest, PicturesFollowThePaletteButTheProgramsOwn) {
  const QIcon daily = NumberedIcon(136);
  const QImage program = Drawn(NumberedIcon(128), 32);
  const QColor by_day = Ink(Drawn(daily, 48));
  UseDarkPalette(true);
  EXPECT_EQ(Ink(Drawn(daily, 48)), theme::kNavy);
  EXPECT_NE(Ink(Drawn(daily, 48)), by_day);
  EXPECT_EQ(Drawn(NumberedIcon(128), 32), program);
  UseDarkPalette(false);
  EXPECT_EQ(Ink(Drawn(daily, 48)), by_day);
}

TEST(IconsTest, ALabelShowsTheLastIconInThePaletteInUse) {
  QLabel label;
  label.show();
  ShowIcon(label, NumberedIcon(136), {24, 24});
  ShowIcon(label, NamedIcon(QStringLiteral("warning"), theme::kWarm), {48, 48});
  EXPECT_EQ(label.pixmap().size(), QSize(48, 48));
  UseDarkPalette(true);
  QCoreApplication::processEvents();  // widgets hear of it by events
  EXPECT_EQ(Ink(label.pixmap().toImage()), theme::kWarm);
  UseDarkPalette(false);
  QCoreApplication::processEvents();
  EXPECT_EQ(Ink(label.pixmap().toImage()), theme::kWarm);
}

}  // namespace
}  // namespace brovanta
