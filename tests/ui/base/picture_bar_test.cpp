#include "ui/base/picture_bar.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QToolButton>

#include "tests/support/german.h"
#include "ui/base/icons.h"

namespace brovanta {
namespace {

class PictureBarTest : public testing::Test {
 protected:
  PictureBarTest() {
    bar_.AddCommand(11, CommandIcon(2771), QStringLiteral("First"), QStringLiteral("Ins"));
    bar_.AddCommand(12, CommandIcon(2773), QStringLiteral("Second"));
    QObject::connect(&bar_, &PictureBar::CommandChosen, &bar_,
                     [this](int command) { chosen_.append(command); });
    bar_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&bar_));
  }

  PictureBar bar_;
  QList<int> chosen_;
};

TEST_F(PictureBarTest, EachCommandHasAButtonWithPictureAndName) {
  for (const int command : {11, 12}) {
    ASSERT_NE(bar_.action(command), nullptr) << command;
    EXPECT_EQ(bar_.action(command)->data().toInt(), command);
    EXPECT_FALSE(bar_.action(command)->icon().isNull());
    QToolButton* button = bar_.button(command);
    ASSERT_NE(button, nullptr) << command;
    EXPECT_EQ(button->objectName(), QStringLiteral("tool%1").arg(command));
    EXPECT_EQ(button->accessibleName(), bar_.action(command)->text());
    QTest::mouseClick(button, Qt::LeftButton);
  }
  EXPECT_EQ(chosen_, (QList<int>{11, 12}));
}

TEST_F(PictureBarTest, AnUnknownCommandHasNothing) {
  EXPECT_EQ(bar_.action(13), nullptr);
  EXPECT_EQ(bar_.button(13), nullptr);
}

TEST_F(PictureBarTest, TheToolTipNamesTheKeyWhereThereIsOne) {
  EXPECT_EQ(bar_.button(11)->toolTip(), QStringLiteral("First (Ins)"));
  EXPECT_EQ(bar_.button(12)->toolTip(), QStringLiteral("Second"));
}

TEST_F(PictureBarTest, AKeyWorksWhileItsCommandIsEnabled) {
  QTest::keyClick(&bar_, Qt::Key_Insert);
  bar_.action(11)->setEnabled(false);
  QTest::keyClick(&bar_, Qt::Key_Insert);
  EXPECT_EQ(chosen_, QList<int>{11});
  EXPECT_FALSE(bar_.button(11)->isEnabled());
}

TEST_F(PictureBarTest, KeysAreNamedInTheLanguageAndWorkAsBefore) {
  const test::German german;
  PictureBar bar;
  bar.AddCommand(1, QIcon(), QStringLiteral("L\u00F6schen"), QStringLiteral("Ctrl+Del"));
  EXPECT_EQ(bar.action(1)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Delete));
  EXPECT_EQ(bar.action(1)->toolTip().toStdString(), "L\u00F6schen (Strg+Entf)");
}

}  // namespace
}  // namespace brovanta
