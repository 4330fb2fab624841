#include "ui/base/row_painting.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

constexpr QSize kRow{300, 48};

class RowPaintingTest : public testing::Test {
 protected:
  RowPaintingTest() : image_(kRow, QImage::Format_RGB32), painter_(&image_) {
    image_.fill(Qt::white);
    font_.setPixelSize(16);
  }

  QRect Ink() {
    QRect ink;
    for (int y = 0; y < image_.height(); ++y) {
      for (int x = 0; x < image_.width(); ++x) {
        if (image_.pixelColor(x, y) != QColor(Qt::white)) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }

  QImage image_;
  QPainter painter_;
  QFont font_;
};

TEST_F(RowPaintingTest, FontsAreScaledByPixelsAndByPoints) {
  EXPECT_EQ(ScaledFont(font_, 0.5).pixelSize(), 8);
  QFont points;
  points.setPointSizeF(20);
  EXPECT_DOUBLE_EQ(ScaledFont(points, 0.5).pointSizeF(), 10);
  font_.setPixelSize(1);
  EXPECT_EQ(ScaledFont(font_, 0.1).pixelSize(), 1);
  EXPECT_TRUE(BoldFont(font_).bold());
}

TEST_F(RowPaintingTest, ASelectedRowHasItsColourAndABarAtTheLeft) {
  QStyleOptionViewItem option;
  option.rect = QRect(QPoint(0, 0), kRow);
  PaintRowGround(painter_, option, theme::kBar);
  EXPECT_EQ(image_.pixelColor(0, 10), theme::kBar);
  option.state |= QStyle::State_Selected;
  PaintRowGround(painter_, option, theme::kBar);
  EXPECT_EQ(image_.pixelColor(1, 10), theme::kNavy);
  EXPECT_EQ(image_.pixelColor(10, 10), theme::kSelection);
}

TEST_F(RowPaintingTest, TheLineIsAtTheLowerEdgeBehindTheIndent) {
  PaintRowLine(painter_, QRect(QPoint(0, 0), kRow), 28);
  EXPECT_EQ(Ink(), QRect(28, 47, 272, 1));
}

TEST_F(RowPaintingTest, ALongTextEndsInAnEllipsisWithinItsRectangle) {
  const QRect rect(20, 10, 100, 20);
  PaintRowText(painter_, font_, Qt::black, rect, QString(2048, QLatin1Char('W')), Qt::AlignLeft);
  EXPECT_FALSE(Ink().isEmpty());
  EXPECT_TRUE(rect.adjusted(-1, -1, 1, 1).contains(Ink()));
}

TEST_F(RowPaintingTest, TwoLinesShareTheSlack) {
  const RowLines lines = TwoLines(QRect(10, 5, 200, 38), 17, 15);
  EXPECT_EQ(lines.upper, QRect(10, 7, 200, 17));
  EXPECT_EQ(lines.lower, QRect(10, 26, 200, 15));
  const RowLines tight = TwoLines(QRect(0, 0, 10, 20), 17, 15);
  EXPECT_EQ(tight.upper.top(), 0);
  EXPECT_EQ(tight.lower.bottom(), 19);
}

TEST_F(RowPaintingTest, TheRoomBesideASideTextIsWhatItLeaves) {
  const QRect line(0, 4, 290, 20);
  for (const QString& text : {QString(), QStringLiteral("Store"), QString(200, QLatin1Char('M'))}) {
    const QRect left = PaintSideText(painter_, font_, Qt::black, line, 300, text);
    EXPECT_EQ(RoomBesideSideText(font_, line, 300, text), left.width()) << text.toStdString();
  }
}

TEST_F(RowPaintingTest, ASideTextEndsAtTheRightAndLeavesTheRest) {
  const QRect line(20, 10, 270, 20);
  const QRect rest =
      PaintSideText(painter_, font_, Qt::black, line, kRow.width(), QStringLiteral("$1.00"));
  const int width = QFontMetrics(font_).horizontalAdvance(QStringLiteral("$1.00")) + 1;
  EXPECT_EQ(rest, QRect(20, 10, 270 - width - kRowGap, 20));
  EXPECT_GE(Ink().left(), 289 - width);
  EXPECT_LE(Ink().right(), 290);
}

TEST_F(RowPaintingTest, ASideTextTakesLessThanHalfOfTheRow) {
  const QRect line(20, 10, 270, 20);
  const QRect rest =
      PaintSideText(painter_, font_, Qt::black, line, kRow.width(), QString(300, QLatin1Char('9')));
  EXPECT_EQ(rest.width(), 270 - 135 - kRowGap);
  EXPECT_GE(Ink().left(), 290 - 135 - 1);
}

TEST_F(RowPaintingTest, WithoutASideTextTheLineIsWhole) {
  const QRect line(20, 10, 270, 20);
  EXPECT_EQ(PaintSideText(painter_, font_, Qt::black, line, kRow.width(), QString()), line);
  EXPECT_TRUE(Ink().isEmpty());
}

TEST_F(RowPaintingTest, LettersGetSmallerWhereATextWouldBeCutButNotSmall) {
  const QString words = QStringLiteral("2 days overdue");
  font_.setPixelSize(32);
  const int wanted = QFontMetrics(font_).horizontalAdvance(words) + 1;
  EXPECT_EQ(FittingFont(font_, words, wanted), font_);
  const QFont fitting = FittingFont(font_, words, wanted * 3 / 4);
  EXPECT_LE(QFontMetrics(fitting).horizontalAdvance(words), wanted * 3 / 4);
  EXPECT_GT(fitting.pixelSize(), 20);
  EXPECT_EQ(FittingFont(font_, words, 10).pixelSize(), theme::kLeastTextPixels);
  EXPECT_EQ(FittingFont(font_, words, 10, 20).pixelSize(), 20);
}

TEST_F(RowPaintingTest, EachWordHasRoomAndTheWholeTextNeedNot) {
  const QString words = QStringLiteral("The results could not be read");
  font_.setPixelSize(32);
  const int longest = QFontMetrics(font_).horizontalAdvance(QStringLiteral("results")) + 1;
  EXPECT_EQ(FontForWords(font_, words, longest), font_);
  const QFont fitting = FontForWords(font_, words, longest - 20);
  EXPECT_LT(fitting.pixelSize(), 32);
  EXPECT_LE(QFontMetrics(fitting).horizontalAdvance(QStringLiteral("results")), longest - 20);
}

TEST_F(RowPaintingTest, LargePrintInRowsIsAsLargeAsTheWidthAllows) {
  font_.setPixelSize(28);
  EXPECT_EQ(RowFont(font_, 322), font_) << "on a usual screen as it is";
  EXPECT_LT(RowFont(font_, 202).pixelSize(), 24);
  EXPECT_GE(RowFont(font_, 202).pixelSize(), theme::kLeastTextPixels);
}

TEST_F(RowPaintingTest, SmallLettersStayAsTheyAre) {
  font_.setPixelSize(theme::kLeastTextPixels - 2);
  EXPECT_EQ(FittingFont(font_, QStringLiteral("until 12/21/2026"), 10), font_);
}

}  // namespace
}  // namespace brovanta
