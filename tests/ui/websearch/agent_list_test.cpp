#include "ui/websearch/agent_list.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QTest>

#include "tests/support/painted_texts.h"
#include "ui/base/icons.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

class AgentListTest : public testing::Test {
 protected:
  std::string Row(int index) const {
    const QTreeWidgetItem* row = list_.topLevelItem(index);
    if (row == nullptr) return "(none)";
    return (row->text(0) + QLatin1Char('|') + row->text(1)).toStdString();
  }
  AgentList list_;
};

TEST_F(AgentListTest, HasTheColumnsAgentAndStatusWithoutAHeader) {
  EXPECT_EQ(list_.columnCount(), 2);
  EXPECT_EQ(list_.headerItem()->text(0).toStdString(), "Agent");
  EXPECT_EQ(list_.headerItem()->text(1).toStdString(), "Status");
  EXPECT_TRUE(list_.isHeaderHidden());
  EXPECT_EQ(list_.iconSize(), QSize(16, 16));
}

TEST_F(AgentListTest, LatestAgentStandsOnTop) {
  list_.AddAgent(1, QStringLiteral("First"));
  list_.AddAgent(2, QStringLiteral("Second"));
  EXPECT_EQ(Row(0), "Second|");
  EXPECT_EQ(Row(1), "First|");
}

TEST_F(AgentListTest, StateGoesToTheRowOfTheAgent) {
  list_.AddAgent(7, QStringLiteral("Seven"));
  list_.AddAgent(3, QStringLiteral("Three"));
  list_.SetState(7, QStringLiteral("searching"));
  list_.SetState(3, QStringLiteral("failed"));
  list_.SetState(7, QStringLiteral("2 results"));
  EXPECT_EQ(Row(0), "Three|failed");
  EXPECT_EQ(Row(1), "Seven|2 results");
}

TEST_F(AgentListTest, AgentWithoutARowIsLeftAlone) {
  list_.SetState(1, QStringLiteral("failed"));
  EXPECT_EQ(list_.topLevelItemCount(), 0);
  list_.AddAgent(1, QStringLiteral("First"));
  list_.SetState(2, QStringLiteral("failed"));
  list_.SetState(0, QStringLiteral("failed"));
  EXPECT_EQ(Row(0), "First|");
}

TEST_F(AgentListTest, OfTwoAgentsWithOneIdTheUpperRowIsMeant) {
  list_.AddAgent(1, QStringLiteral("Lower"));
  list_.AddAgent(1, QStringLiteral("Upper"));
  list_.SetState(1, QStringLiteral("failed"));
  EXPECT_EQ(Row(0), "Upper|failed");
  EXPECT_EQ(Row(1), "Lower|");
}

TEST_F(AgentListTest, NamesKeepTheirBlanksAndLoseTheirLineBreaks) {
  list_.AddAgent(1, QStringLiteral(" Shop \r\n&amp; <b>Co</b>\u2028x\t"));
  EXPECT_EQ(Row(0), " Shop   &amp; <b>Co</b> x |");
  list_.AddAgent(2, QStringLiteral("   "));
  EXPECT_EQ(Row(0), "   |");
  list_.AddAgent(3,
                 QStringLiteral("Shop\u0085\u2029\u007Fx") + QChar(0) + QStringLiteral("behind"));
  EXPECT_EQ(Row(0), "Shop   x|") << "as in every other line";
}

TEST_F(AgentListTest, RowsAreAFingerHighAndReadFromBothEnds) {
  list_.AddAgent(1, QString(200, QLatin1Char('W')));
  list_.SetState(1, QStringLiteral("searching"));
  list_.resize(320, 300);
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  const QModelIndex name = list_.model()->index(0, 0);
  const QModelIndex state = list_.model()->index(0, 1);
  EXPECT_GE(list_.visualRect(name).height(), theme::kFingerHeight);
  EXPECT_GE(list_.visualRect(state).width(), 100);
  EXPECT_EQ(list_.visualRect(state).right(), list_.viewport()->rect().right());
  EXPECT_TRUE(state.data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
  EXPECT_EQ(name.data(Qt::ToolTipRole), name.data()) << "what is cut can be read";
  EXPECT_FALSE(name.data(Qt::DecorationRole).value<QIcon>().isNull());
}

TEST_F(AgentListTest, BothColumnsKeepTheirWidthOnTheNarrowestScreen) {
  list_.AddAgent(1, QStringLiteral("Shop"));
  list_.SetState(1, QStringLiteral("failed"));
  list_.resize(200, 300);
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  EXPECT_GE(list_.visualRect(list_.model()->index(0, 0)).width(), 100);
  EXPECT_GE(list_.visualRect(list_.model()->index(0, 1)).width(), 100);
}

TEST_F(AgentListTest, LongStateIsNotCut) {
  QFont font = list_.font();
  font.setPixelSize(32);
  list_.setFont(font);
  list_.AddAgent(1, QStringLiteral("Shop"));
  list_.SetState(1, QStringLiteral("2147483647 results"));
  list_.resize(480, 300);
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  const QModelIndex state = list_.model()->index(0, 1);
  EXPECT_GE(list_.visualRect(state).width(),
            QFontMetrics(font).horizontalAdvance(QStringLiteral("2147483647 results")));
}

TEST_F(AgentListTest, ScreenReadersGetNameAndStateOnceEach) {
  list_.AddAgent(1, QStringLiteral("Corner"));
  list_.SetState(1, QStringLiteral("searching"));
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&list_);
  ASSERT_NE(list, nullptr);
  ASSERT_NE(list->tableInterface(), nullptr);
  for (const auto& [column, said] : {std::pair(0, "Corner"), std::pair(1, "searching")}) {
    QAccessibleInterface* const cell = list->tableInterface()->cellAt(0, column);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name).toStdString(), said) << "and once only";
  }
}

TEST_F(AgentListTest, NoRowIsTakenByATap) {
  list_.AddAgent(1, QStringLiteral("Corner"));
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {},
                    list_.visualItemRect(list_.topLevelItem(0)).center());
  EXPECT_TRUE(list_.selectedItems().isEmpty());
}

TEST_F(AgentListTest, StatesInLargePrintStayWithinTheNarrowestScreen) {
  QFont font = list_.font();
  font.setPixelSize(28);
  list_.setFont(font);
  list_.AddAgent(1, QStringLiteral("Shop"));
  list_.SetState(1, QStringLiteral("12345 results"));
  list_.resize(230, 300);
  list_.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&list_));
  EXPECT_GE(list_.visualRect(list_.model()->index(0, 0)).width(), 100);
  EXPECT_EQ(list_.visualRect(list_.model()->index(0, 1)).right(), list_.viewport()->rect().right());
  QString said;
  for (const test::PaintedText& text : test::PaintedTexts(*list_.viewport(), false))
    said += text.text + u'|';
  EXPECT_EQ(said.toStdString(), "Shop|12345 results|");
}

}  // namespace
}  // namespace brovanta
