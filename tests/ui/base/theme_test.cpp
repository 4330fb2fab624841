#include "ui/base/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QPalette>
#include <QToolTip>

namespace brovanta {
namespace {

class ThemeTest : public testing::Test {
 protected:
  ThemeTest() : before_(QApplication::font()) {}
  ~ThemeTest() override { QApplication::setFont(before_); }

  void ApplyWithPixels(int pixels) {
    QFont font = before_;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    ApplyTheme(*qApp);
  }

  QFont before_;
};

TEST_F(ThemeTest, ASmallSystemFontIsRaisedToFourteenPixels) {
  ApplyWithPixels(9);
  EXPECT_EQ(QFontInfo(QApplication::font()).pixelSize(), 14);
}

TEST_F(ThemeTest, ALargeSystemFontIsKept) {
  ApplyWithPixels(30);
  EXPECT_EQ(QFontInfo(QApplication::font()).pixelSize(), 30);
}

TEST_F(ThemeTest, GroundIsWhiteAndTheAccentNavy) {
  const QPalette palette = QApplication::palette();
  EXPECT_EQ(palette.color(QPalette::Window), QColor(255, 255, 255));
  EXPECT_EQ(palette.color(QPalette::ButtonText), QColor(0, 0, 128));
  EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text),
            palette.color(QPalette::Active, QPalette::Text));
}

TEST_F(ThemeTest, ADarkPaletteHasDarkGroundsAndLightTexts) {
  UseDarkPalette(true);
  const QPalette palette = QApplication::palette();
  EXPECT_LT(palette.color(QPalette::Window).lightness(), 40);
  EXPECT_GT(palette.color(QPalette::WindowText).lightness(), 200);
  EXPECT_EQ(palette.color(QPalette::ButtonText), theme::kNavy);
  EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), palette.color(QPalette::Window));
  EXPECT_TRUE(UsesDarkPalette());
  UseDarkPalette(false);
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(255, 255, 255));
}

TEST_F(ThemeTest, WorkIsDoneAgainWithEachPaletteAsLongAsTheWidgetLives) {
  int times = 0;
  {
    QLabel label;
    label.show();  // one that is not shown yet gets its palette with that
    InkWithAccent(label);
    KeepInPalette(label, [&times] { ++times; });
    EXPECT_EQ(times, 1);
    UseDarkPalette(true);
    QCoreApplication::processEvents();  // widgets hear of it by events
    EXPECT_GT(times, 1);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), theme::kNavy);
    UseDarkPalette(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(0, 0, 128));
  }
  const int until_now = times;
  UseDarkPalette(true);
  QCoreApplication::processEvents();
  UseDarkPalette(false);
  QCoreApplication::processEvents();
  EXPECT_EQ(times, until_now);
}

}  // namespace
}  // namespace brovanta
