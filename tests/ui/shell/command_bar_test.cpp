#include "ui/shell/command_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QToolButton>

#include "ui/base/color_button.h"

namespace brovanta {
namespace {

using testing::ElementsAre;

class CommandBarTest : public testing::Test {
 protected:
  CommandBarTest() {
    bar_.resize(360, 48);
    bar_.show();
  }

  QMenu& Menu() { return *bar_.findChild<QMenu*>(QStringLiteral("toolsMenu")); }

  QList<QToolButton*> Tools() {
    QList<QToolButton*> tools = bar_.findChildren<QToolButton*>();
    std::sort(tools.begin(), tools.end(), [](auto* a, auto* b) { return a->x() < b->x(); });
    return tools;
  }

  CommandBar bar_;
  QSignalSpy chosen_{&bar_, &CommandBar::CommandChosen};
};

TEST_F(CommandBarTest, MenuHasItsEntriesInOrder) {
  std::vector<std::pair<int, std::string>> entries;
  for (const QAction* action : Menu().actions()) {
    entries.emplace_back(action->data().toInt(), action->text().toStdString());
  }
  EXPECT_THAT(entries, ElementsAre(std::pair(2777, "Add"), std::pair(2784, "Edit"),
                                   std::pair(2804, "Purchase"), std::pair(2778, "Delete"),
                                   std::pair(0, ""), std::pair(2803, "Search"), std::pair(0, ""),
                                   std::pair(2783, "Update"), std::pair(2801, "Options")));
  EXPECT_TRUE(Menu().actions().at(4)->isSeparator());
}

TEST_F(CommandBarTest, ToolBarHasFiveCommandsOfItsOwnNumbers) {
  std::vector<int> commands;
  for (const QToolButton* tool : Tools()) {
    commands.push_back(tool->defaultAction()->data().toInt());
    EXPECT_FALSE(tool->icon().isNull());
    EXPECT_FALSE(tool->accessibleName().isEmpty());
    EXPECT_FALSE(tool->toolTip().isEmpty());
    EXPECT_GE(tool->width(), 40);
    EXPECT_GE(tool->height(), 40);
  }
  EXPECT_THAT(commands, ElementsAre(2771, 2772, 2773, 2789, 2785));
}

TEST_F(CommandBarTest, ClickingAToolSendsItsCommand) {
  for (QToolButton* tool : Tools()) QTest::mouseClick(tool, Qt::LeftButton);
  std::vector<int> commands;
  for (const auto& call : chosen_) commands.push_back(call.at(0).toInt());
  EXPECT_THAT(commands, ElementsAre(2771, 2772, 2773, 2789, 2785));
}

TEST_F(CommandBarTest, ToolsButtonDropsTheMenuDownAndAnEntrySendsItsCommand) {
  QTest::mouseClick(bar_.findChild<ColorButton*>(QStringLiteral("toolsButton")), Qt::LeftButton);
  ASSERT_TRUE(Menu().isVisible());
  QTest::mouseClick(&Menu(), Qt::LeftButton, {},
                    Menu().actionGeometry(bar_.action(kMenuOptions)).center());
  ASSERT_EQ(chosen_.count(), 1);
  EXPECT_EQ(chosen_.at(0).at(0).toInt(), kMenuOptions);
}

TEST_F(CommandBarTest, MenuAndToolAreGreyedSeparately) {
  bar_.Enable(kMenuEdit, false);
  EXPECT_FALSE(bar_.action(kMenuEdit)->isEnabled());
  EXPECT_TRUE(bar_.action(kToolEdit)->isEnabled());
  bar_.Enable(kToolDelete, false);
  QTest::mouseClick(Tools().at(2), Qt::LeftButton);
  EXPECT_EQ(chosen_.count(), 0);
  bar_.Enable(4711, false);
  EXPECT_EQ(bar_.action(4711), nullptr);
}

TEST_F(CommandBarTest, KeysSendTheMenusCommands) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bar_));
  QTest::keyClick(&bar_, Qt::Key_Insert);
  QTest::keyClick(&bar_, Qt::Key_F2);
  QTest::keyClick(&bar_, Qt::Key_P, Qt::ControlModifier);
  QTest::keyClick(&bar_, Qt::Key_Delete);
  QTest::keyClick(&bar_, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClick(&bar_, Qt::Key_F5);
  bar_.Enable(kMenuEdit, false);
  QTest::keyClick(&bar_, Qt::Key_F2);
  std::vector<int> commands;
  for (const auto& call : chosen_) commands.push_back(call.at(0).toInt());
  EXPECT_THAT(commands,
              ElementsAre(kMenuAdd, kMenuEdit, kMenuPurchase, kMenuDelete, kMenuFind, kMenuUpdate));
}

TEST_F(CommandBarTest, AltTOpensTheToolsMenu) {
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bar_));
  QTest::keyClick(&bar_, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Menu().isVisible(); }));
}

TEST_F(CommandBarTest, FindTextShowsOnTheFindButton) {
  const QToolButton* find = Tools().at(4);
  const QImage quiet = find->icon().pixmap(24, 24).toImage();
  bar_.ShowFindText(QStringLiteral("milk"));
  EXPECT_EQ(find->accessibleName().toStdString(), "Find: milk");
  EXPECT_EQ(find->toolTip().toStdString(), "Find: milk (Ctrl+F)");
  EXPECT_NE(find->icon().pixmap(24, 24).toImage(), quiet);
  bar_.ShowFindText(QString());
  EXPECT_EQ(find->accessibleName().toStdString(), "Find");
  EXPECT_EQ(find->icon().pixmap(24, 24).toImage(), quiet);
}

TEST_F(CommandBarTest, FindTextThatLooksLikeMarkupIsShownAsItStands) {
  bar_.ShowFindText(QStringLiteral("<b>milk</b>"));
  EXPECT_EQ(Tools().at(4)->accessibleName().toStdString(), "Find: <b>milk</b>");
  QTextDocument shown;
  shown.setHtml(Tools().at(4)->toolTip());
  EXPECT_EQ(shown.toPlainText().toStdString(), "Find: <b>milk</b> (Ctrl+F)");
}

TEST_F(CommandBarTest, FitsANarrowScreenInLargePrint) {
  QFont font = bar_.font();
  font.setPixelSize(30);
  bar_.setFont(font);
  bar_.findChild<ColorButton*>(QStringLiteral("toolsButton"))->setFont(font);
  EXPECT_LE(bar_.minimumSizeHint().width(), 320);
}

TEST_F(CommandBarTest, StaysInOneLineOnTheNarrowestScreen) {
  bar_.resize(240, 48);
  QApplication::processEvents();
  const auto* menu = bar_.findChild<ColorButton*>(QStringLiteral("toolsButton"));
  int right = menu->geometry().right();
  for (const QToolButton* tool : Tools()) {
    EXPECT_GT(tool->x(), right);
    EXPECT_LT(tool->y(), menu->geometry().bottom());
    EXPECT_GE(tool->height(), 40);
    right = tool->geometry().right();
  }
  EXPECT_LT(right, 240);
}

}  // namespace
}  // namespace brovanta
