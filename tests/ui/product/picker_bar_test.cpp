#include "ui/product/picker_bar.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QToolButton>

namespace brovanta {
namespace {

class PickerBarTest : public testing::Test {
 protected:
  PickerBarTest() {
    QObject::connect(&bar_, &PickerBar::CommandChosen, &bar_,
                     [this](int command) { chosen_.append(command); });
    bar_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&bar_));
  }

  PickerBar bar_;
  QList<int> chosen_;
};

TEST_F(PickerBarTest, EachCommandHasAButtonWithPictureAndName) {
  for (const int command : {2791, 2792, 2793, 2794}) {
    ASSERT_NE(bar_.action(command), nullptr) << command;
    EXPECT_EQ(bar_.action(command)->data().toInt(), command);
    EXPECT_FALSE(bar_.action(command)->icon().isNull());
    auto* button = bar_.findChild<QToolButton*>(QStringLiteral("tool%1").arg(command));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->accessibleName().isEmpty());
    QTest::mouseClick(button, Qt::LeftButton);
  }
  EXPECT_EQ(chosen_, (QList<int>{2791, 2792, 2793, 2794}));
  EXPECT_EQ(bar_.action(2795), nullptr);
}

TEST_F(PickerBarTest, KeysWorkWhileTheirCommandIsEnabled) {
  QTest::keyClick(&bar_, Qt::Key_Insert);
  QTest::keyClick(&bar_, Qt::Key_F2);
  QTest::keyClick(&bar_, Qt::Key_F, Qt::ControlModifier);
  bar_.action(kPickerDelete)->setEnabled(false);
  QTest::keyClick(&bar_, Qt::Key_Delete);
  EXPECT_EQ(chosen_, (QList<int>{2791, 2792, 2794}));
}

TEST_F(PickerBarTest, AFindTextShowsOnItsButton) {
  auto* button = bar_.findChild<QToolButton*>(QStringLiteral("tool2794"));
  const auto picture = [&] { return button->icon().pixmap(22, 22).toImage(); };
  const QImage plain = picture();
  bar_.ShowFindText(QStringLiteral("soap %1"));
  EXPECT_EQ(button->accessibleName(), QStringLiteral("Find: soap %1"));
  EXPECT_EQ(button->toolTip(), QStringLiteral("Find: soap %1 (Ctrl+F)"));
  EXPECT_NE(picture(), plain);
  bar_.ShowFindText(QString());
  EXPECT_EQ(button->accessibleName(), QStringLiteral("Find"));
  EXPECT_EQ(button->toolTip(), QStringLiteral("Find (Ctrl+F)"));
  EXPECT_EQ(picture(), plain);
}

}  // namespace
}  // namespace brovanta
