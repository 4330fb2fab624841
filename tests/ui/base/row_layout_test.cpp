#include "ui/base/row_layout.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace brovanta {
namespace {

class Block : public QWidget {
 public:
  [[nodiscard]] QSize sizeHint() const override { return {30, 10}; }
};

TEST(RowLayoutTest, TheWidthInARowCountsMarginsAndGaps) {
  QWidget window;
  QVBoxLayout line(&window);
  line.setContentsMargins(1, 9, 2, 9);
  line.setSpacing(5);
  for (int i = 0; i < 3; ++i) line.addWidget(new Block);
  EXPECT_EQ(WidthInARow(line), 1 + 30 + 5 + 30 + 5 + 30 + 2);
}

TEST(RowLayoutTest, ALineIsARowOrAColumn) {
  QWidget window;
  QVBoxLayout line(&window);
  SetInARow(line, true);
  EXPECT_EQ(line.direction(), QBoxLayout::LeftToRight);
  SetInARow(line, false);
  EXPECT_EQ(line.direction(), QBoxLayout::TopToBottom);
}

TEST(RowLayoutTest, FiltersMoveTogetherBeforeTheyGoBelowEachOther) {
  QWidget window;
  QHBoxLayout line(&window);
  line.addWidget(new Block);
  line.addStretch();
  line.addWidget(new Block);
  EXPECT_EQ(ArrangeFilters(line, 76), 30 + 30 + 6 + 2 * 5);
  EXPECT_EQ(line.direction(), QBoxLayout::LeftToRight);
  EXPECT_EQ(line.contentsMargins().left(), 5);
  EXPECT_EQ(ArrangeFilters(line, 64), 76);
  EXPECT_EQ(line.direction(), QBoxLayout::LeftToRight);
  EXPECT_EQ(line.contentsMargins().left(), 2);
  EXPECT_EQ(line.spacing(), 0);
  EXPECT_EQ(ArrangeFilters(line, 63), 76);
  EXPECT_EQ(line.direction(), QBoxLayout::TopToBottom);
  EXPECT_EQ(line.contentsMargins().left(), 5);
}

TEST(RowLayoutTest, APlanTellsHowHighTheFiltersGet) {
  QWidget window;
  QHBoxLayout line(&window);
  line.addWidget(new Block);
  line.addWidget(new Block);
  EXPECT_TRUE(PlanFilters(line, 64).in_a_row);
  EXPECT_EQ(PlanFilters(line, 64).height, 10);
  EXPECT_FALSE(PlanFilters(line, 63).in_a_row);
  EXPECT_EQ(PlanFilters(line, 63).height, 10 + 6 + 10);
  EXPECT_EQ(line.direction(), QBoxLayout::LeftToRight) << "nothing is arranged yet";
}

}  // namespace
}  // namespace brovanta
