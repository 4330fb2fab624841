#include "ui/base/record_tree.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>

#include "tests/support/zone_guard.h"
#include "ui/base/date_headings.h"

namespace brovanta {
namespace {

constexpr DateStamp kSaturday = 1795222800;  // 2026-11-21 01:00:00 UTC
constexpr int kChevronX = 14;
constexpr int kTextX = 100;

class RecordTreeTest : public testing::Test {
 protected:
  RecordTreeTest() {
    tree_.resize(360, 400);
    tree_.show();
    Fill();
  }

  void Fill() {
    DateHeadings headings;
    headings.Add(kSaturday, {.id = 11, .name = "Bread"}, {});
    headings.Add(kSaturday, {.id = 12, .name = "Milk"}, {});
    headings.Add(kSaturday - 86400, {.id = 13, .name = "Soap"}, {});
    tree_.SetRows(headings.Take());
  }

  QModelIndex Heading(int index) { return tree_.HeadingIndex(index); }
  QModelIndex Record(int heading, int record) { return tree_.RecordIndex(heading, record); }
  bool IsSelected(const QModelIndex& row) { return tree_.selectionModel()->isSelected(row); }

  void Click(const QModelIndex& row, int x, Qt::KeyboardModifiers modifiers = {}) {
    const QPoint point(x, tree_.visualRect(row).center().y());
    QTest::mouseClick(tree_.viewport(), Qt::LeftButton, modifiers, point);
  }

  void DoubleClick(const QModelIndex& row) {
    Click(row, kTextX);
    const QPoint point(kTextX, tree_.visualRect(row).center().y());
    QTest::mouseDClick(tree_.viewport(), Qt::LeftButton, {}, point);
  }

  int CaretId() {
    const auto info = tree_.CaretInfo();
    return info ? info->id : 0;
  }

  test::ZoneGuard zone_{"UTC"};
  RecordTree tree_;
  QSignalSpy caret_changed_{&tree_, &RecordTree::CaretChanged};
  QSignalSpy chosen_{&tree_, &RecordTree::RecordChosen};
};

TEST_F(RecordTreeTest, AllHeadingsAreOpenAndNothingIsSelected) {
  EXPECT_TRUE(tree_.isExpanded(Heading(0)));
  EXPECT_TRUE(tree_.isExpanded(Heading(1)));
  EXPECT_EQ(CaretId(), 0);
  EXPECT_EQ(caret_changed_.count(), 0);
}

TEST_F(RecordTreeTest, RowsAreFingerHighAndHeadingsBands) {
  EXPECT_GE(tree_.visualRect(Record(0, 0)).height(), 40);
  EXPECT_EQ(tree_.visualRect(Record(0, 0)).height(), 48);
  EXPECT_EQ(tree_.visualRect(Heading(0)).height(), 40);
  EXPECT_EQ(tree_.visualRect(Record(0, 0)).width(), tree_.viewport()->width());
}

TEST_F(RecordTreeTest, TappingARowSelectsIt) {
  Click(Record(0, 1), kTextX);
  EXPECT_EQ(CaretId(), 12);
  EXPECT_EQ(caret_changed_.count(), 1);
}

TEST_F(RecordTreeTest, TappingAHeadingSelectsNoRecord) {
  Click(Record(0, 1), kTextX);
  Click(Heading(0), kTextX);
  EXPECT_TRUE(IsSelected(Heading(0)));
  EXPECT_EQ(CaretId(), 0);
  EXPECT_EQ(caret_changed_.count(), 2);
}

TEST_F(RecordTreeTest, FocusTakesNoRow) {
  QWidget window;
  auto* tree = new RecordTree(&window);
  DateHeadings headings;
  headings.Add(-1, {.id = 1}, {});
  tree->SetRows(headings.Take());
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  tree->setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(tree->hasFocus());
  EXPECT_FALSE(tree->currentIndex().isValid());
  EXPECT_FALSE(tree->CaretInfo());
}

TEST_F(RecordTreeTest, ArrowKeysWalkTheRows) {
  tree_.setFocus();
  QTest::keyClick(&tree_, Qt::Key_Down);
  EXPECT_EQ(CaretId(), 0);
  EXPECT_TRUE(IsSelected(Heading(0)));
  QTest::keyClick(&tree_, Qt::Key_Down);
  EXPECT_EQ(CaretId(), 11);
}

TEST_F(RecordTreeTest, RebuildingLosesTheSelectionWithoutASignal) {
  Click(Record(0, 1), kTextX);
  caret_changed_.clear();
  Fill();
  EXPECT_EQ(CaretId(), 0);
  EXPECT_FALSE(tree_.currentIndex().isValid());
  tree_.ClearRows();
  EXPECT_TRUE(tree_.rows().empty());
  EXPECT_EQ(caret_changed_.count(), 0);
}

TEST_F(RecordTreeTest, TappingTheSelectedRowWithControlTakesTheSelectionBack) {
  Click(Record(0, 1), kTextX);
  Click(Record(0, 1), kTextX, Qt::ControlModifier);
  EXPECT_EQ(CaretId(), 0);
  EXPECT_EQ(caret_changed_.count(), 2);
}

TEST_F(RecordTreeTest, ChevronClosesAndOpensWithoutSelecting) {
  Click(Heading(0), kChevronX);
  EXPECT_FALSE(tree_.isExpanded(Heading(0)));
  EXPECT_FALSE(IsSelected(Heading(0)));
  Click(Heading(0), kChevronX);
  EXPECT_TRUE(tree_.isExpanded(Heading(0)));
}

TEST_F(RecordTreeTest, ClosingAHeadingOverTheSelectedRowSelectsTheHeading) {
  Click(Record(0, 1), kTextX);
  Click(Heading(0), kChevronX);
  EXPECT_EQ(CaretId(), 0);
  EXPECT_TRUE(IsSelected(Heading(0)));
}

TEST_F(RecordTreeTest, ClosingAnotherHeadingKeepsTheSelectedRow) {
  Click(Record(0, 1), kTextX);
  Click(Heading(1), kChevronX);
  EXPECT_EQ(CaretId(), 12);
}

TEST_F(RecordTreeTest, DoubleTapChoosesARecordButNotAHeading) {
  DoubleClick(Heading(0));
  EXPECT_EQ(chosen_.count(), 0);
  Fill();
  DoubleClick(Record(0, 0));
  EXPECT_EQ(chosen_.count(), 1);
}

TEST_F(RecordTreeTest, EnterChoosesARecordAndTurnsAHeading) {
  Click(Heading(0), kTextX);
  QTest::keyClick(&tree_, Qt::Key_Return);
  EXPECT_FALSE(tree_.isExpanded(Heading(0)));
  QTest::keyClick(&tree_, Qt::Key_Enter);
  EXPECT_TRUE(tree_.isExpanded(Heading(0)));
  EXPECT_EQ(chosen_.count(), 0);
  Click(Record(0, 0), kTextX);
  QTest::keyClick(&tree_, Qt::Key_Return);
  EXPECT_EQ(chosen_.count(), 1);
}

TEST_F(RecordTreeTest, EmptyTreeShowsItsWords) {
  const QImage rows = tree_.viewport()->grab().toImage();
  tree_.ClearRows();
  const QImage blank = tree_.viewport()->grab().toImage();
  tree_.SetEmptyText(QStringLiteral("Nothing to buy on this day"));
  const QImage words = tree_.viewport()->grab().toImage();
  EXPECT_NE(words, blank);
  Fill();
  EXPECT_EQ(tree_.viewport()->grab().toImage(), rows);
}

/// Counts how often the tree asks how high a row is.
class AskedDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                 const QModelIndex& /*index*/) const override {
    ++asked_;
    return {20, 48};
  }
  [[nodiscard]] int asked() const { return asked_; }

 private:
  mutable int asked_ = 0;
};

TEST_F(RecordTreeTest, ALongListIsShownAndResizedWithoutAskingEachRowForItsHeight) {
  constexpr int kRows = 1000;
  constexpr int kShown = 50;
  RecordTree tree;
  AskedDelegate delegate;
  tree.setItemDelegate(&delegate);
  DateHeadings headings;
  for (int i = 0; i < kRows; ++i) headings.Add(kSaturday, {.id = i, .name = "Bread"}, {});
  tree.SetRows(headings.Take());
  tree.resize(360, 400);
  tree.show();
  QTest::qWait(1);
  EXPECT_LT(delegate.asked(), kShown);
  EXPECT_GT(delegate.asked(), 0);  // the counted one is the one in use
  tree.setFont(QFont(tree.font().family(), 40));
  tree.resize(240, 300);
  QTest::qWait(1);
  EXPECT_LT(delegate.asked(), 2 * kShown);
}

TEST_F(RecordTreeTest, DoubleFontMakesHigherRows) {
  QFont font = tree_.font();
  font.setPixelSize(2 * QFontInfo(font).pixelSize());
  tree_.setFont(font);
  EXPECT_GT(tree_.visualRect(Record(0, 0)).height(), 60);
  EXPECT_GT(tree_.visualRect(Heading(0)).height(), 28);
}

}  // namespace
}  // namespace brovanta
