#include "ui/websearch/agent_delegate.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "ui/base/theme.h"
#include "ui/websearch/agent_list.h"

namespace brovanta {
namespace {

class AgentDelegateTest : public testing::Test {
 protected:
  AgentDelegateTest() {
    list_.resize(360, 300);
    list_.AddAgent(1, QStringLiteral("Corner"));
    list_.SetState(1, QStringLiteral("searching"));
  }
  /// The first row as it is drawn.
  QImage Row() {
    list_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&list_));
    const QRect row = list_.visualItemRect(list_.topLevelItem(0));
    return list_.viewport()->grab(row).toImage();
  }
  /// Whether anything of that color stands between the two columns of pixels.
  static bool Has(const QImage& image, const QColor& color, int from, int to) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = from; x < to; ++x) {
        if (image.pixelColor(x, y) == color) return true;
      }
    }
    return false;
  }
  QSize Hint(int column) {
    QStyleOptionViewItem option;
    option.font = list_.font();
    return AgentDelegate().sizeHint(option, list_.model()->index(0, column));
  }
  AgentList list_;
};

TEST_F(AgentDelegateTest, RowIsAFingerHighOrAsHighAsItsText) {
  EXPECT_EQ(Hint(0).height(), theme::kFingerHeight);
  QFont font = list_.font();
  font.setPixelSize(60);
  list_.setFont(font);
  EXPECT_GT(Hint(0).height(), 60);
  EXPECT_EQ(Hint(0).height(), Hint(1).height());
}

TEST_F(AgentDelegateTest, ColumnIsAsWideAsItsText) {
  const int before = Hint(1).width();
  EXPECT_GT(before, QFontMetrics(list_.font()).horizontalAdvance(QStringLiteral("searching")));
  list_.SetState(1, QStringLiteral("12345 results and more"));
  EXPECT_GT(Hint(1).width(), before);
}

TEST_F(AgentDelegateTest, PictureStandsLeftOfTheNameAndTheStateAtTheRight) {
  const QImage row = Row();
  EXPECT_TRUE(Has(row, theme::kNavy, theme::kMargin, theme::kMargin + 16)) << "the picture";
  EXPECT_TRUE(Has(row, theme::kText, theme::kMargin + 16, 180)) << "the name";
  EXPECT_TRUE(Has(row, theme::kQuietText, 260, 352)) << "the state";
  EXPECT_FALSE(Has(row, theme::kQuietText, 120, 250)) << "nothing between them";
}

TEST_F(AgentDelegateTest, RowsAreParted) {
  const QImage row = Row();
  for (int x = 20; x < row.width(); x += 40) {
    EXPECT_EQ(row.pixelColor(x, row.height() - 1), theme::kLine) << x;
  }
  EXPECT_EQ(row.pixelColor(2, 2), theme::kGround);
}

}  // namespace
}  // namespace brovanta
