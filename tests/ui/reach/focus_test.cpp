// Every screen with keys alone.
#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>

#include "tests/ui/reach/focus_check.h"
#include "tests/ui/reach/large_print.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/text_lines.h"
#include "ui/base/color_button.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void ExpectAllReached() {
  Screens screens;
  screens.ForEach([](const OpenScreen& open) {
    if (auto* menu = qobject_cast<QMenu*>(open.screen)) {
      EXPECT_THAT(Lines(MenuComplaints(*menu)), IsEmpty()) << open.name;
    } else if (open.kind != ScreenKind::kPopup) {
      EXPECT_THAT(Lines(FocusComplaints(*open.screen)), IsEmpty()) << open.name;
    }
  });
}

TEST(FocusTest, KeysReachEveryControlInTheOrderOfReading) { ExpectAllReached(); }

TEST(FocusTest, InLargePrintAsWell) {
  const LargePrint large;
  ExpectAllReached();
}

TEST(FocusTest, EscapeClosesAMenuAndItsButtonHasTheKeyboardAgain) {
  Screens screens;
  int menus = 0;
  int with_button = 0;
  screens.ForEach([&](const OpenScreen& open) {
    if (qobject_cast<QMenu*>(open.screen) == nullptr) return;
    const auto buttons = open.window->findChildren<ColorButton*>();
    const auto opener = std::find_if(buttons.begin(), buttons.end(), [&open](ColorButton* button) {
      return button->menu() == open.screen;
    });
    QTest::keyClick(open.screen, Qt::Key_Escape);
    EXPECT_FALSE(open.screen->isVisible()) << open.name;
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << open.name;
    EXPECT_NE(open.window->focusWidget(), nullptr) << open.name;
    ++menus;
    if (opener == buttons.end()) return;  // the calendar's own, which no key opens
    EXPECT_EQ(QApplication::focusWidget(), *opener) << open.name;
    ++with_button;
  });
  EXPECT_EQ(menus, 9);
  EXPECT_EQ(with_button, 8);
}

/// Three buttons, one below the other.
class SpoiledFormFocusTest : public testing::Test {
 protected:
  SpoiledFormFocusTest() {
    auto* layout = new QVBoxLayout(&form_);
    for (QPushButton* button : {one_, two_, three_}) layout->addWidget(button);
    one_->setObjectName(QStringLiteral("one"));
    two_->setObjectName(QStringLiteral("two"));
    three_->setObjectName(QStringLiteral("three"));
  }

  std::vector<std::string> Complaints() {
    form_.show();
    form_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form_));
    one_->setFocus(Qt::TabFocusReason);
    return Lines(FocusComplaints(form_));
  }

  QDialog form_;
  QPushButton* one_ = new QPushButton(QStringLiteral("One"));
  QPushButton* two_ = new QPushButton(QStringLiteral("Two"));
  QPushButton* three_ = new QPushButton(QStringLiteral("Three"));
};

TEST_F(SpoiledFormFocusTest, IsInOrderBeforeThat) { EXPECT_THAT(Complaints(), IsEmpty()); }

TEST_F(SpoiledFormFocusTest, AControlThatTabPassesOverIsSeen) {
  two_->setFocusPolicy(Qt::ClickFocus);
  EXPECT_THAT(Complaints(), ElementsAre("two: not reached"));
}

TEST_F(SpoiledFormFocusTest, AnotherOrderThanThatOfReadingIsSeen) {
  QWidget::setTabOrder(one_, three_);
  QWidget::setTabOrder(three_, two_);
  EXPECT_THAT(Complaints(),
              ElementsAre("not the order of reading: three before two, two before one"));
}

/// Takes a key for itself.
class Trap : public QObject {
 public:
  explicit Trap(Qt::Key key) : key_(key) {}

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == key_;
  }

 private:
  Qt::Key key_;
};

TEST_F(SpoiledFormFocusTest, ATrapIsSeen) {
  Trap trap(Qt::Key_Tab);
  two_->installEventFilter(&trap);
  const auto complaints = Complaints();
  ASSERT_FALSE(complaints.empty());
  EXPECT_EQ(complaints.front(), "two: does not let go");
  two_->removeEventFilter(&trap);
}

/// Always looks the same.
class DullButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {}
};

TEST_F(SpoiledFormFocusTest, AControlThatDoesNotShowTheFocusIsSeen) {
  auto* dull = new DullButton(&form_);
  dull->setObjectName(QStringLiteral("dull"));
  form_.layout()->addWidget(dull);
  EXPECT_THAT(Complaints(), ElementsAre("dull: does not show that it has the keyboard"));
}

TEST_F(SpoiledFormFocusTest, AMenuEntryThatIsNotReachedIsSeen) {
  QMenu menu;
  menu.addAction(QStringLiteral("One"));
  menu.addAction(QStringLiteral("Two"))->setEnabled(false);
  menu.popup({});
  EXPECT_THAT(Lines(MenuComplaints(menu)), IsEmpty());
  Trap trap(Qt::Key_Down);
  menu.installEventFilter(&trap);
  menu.setActiveAction(nullptr);
  EXPECT_THAT(Lines(MenuComplaints(menu)), ElementsAre("One: not reached"));
  menu.close();
}

}  // namespace
}  // namespace brovanta::test
