#include "ui/base/lined_frame.h"

#include <gtest/gtest.h>

#include <QImage>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

QImage Picture(LinedFrame::Lines lines) {
  LinedFrame frame;
  frame.SetLines(lines);
  frame.resize(40, 20);
  return frame.grab().toImage();
}

TEST(LinedFrameTest, StripAtTheTopHasItsLineBelow) {
  const QImage picture = Picture(LinedFrame::Lines::kBelow);
  EXPECT_EQ(picture.pixelColor(20, 0), theme::kBar);
  EXPECT_EQ(picture.pixelColor(20, 19), theme::kLine);
}

TEST(LinedFrameTest, StripAtTheBottomHasItsLineAbove) {
  const QImage picture = Picture(LinedFrame::Lines::kAbove);
  EXPECT_EQ(picture.pixelColor(20, 0), theme::kLine);
  EXPECT_EQ(picture.pixelColor(20, 19), theme::kBar);
}

TEST(LinedFrameTest, BorderLeavesTheGroundWhite) {
  const QImage picture = Picture(LinedFrame::Lines::kAround);
  EXPECT_EQ(picture.pixelColor(20, 0), theme::kLine);
  EXPECT_EQ(picture.pixelColor(0, 10), theme::kLine);
  EXPECT_EQ(picture.pixelColor(20, 10), theme::kGround);
}

}  // namespace
}  // namespace brovanta
