#include <gtest/gtest.h>

#include <QImage>
#include <QMenu>
#include <QTest>

#include "ui/base/color_button.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

class ColorButtonPaintingTest : public testing::Test {
 protected:
  ColorButtonPaintingTest() : button_(&window_) {
    window_.resize(300, 300);
    button_.setGeometry(20, 20, 160, 40);
  }

  void Show() {
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  QColor PixelAt(QPoint point) { return button_.grab().toImage().pixelColor(point); }

  /// Dark pixels in a part of the button.
  int InkIn(QRect area) {
    const QImage image = button_.grab(area).toImage();
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) dark += image.pixelColor(x, y).lightness() < 150;
    }
    return dark;
  }

  QWidget window_;
  ColorButton button_;
};

TEST_F(ColorButtonPaintingTest, EvenColorsAreBackgroundsOfTheThreeStates) {
  Show();
  button_.SetColor(0, Qt::green, true);
  button_.SetColor(2, Qt::yellow, true);
  button_.SetColor(4, Qt::cyan, true);
  window_.setFocus();
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::green));
  button_.setFocus();
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::cyan));
  button_.setDown(true);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::yellow));
}

TEST_F(ColorButtonPaintingTest, AlignmentDecidesOnWhichSideThePictureStands) {
  button_.setText(QStringLiteral("."));
  button_.SetPictures(156, {20, 20}, 0, {}, 0, {});
  const QRect left(0, 0, 30, 40);
  const QRect right(130, 0, 30, 40);
  button_.SetAlignment(0, true);
  EXPECT_GT(InkIn(left), InkIn(right));
  button_.SetAlignment(2, true);
  EXPECT_LT(InkIn(left), InkIn(right));
}

TEST_F(ColorButtonPaintingTest, APressShowsEvenWhereAllColorsAreAlike) {
  Show();
  const QColor before = PixelAt({80, 8});
  button_.setDown(true);
  EXPECT_NE(PixelAt({80, 8}), before);
}

TEST_F(ColorButtonPaintingTest, IsDrawnPressedWhileItsMenuShows) {
  Show();
  QMenu menu;
  menu.addAction(QStringLiteral("Daily"));
  button_.AttachMenu(&menu, true);
  button_.SetColor(ColorButton::kPressedBackground, Qt::yellow, true);
  window_.setFocus();
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white));
  QTest::mouseClick(&button_, Qt::LeftButton);
  ASSERT_TRUE(menu.isVisible());
  EXPECT_FALSE(button_.isDown());
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::yellow));
  menu.close();
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white));
}

TEST_F(ColorButtonPaintingTest, FocusShowsARing) {
  Show();
  button_.setFocus();
  EXPECT_EQ(PixelAt({80, 1}), theme::kNavy);
}

TEST_F(ColorButtonPaintingTest, IsAFingerHigh) {
  button_.setText(QStringLiteral("All Stores"));
  EXPECT_GE(button_.sizeHint().height(), theme::kFingerHeight);
  EXPECT_GE(button_.sizeHint().width(),
            button_.fontMetrics().horizontalAdvance(QStringLiteral("All Stores")));
}

TEST_F(ColorButtonPaintingTest, CenteredPictureStandsAboveTheText) {
  button_.resize(160, 60);
  button_.setText(QStringLiteral("."));
  button_.SetPictures(156, {20, 20}, 0, {}, 0, {});
  button_.SetAlignment(1, true);
  EXPECT_GT(InkIn({60, 0, 40, 34}), InkIn({60, 34, 40, 26}));
  EXPECT_EQ(InkIn({0, 0, 50, 60}), 0);
}

TEST_F(ColorButtonPaintingTest, ALongTextIsElidedInsideTheButton) {
  button_.setText(QString(60, QLatin1Char('M')));
  EXPECT_EQ(InkIn({0, 0, 7, 40}), 0);
  EXPECT_EQ(InkIn({154, 0, 6, 40}), 0);
  EXPECT_GT(InkIn({10, 0, 140, 40}), 0);
}

TEST_F(ColorButtonPaintingTest, TheSecondPictureShowsWhilePressedAndTheThirdWhileDisabled) {
  button_.SetPictures(136, {20, 20}, 156, {20, 20}, 146, {20, 20});
  const QImage normal = button_.grab().toImage();
  button_.SetPictures(156, {20, 20}, 156, {20, 20}, 146, {20, 20});
  button_.setDown(true);
  const QImage second = button_.grab().toImage();
  button_.SetPictures(136, {20, 20}, 156, {20, 20}, 146, {20, 20});
  EXPECT_EQ(button_.grab().toImage(), second);
  EXPECT_NE(second, normal);
  button_.setDown(false);
  button_.setEnabled(false);
  const QImage third = button_.grab().toImage();
  button_.SetPictures(136, {20, 20}, 156, {20, 20}, 0, {});
  EXPECT_NE(button_.grab().toImage(), third);
}

TEST_F(ColorButtonPaintingTest, AMenuIsMarkedUnlessThePictureIsTheArrow) {
  QMenu menu;
  const QRect right_end(130, 0, 24, 40);
  button_.SetPictures(136, {20, 20}, 0, {}, 0, {});
  EXPECT_EQ(InkIn(right_end), 0);
  button_.AttachMenu(&menu, true);
  EXPECT_GT(InkIn(right_end), 0);
  button_.setText(QStringLiteral("All"));
  button_.SetPictures(134, {12, 12}, 0, {}, 0, {});
  EXPECT_EQ(InkIn(right_end), 0);
}

}  // namespace
}  // namespace brovanta
