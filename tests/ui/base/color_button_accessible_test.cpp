#include "ui/base/color_button_accessible.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include "tests/support/browser_stand_in.h"
#include "ui/base/color_button.h"
#include "ui/base/tool_tip.h"

namespace brovanta {
namespace {

using testing::Contains;

class ColorButtonAccessibleTest : public testing::Test {
 protected:
  ColorButtonAccessibleTest() : button_(&window_) { window_.show(); }

  QAccessibleInterface& Spoken() { return *QAccessible::queryAccessibleInterface(&button_); }
  std::string Name() { return Spoken().text(QAccessible::Name).toStdString(); }
  std::string Description() { return Spoken().text(QAccessible::Description).toStdString(); }

  QWidget window_;
  ColorButton button_;
  QMenu menu_;
};

TEST_F(ColorButtonAccessibleTest, TheTextIsTheNameAndTheToolTipSaysMore) {
  button_.setToolTip(QStringLiteral("Pick a date"));
  button_.setText(QStringLiteral("Nov 21, 2026"));
  EXPECT_EQ(Name(), "Nov 21, 2026");
  EXPECT_EQ(Description(), "Pick a date");
}

TEST_F(ColorButtonAccessibleTest, WithoutATextTheToolTipIsTheName) {
  button_.setToolTip(QStringLiteral("Period"));
  EXPECT_EQ(Name(), "Period");
  EXPECT_EQ(Description(), "Period");
}

TEST_F(ColorButtonAccessibleTest, AGivenNameAndDescriptionGoFirst) {
  button_.setText(QStringLiteral("All Stores"));
  button_.setToolTip(QStringLiteral("tip"));
  button_.setAccessibleName(QStringLiteral("Stores"));
  button_.setAccessibleDescription(QStringLiteral("Shows one store or all"));
  EXPECT_EQ(Name(), "Stores");
  EXPECT_EQ(Description(), "Shows one store or all");
}

TEST_F(ColorButtonAccessibleTest, MarkupInAToolTipIsNotRead) {
  button_.setToolTip(ToolTipText(QStringLiteral("<b>Milk</b>")));
  EXPECT_EQ(Description(), "<b>Milk</b>") << "as it was meant";
}

TEST_F(ColorButtonAccessibleTest, TheRoleFollowsWhatATapDoes) {
  EXPECT_EQ(Spoken().role(), QAccessible::Button);
  EXPECT_FALSE(Spoken().state().hasPopup);
  button_.AttachMenu(&menu_, false);
  EXPECT_EQ(Spoken().role(), QAccessible::ButtonMenu);
  EXPECT_TRUE(Spoken().state().hasPopup);
  button_.SetCheckBoxMode(true);
  EXPECT_EQ(Spoken().role(), QAccessible::CheckBox);
  EXPECT_FALSE(Spoken().state().hasPopup);
  button_.setChecked(true);
  EXPECT_TRUE(Spoken().state().checked);
}

TEST_F(ColorButtonAccessibleTest, AScreenReaderPressesIt) {
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  QAccessibleActionInterface* const actions = Spoken().actionInterface();
  ASSERT_NE(actions, nullptr);
  const QString press = QAccessibleActionInterface::pressAction();
  EXPECT_THAT(actions->actionNames(), Contains(press));
  actions->doAction(press);
  EXPECT_EQ(clicked.count(), 0) << "not before the screen reader has its answer";
  QCoreApplication::processEvents();
  EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ColorButtonAccessibleTest, AScreenReaderOpensTheMenu) {
  menu_.addAction(QStringLiteral("Entry"));
  button_.AttachMenu(&menu_, false);
  Spoken().actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  QCoreApplication::processEvents();
  EXPECT_TRUE(menu_.isVisible());
  EXPECT_TRUE(Spoken().state().expanded);
  menu_.close();
  EXPECT_FALSE(Spoken().state().expanded);
}

TEST_F(ColorButtonAccessibleTest, AGreyButtonIsNotPressed) {
  button_.setEnabled(false);
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  Spoken().actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  QCoreApplication::processEvents();
  EXPECT_EQ(clicked.count(), 0);
}

}  // namespace
}  // namespace brovanta
