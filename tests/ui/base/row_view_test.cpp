#include "ui/base/row_view.h"

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTest>
#include <QTreeView>

#include "tests/support/painted_texts.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

/// A view as a list of the screens uses the functions.
class RowView : public QTreeView {
 public:
  QString empty_text;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QTreeView::focusInEvent(event);
    DropFocusRow(*this);
  }
  void paintEvent(QPaintEvent* event) override {
    QTreeView::paintEvent(event);
    PaintRowViewSigns(*this, empty_text);
  }
};

class RowViewTest : public testing::Test {
 protected:
  RowViewTest() {
    view_.setModel(&model_);
    SetUpRowView(view_);
    view_.resize(360, 200);
    view_.show();
    view_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view_));
  }

  QStandardItemModel model_;
  RowView view_;
};

TEST_F(RowViewTest, ShowsRowsOnly) {
  EXPECT_TRUE(view_.header()->isHidden());
  EXPECT_FALSE(view_.rootIsDecorated());
  EXPECT_EQ(view_.indentation(), 0);
  EXPECT_EQ(view_.selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(RowViewTest, FocusTakesNoRowUntilOneIsSelected) {
  model_.appendRow(new QStandardItem(QStringLiteral("Milk")));
  view_.clearFocus();
  view_.setFocus();
  EXPECT_FALSE(CaretOf(view_).isValid());
  EXPECT_FALSE(view_.currentIndex().isValid());
  QTest::keyClick(&view_, Qt::Key_Down);
  EXPECT_EQ(CaretOf(view_), model_.index(0, 0));
  view_.clearFocus();
  view_.setFocus();
  EXPECT_EQ(view_.currentIndex(), model_.index(0, 0));
}

TEST_F(RowViewTest, FrameShowsTheFocusWhereNoRowDoes) {
  view_.setFocus();
  EXPECT_EQ(view_.viewport()->grab().toImage().pixelColor(0, 0), theme::kNavy);
  view_.clearFocus();
  EXPECT_NE(view_.viewport()->grab().toImage().pixelColor(0, 0), theme::kNavy);
}

TEST_F(RowViewTest, WordsStandOnTheGroundOfAListWithoutRows) {
  view_.clearFocus();
  const QImage blank = view_.viewport()->grab().toImage();
  view_.empty_text = QStringLiteral("Nothing to buy");
  EXPECT_NE(view_.viewport()->grab().toImage(), blank);
  model_.appendRow(new QStandardItem(QString()));
  const QImage row = view_.viewport()->grab().toImage();
  view_.empty_text.clear();
  EXPECT_EQ(view_.viewport()->grab().toImage(), row);
}

TEST_F(RowViewTest, AViewWithoutRowsIsDescribedByWhatItSays) {
  const QString words = QStringLiteral("Nothing to buy");
  DescribeEmptyView(view_, words);
  EXPECT_EQ(view_.accessibleDescription(), words);
  model_.appendRow(new QStandardItem(QStringLiteral("Milk")));
  DescribeEmptyView(view_, words);
  EXPECT_TRUE(view_.accessibleDescription().isEmpty());
}

TEST_F(RowViewTest, TheWordsOfALowListAreShownWhole) {
  view_.empty_text = QStringLiteral("Nothing to buy on this day\nAdd a product with +.");
  QFont large = view_.font();
  large.setPixelSize(28);
  view_.setFont(large);
  view_.resize(240, 96);
  const QRectF ground(view_.viewport()->rect());
  int smallest = 28;
  QString said;
  for (const test::PaintedText& text : test::PaintedTexts(*view_.viewport(), false)) {
    EXPECT_TRUE(ground.contains(text.whole)) << text.text.toStdString();
    smallest = std::min(smallest, text.pixel_size);
    said += text.text;
  }
  EXPECT_THAT(said.toStdString(), testing::HasSubstr("product with +."));
  EXPECT_LT(smallest, 28);
  EXPECT_GE(smallest, theme::kLeastTextPixels);
}

}  // namespace
}  // namespace brovanta
