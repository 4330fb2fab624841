#include "ui/base/row_tree.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

class RowTreeTest : public testing::Test {
 protected:
  RowTreeTest() {
    for (const char* text : {"one", "two", "three"}) {
      tree_.addTopLevelItem(new QTreeWidgetItem({QString::fromLatin1(text)}));
    }
    tree_.resize(300, 200);
    tree_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&tree_));
  }

  QPoint Middle(int row) { return tree_.visualItemRect(tree_.topLevelItem(row)).center(); }
  void Click(int row) { QTest::mouseClick(tree_.viewport(), Qt::LeftButton, {}, Middle(row)); }

  RowTree tree_;
  QSignalSpy caret_changed_{&tree_, &RowTree::CaretChanged};
  QSignalSpy chosen_{&tree_, &RowTree::RowChosen};
};

TEST_F(RowTreeTest, TheFocusTakesNoRowAndTheFirstArrowTakesTheFirst) {
  tree_.setFocus();
  EXPECT_EQ(tree_.Caret(), nullptr);
  QTest::keyClick(&tree_, Qt::Key_Down);
  EXPECT_EQ(tree_.Caret(), tree_.topLevelItem(0));
  EXPECT_EQ(caret_changed_.count(), 1);
}

TEST_F(RowTreeTest, ATapMovesTheCaret) {
  Click(2);
  Click(1);
  EXPECT_EQ(tree_.Caret(), tree_.topLevelItem(1));
  EXPECT_EQ(caret_changed_.count(), 2);
  EXPECT_EQ(chosen_.count(), 0);
}

TEST_F(RowTreeTest, EnterReturnAndADoubleTapChoose) {
  Click(1);
  QTest::keyClick(&tree_, Qt::Key_Return);
  QTest::keyClick(&tree_, Qt::Key_Enter, Qt::KeypadModifier);
  QTest::mouseDClick(tree_.viewport(), Qt::LeftButton, {}, Middle(1));
  ASSERT_EQ(chosen_.count(), 3);
  for (const QList<QVariant>& call : chosen_) {
    EXPECT_EQ(call.first().value<QTreeWidgetItem*>(), tree_.topLevelItem(1));
  }
}

TEST_F(RowTreeTest, EnterWithoutACaretChoosesNothing) {
  tree_.setFocus();
  QTest::keyClick(&tree_, Qt::Key_Return);
  EXPECT_EQ(chosen_.count(), 0);
}

TEST_F(RowTreeTest, TheWordsOfAnEmptyTreeShowOnlyThere) {
  const auto picture = [&] { return tree_.viewport()->grab().toImage(); };
  const QImage rows = picture();
  tree_.SetEmptyText(QStringLiteral("Nothing here"));
  EXPECT_EQ(picture(), rows);
  tree_.clear();
  const QImage words = picture();
  tree_.SetEmptyText(QString());
  EXPECT_NE(picture(), words);
}

TEST_F(RowTreeTest, TheFocusShowsAsAFrameWhileThereIsNoCaret) {
  tree_.setFocus();
  const auto corner = [&] { return tree_.viewport()->grab().toImage().pixelColor(0, 100); };
  EXPECT_EQ(corner(), theme::kNavy);
  QTest::keyClick(&tree_, Qt::Key_Down);
  EXPECT_NE(corner(), theme::kNavy);
}

TEST_F(RowTreeTest, WithoutRowsItIsDescribedByItsEmptyText) {
  tree_.clear();
  tree_.SetEmptyText(QStringLiteral("No results"));
  EXPECT_EQ(tree_.accessibleDescription(), QStringLiteral("No results"));
  new QTreeWidgetItem(&tree_, {QStringLiteral("Soap")});
  EXPECT_TRUE(tree_.accessibleDescription().isEmpty());
  delete tree_.takeTopLevelItem(0);
  EXPECT_EQ(tree_.accessibleDescription(), QStringLiteral("No results"));
}

}  // namespace
}  // namespace brovanta
