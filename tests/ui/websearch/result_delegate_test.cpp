#include "ui/websearch/result_delegate.h"

#include <gtest/gtest.h>

#include <QTest>

#include "ui/base/theme.h"
#include "ui/websearch/result_list.h"

namespace brovanta {
namespace {

class ResultDelegateTest : public testing::Test {
 protected:
  ResultDelegateTest() {
    list_.resize(360, 200);
    list_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&list_));
    list_.setFocusPolicy(Qt::NoFocus);  // no frame around the list
    list_.clearFocus();
  }

  void Show(const std::string& title, double price, const char* site) {
    SearchResultItem item;
    item.Title = title;
    item.SiteName = site;
    item.Price = price;
    SearchResultList results;
    results.Append({item});
    list_.SetResults(results);
  }
  QRect RowRect() { return list_.visualItemRect(list_.topLevelItem(0)); }
  QImage Picture() { return list_.viewport()->grab(RowRect()).toImage(); }

  /// Where the upper or the lower half of the row has ink, from `left` on.
  QRect Ink(bool upper, int left = 0) {
    constexpr int kMiddle = 26;
    const QImage image = Picture();
    QRect ink;
    for (int y = upper ? 0 : kMiddle; y < (upper ? kMiddle : image.height() - 1); ++y) {
      for (int x = left; x < image.width(); ++x) {
        if (image.pixelColor(x, y).lightness() < 140) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }

  ResultList list_;
};

TEST_F(ResultDelegateTest, TheTitleIsAtTheLeftThePriceAtTheRightTheShopBelow) {
  Show("Soap", 12.5, "Corner");
  EXPECT_LT(Ink(true).left(), 20);
  EXPECT_GT(Ink(true, 200).left(), 280);
  EXPECT_NEAR(Ink(true).right(), 360 - 11, 3);
  EXPECT_LT(Ink(false).left(), 20);
  EXPECT_LT(Ink(false).right(), 150);
}

TEST_F(ResultDelegateTest, WithoutAPriceTheTitleHasTheWholeLine) {
  const std::string title(2048, 'W');
  Show(title, 9.0, "Corner");
  const QImage with_price = Picture();
  Show(title, 0.0, "Corner");
  EXPECT_NE(Picture(), with_price);
  EXPECT_GT(Ink(true).right(), 320);
  EXPECT_LE(Ink(true).right(), 350);
}

TEST_F(ResultDelegateTest, TheTitleIsBoldAndTheShopIsNot) {
  Show("Soap", 0.0, "Soap");
  EXPECT_GT(Ink(true).width(), Ink(false).width());
}

TEST_F(ResultDelegateTest, MarkupIsNotRead) {
  Show("<h1>S</h1>", 0.0, "");
  EXPECT_GT(Ink(true).width(),
            QFontMetrics(list_.font()).horizontalAdvance(QStringLiteral("<h1>S")));
  EXPECT_TRUE(Ink(false).isEmpty());
}

TEST_F(ResultDelegateTest, AVeryLargePriceLeavesRoomForTheTitle) {
  Show("Soap", 1e200, "Corner");
  const int share = 360 * 45 / 100;
  EXPECT_LT(Ink(true).left(), 20);
  EXPECT_GE(Ink(true, 100).left(), 360 - 10 - share - 2);
  EXPECT_EQ(RowRect().height(), 48);
}

TEST_F(ResultDelegateTest, TheSelectedRowIsMarkedOverItsWholeWidth) {
  Show("Soap", 1.0, "Corner");
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {200, 20});
  EXPECT_EQ(Picture().pixelColor(1, 3), theme::kNavy);
  EXPECT_EQ(Picture().pixelColor(357, 3), theme::kSelection);
  list_.clearSelection();
  EXPECT_EQ(Picture().pixelColor(357, 3), theme::kGround);
}

TEST_F(ResultDelegateTest, RowsGrowWithTheFont) {
  Show("Soap", 1.0, "Corner");
  EXPECT_EQ(RowRect().height(), 48);
  QFont large = list_.font();
  large.setPixelSize(40);
  list_.setFont(large);
  list_.doItemsLayout();
  EXPECT_GT(RowRect().height(), 80);
}

}  // namespace
}  // namespace brovanta
