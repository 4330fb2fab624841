#include "ui/base/color_button.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/browser_stand_in.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

class ColorButtonTest : public testing::Test {
 protected:
  ColorButtonTest() : button_(&window_) {
    window_.resize(300, 300);
    button_.setGeometry(20, 20, 160, 40);
  }

  void Show() {
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }
  void Tap() { QTest::mouseClick(&button_, Qt::LeftButton); }
  QColor PixelAt(QPoint point) { return button_.grab().toImage().pixelColor(point); }

  QWidget window_;
  ColorButton button_;
  test::BrowserStandIn browser_;
};

TEST_F(ColorButtonTest, ColorIndexSixIsRefusedWithThreeAndChangesNothing) {
  button_.SetColor(ColorButton::kNormalBackground, Qt::green, true);
  EXPECT_EQ(button_.SetColor(6, Qt::red, true), 3);
  EXPECT_EQ(button_.SetColor(-1, Qt::red, true), 3);
  EXPECT_EQ(PixelAt({2, 2}), QColor(Qt::green));
}

TEST_F(ColorButtonTest, ColorIndexesZeroToFiveAreTaken) {
  for (int index = 0; index < 6; ++index) EXPECT_EQ(button_.SetColor(index, Qt::red, false), 0);
}

TEST_F(ColorButtonTest, AlignmentAboveTwoIsRefusedWithFour) {
  EXPECT_EQ(button_.SetAlignment(2, true), 0);
  EXPECT_EQ(button_.SetAlignment(3, true), 4);
  EXPECT_EQ(button_.SetAlignment(-1, true), 4);
}

TEST_F(ColorButtonTest, TapSendsClicked) {
  Show();
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  Tap();
  EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ColorButtonTest, SpaceAndEnterPressTheButton) {
  Show();
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  QTest::keyClick(&button_, Qt::Key_Space);
  QTest::keyClick(&button_, Qt::Key_Return);
  QTest::keyClick(&button_, Qt::Key_Enter);
  EXPECT_EQ(clicked.count(), 3);
}

TEST_F(ColorButtonTest, TapDropsTheMenuDownAtTheBottomLeftCorner) {
  Show();
  QMenu menu;
  menu.addAction(QStringLiteral("Daily"));
  EXPECT_EQ(button_.AttachMenu(&menu, true), 0);
  Tap();
  EXPECT_TRUE(menu.isVisible());
  EXPECT_TRUE(button_.menu_showing());
  EXPECT_EQ(menu.pos(), button_.mapToGlobal(QPoint(0, 40)));
  menu.close();
  EXPECT_FALSE(button_.menu_showing());
}

TEST_F(ColorButtonTest, TheMenuCommandReachesItsOwner) {
  Show();
  QMenu menu;
  QAction* action = menu.addAction(QStringLiteral("Weekly"));
  button_.AttachMenu(&menu, true);
  const QSignalSpy triggered(action, &QAction::triggered);
  Tap();
  QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
  EXPECT_EQ(triggered.count(), 1);
  EXPECT_FALSE(button_.menu_showing());
}

TEST_F(ColorButtonTest, DownArrowDropsTheMenuDown) {
  Show();
  QMenu menu;
  menu.addAction(QStringLiteral("Daily"));
  button_.AttachMenu(&menu, true);
  QTest::keyClick(&button_, Qt::Key_Down);
  EXPECT_TRUE(menu.isVisible());
  menu.close();
  QTest::keyClick(&button_, Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(menu.isVisible());
}

TEST_F(ColorButtonTest, AButtonWithAMenuNeverOpensItsWebAddress) {
  Show();
  QMenu menu;
  menu.addAction(QStringLiteral("Daily"));
  button_.AttachMenu(&menu, true);
  button_.SetWebAddress(QStringLiteral("http://localhost/deal"));
  Tap();
  EXPECT_TRUE(browser_.addresses().isEmpty());
  menu.close();
  button_.AttachMenu(nullptr, true);
  Tap();
  EXPECT_EQ(browser_.addresses(), QStringList{QStringLiteral("http://localhost/deal")});
}

TEST_F(ColorButtonTest, ReattachingForgetsTheOldMenuWithoutDestroyingIt) {
  Show();
  QMenu first;
  first.addAction(QStringLiteral("One"));
  QMenu second;
  second.addAction(QStringLiteral("Two"));
  button_.AttachMenu(&first, true);
  button_.AttachMenu(&second, true);
  Tap();
  EXPECT_FALSE(first.isVisible());
  EXPECT_TRUE(second.isVisible());
  EXPECT_EQ(first.actions().size(), 1);
  EXPECT_EQ(button_.menu(), &second);
}

TEST_F(ColorButtonTest, AMenuDestroyedByItsOwnerIsForgotten) {
  Show();
  {
    QMenu menu;
    button_.AttachMenu(&menu, true);
  }
  EXPECT_EQ(button_.menu(), nullptr);
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  Tap();
  EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ColorButtonTest, CheckBoxModeInvertsTheMarkAndDropsNoMenu) {
  Show();
  QMenu menu;
  menu.addAction(QStringLiteral("Daily"));
  button_.AttachMenu(&menu, true);
  button_.SetWebAddress(QStringLiteral("http://localhost/"));
  button_.SetCheckBoxMode(true);
  Tap();
  EXPECT_TRUE(button_.isChecked());
  Tap();
  EXPECT_FALSE(button_.isChecked());
  EXPECT_FALSE(menu.isVisible());
  EXPECT_TRUE(browser_.addresses().isEmpty());
}

TEST_F(ColorButtonTest, AnEmptyWebAddressOpensNothing) {
  Show();
  button_.SetWebAddress(QString());
  Tap();
  EXPECT_TRUE(browser_.addresses().isEmpty());
}

TEST_F(ColorButtonTest, OnlyWebAndMailAddressesAreOpened) {
  EXPECT_TRUE(OpenWebAddress(QStringLiteral("https://shop.example/a")));
  EXPECT_TRUE(OpenWebAddress(QStringLiteral("ftp://shop.example/a")));
  EXPECT_TRUE(OpenWebAddress(QStringLiteral("mailto:me@shop.example")));
  EXPECT_FALSE(OpenWebAddress(QStringLiteral("file:///etc/passwd")));
  EXPECT_FALSE(OpenWebAddress(QStringLiteral("/bin/sh")));
  EXPECT_FALSE(OpenWebAddress(QStringLiteral("javascript:alert(1)")));
  EXPECT_FALSE(OpenWebAddress(QString()));
  EXPECT_EQ(browser_.addresses().size(), 3);
}

TEST_F(ColorButtonTest, PointerIsFollowedOnlyWhileHoverTrackingIsOn) {
  Show();
  button_.SetColor(4, Qt::cyan, true);
  QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
  QEvent leave(QEvent::Leave);
  window_.setFocus();
  window_.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  QCoreApplication::sendEvent(&button_, &enter);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white));
  button_.SetHoverTracking(true);
  QCoreApplication::sendEvent(&button_, &enter);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::cyan));
  QCoreApplication::sendEvent(&button_, &leave);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white));
}

TEST_F(ColorButtonTest, PointerIsFollowedOnlyWhileTheWindowIsActive) {
  Show();
  button_.SetColor(4, Qt::cyan, true);
  button_.SetHoverTracking(true);
  window_.setFocus();
  window_.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(&button_, &enter);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::cyan));

  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white)) << "another window is active now";
  QCoreApplication::sendEvent(&button_, &enter);
  EXPECT_EQ(PixelAt({0, 0}), QColor(Qt::white));
}

TEST_F(ColorButtonTest, DisabledButtonLooksQuieterAndDoesNothing) {
  Show();
  button_.setText(QStringLiteral("All Stores"));
  const QImage enabled = button_.grab().toImage();
  button_.setEnabled(false);
  EXPECT_NE(button_.grab().toImage(), enabled);
  const QSignalSpy clicked(&button_, &QAbstractButton::clicked);
  Tap();
  EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ColorButtonTest, AmpersandInAStoreNameIsShownAndIsNoShortcut) {
  button_.setText(QStringLiteral("Fresh &Co"));
  EXPECT_EQ(button_.text(), QStringLiteral("Fresh &Co"));
  EXPECT_TRUE(button_.shortcut().isEmpty());
}

}  // namespace
}  // namespace brovanta
