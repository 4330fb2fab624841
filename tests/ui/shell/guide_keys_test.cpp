// What docs/guide/keys.md promises of keys that the toolkit handles.
#include <gmock/gmock.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <utility>

#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

class GuideKeysTest : public MainScreenTest {
 protected:
  QDate Day() { return Find<QCalendarWidget>("calendar").selectedDate(); }

  /// Works by keys in the next dialog, which is closed should they not have done so.
  void ByKeysInNextDialog(std::function<void(QWidget&)> work) {
    InNextDialog([work = std::move(work)](QWidget& dialog) {
      dialog.activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([&dialog] {
        QWidget* const focus = QApplication::focusWidget();
        return focus != nullptr && focus->window() == &dialog;
      })) << "the dialog has the keyboard";
      work(dialog);
      EXPECT_FALSE(dialog.isVisible()) << "the keys have closed it";
      if (dialog.isVisible()) dialog.close();
    });
  }

  std::string SelectedName() {
    const auto info = tree().CaretInfo();
    return info ? info->name.toStdString() : std::string();
  }
};

TEST_F(GuideKeysTest, HomeAndEndGoToTheEndsOfTheList) {
  for (const char* name : {"Milk", "Bread", "Salt"}) AddProduct(name, kToday);
  Open();
  Select("Bread");
  Press(Qt::Key_End);
  EXPECT_EQ(SelectedName(), "Salt");
  Press(Qt::Key_Home);
  EXPECT_EQ(SelectedName(), "") << "the heading is the first row";
  Press(Qt::Key_Down);
  EXPECT_EQ(SelectedName(), "Milk");
  Press(Qt::Key_PageDown);
  EXPECT_EQ(SelectedName(), "Salt");
}

TEST_F(GuideKeysTest, LeftAndRightFoldAHeading) {
  AddProduct("Milk", kToday);
  Open();
  SelectHeading(0);
  Press(Qt::Key_Left);
  EXPECT_FALSE(tree().isExpanded(tree().HeadingIndex(0)));
  Press(Qt::Key_Right);
  EXPECT_TRUE(tree().isExpanded(tree().HeadingIndex(0)));
}

TEST_F(GuideKeysTest, LeftAndRightGoToAnotherTab) {
  Open();
  auto& tabs = Find<QTabBar>("tabBar");
  tabs.setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Right);
  EXPECT_EQ(tabs.currentIndex(), 1);
  Press(Qt::Key_Left);
  EXPECT_EQ(tabs.currentIndex(), 0);
}

TEST_F(GuideKeysTest, DownOpensTheMenuOfAButton) {
  Open();
  button("viewModeButton").setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Down);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_EQ(screen().view_mode(), kWeeklyView);
}

TEST_F(GuideKeysTest, TheCalendarIsWalkedByKeys) {
  Open();
  button("periodHeadingButton").setFocus(Qt::TabFocusReason);
  Press(Qt::Key_Space);
  Press(Qt::Key_PageUp);
  EXPECT_EQ(Day(), QDate(2026, 10, 21));
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Day(), QDate(2026, 11, 21));
  Press(Qt::Key_Home);
  EXPECT_EQ(Day(), QDate(2026, 11, 1));
  Press(Qt::Key_End);
  EXPECT_EQ(Day(), QDate(2026, 11, 30));
  Press(Qt::Key_Up);
  EXPECT_EQ(Day(), QDate(2026, 11, 23));
  Press(Qt::Key_Return);
  EXPECT_FALSE(Find<QCalendarWidget>("calendar").isVisible());
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 23, 2026");
}

TEST_F(GuideKeysTest, AFormIsFilledAndSavedByKeysAlone) {
  Open();
  ByKeysInNextDialog([](QWidget& dialog) {
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Milk"));
    auto* type = dialog.findChild<QComboBox*>(QStringLiteral("purchaseTypeBox"));
    ASSERT_NE(type, nullptr);
    type->setFocus(Qt::TabFocusReason);
    QTest::keyClick(type, Qt::Key_Down, Qt::AltModifier);
    QWidget* const list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr) << "Alt+Down opens the list";
    QTest::keyClick(list->focusWidget() != nullptr ? list->focusWidget() : list, Qt::Key_Home);
    QTest::keyClick(list->focusWidget() != nullptr ? list->focusWidget() : list, Qt::Key_Return);
    EXPECT_EQ(type->currentText(), QStringLiteral("One Time"));
    auto* date = dialog.findChild<QDateEdit*>(QStringLiteral("purchaseDateEdit"));
    ASSERT_NE(date, nullptr);
    date->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(date, QStringLiteral("11202026"));
    QTest::keyClick(date, Qt::Key_Up);
    QTest::keyClick(date, Qt::Key_Return);
  });
  Press(Qt::Key_Insert);
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk"));
}

TEST_F(GuideKeysTest, AQuestionIsAnsweredByArrowsAndEnter) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  ByKeysInNextDialog([](QWidget& box) {
    QTest::keyClick(box.focusWidget(), Qt::Key_Right);
    QTest::keyClick(box.focusWidget(), Qt::Key_Return);
  });
  Press(Qt::Key_Delete);
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk")) << "the second button is No";
  ByKeysInNextDialog([](QWidget& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); });
  Press(Qt::Key_Delete);
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre());
}

}  // namespace
}  // namespace brovanta::test
