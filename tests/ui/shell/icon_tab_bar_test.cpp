#include "ui/shell/icon_tab_bar.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "ui/base/icons.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

class IconTabBarTest : public testing::Test {
 protected:
  IconTabBarTest() {
    for (int i = 0; i < 4; ++i) tabs_.addTab(TabIcon(i), QString());
    tabs_.resize(tabs_.sizeHint());
  }

  /// First and last column of a tab that carry ink in the rows above the underline.
  std::pair<int, int> InkOf(int index) {
    const QImage image = tabs_.grab(tabs_.tabRect(index)).toImage();
    const QColor ground = index == tabs_.currentIndex() ? theme::kGround : theme::kBar;
    std::pair ink{image.width(), -1};
    for (int x = 6; x < image.width() - 6; ++x) {
      for (int y = 3; y < 24; ++y) {
        if (image.pixelColor(x, y) == ground) continue;
        ink = {std::min(ink.first, x), std::max(ink.second, x)};
      }
    }
    return ink;
  }

  IconTabBar tabs_;
};

TEST_F(IconTabBarTest, TabsAre56By28WhateverTheFont) {
  for (int i = 0; i < 4; ++i) EXPECT_EQ(tabs_.tabRect(i).size(), QSize(56, 28));
  QFont font = tabs_.font();
  font.setPixelSize(60);
  tabs_.setFont(font);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(tabs_.tabRect(i).size(), QSize(56, 28));
}

TEST_F(IconTabBarTest, PicturesStandInTheMiddleAndKeepTheirMargin) {
  for (int i = 0; i < 4; ++i) {
    const auto [first, last] = InkOf(i);
    EXPECT_NEAR((first + last) / 2.0, 27.5, 2.0) << i;
    EXPECT_LE(last - first, 22) << i;
    EXPECT_GE(last - first, 12) << i;
  }
}

TEST_F(IconTabBarTest, SelectedTabIsWhiteWithANavyUnderline) {
  tabs_.setCurrentIndex(2);
  const QImage selected = tabs_.grab(tabs_.tabRect(2)).toImage();
  EXPECT_EQ(selected.pixelColor(10, 14), theme::kGround);
  EXPECT_EQ(selected.pixelColor(28, 27), theme::kNavy);
  const QImage other = tabs_.grab(tabs_.tabRect(1)).toImage();
  EXPECT_EQ(other.pixelColor(10, 14), theme::kBar);
  EXPECT_EQ(other.pixelColor(28, 27), theme::kBar);
}

TEST(IconTabBarStripTest, ATapAboveATabIsOneOnIt) {
  QWidget strip;
  strip.resize(300, 40);
  IconTabBar tabs(&strip);
  for (int i = 0; i < 4; ++i) tabs.addTab(TabIcon(i), QString());
  tabs.setGeometry(8, 11, 224, 28);
  tabs.TakeTapsOf(strip);
  strip.show();
  QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(8 + 2 * 56 + 20, 3));
  EXPECT_EQ(tabs.currentIndex(), 2);
  QTest::mouseClick(&strip, Qt::LeftButton, {}, QPoint(280, 3));
  EXPECT_EQ(tabs.currentIndex(), 2) << "beside the tabs";
  QTest::mouseClick(&strip, Qt::RightButton, {}, QPoint(20, 3));
  EXPECT_EQ(tabs.currentIndex(), 2);
}

}  // namespace
}  // namespace brovanta
