#include "ui/base/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QPalette>

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

}  // namespace
}  // namespace brovanta
