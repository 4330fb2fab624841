#include "ui/base/input_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QList>
#include <QTest>
#include <QVBoxLayout>

namespace brovanta {
namespace {

QList<bool> calls;

void Record(bool show) { calls.append(show); }

class InputPanelTest : public testing::Test {
 protected:
  InputPanelTest() : before_(SetInputPanelHandler(&Record)) {
    auto* layout = new QVBoxLayout(&window_);
    for (QWidget* widget : {static_cast<QWidget*>(&other_), static_cast<QWidget*>(&line_),
                            static_cast<QWidget*>(&combo_), static_cast<QWidget*>(&list_),
                            static_cast<QWidget*>(&date_)}) {
      layout->addWidget(widget);
    }
    combo_.setEditable(true);
    ShowInputPanelOnFocus(&line_);
    ShowInputPanelOnFocus(&combo_);
    HideInputPanelOnFocus(&list_);
    HideInputPanelOnFocus(&date_);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    other_.setFocus();
    calls.clear();
  }
  ~InputPanelTest() override { SetInputPanelHandler(before_); }

  InputPanelHandler before_;
  QWidget window_;
  QLineEdit other_;
  QLineEdit line_;
  QComboBox combo_;
  QComboBox list_;
  QDateEdit date_;
};

TEST_F(InputPanelTest, ATextFieldShowsThePanelOnceWhenItTakesTheFocus) {
  QTest::mouseClick(&line_, Qt::LeftButton);
  EXPECT_EQ(calls, QList<bool>{true});
}

TEST_F(InputPanelTest, TheEditFieldOfAComboBoxShowsThePanel) {
  QTest::mouseClick(combo_.lineEdit(), Qt::LeftButton);
  EXPECT_EQ(calls, QList<bool>{true});
}

TEST_F(InputPanelTest, AListAndADatePickerPutThePanelAway) {
  list_.setFocus();
  EXPECT_EQ(calls, QList<bool>{false});
  date_.setFocus();
  EXPECT_EQ(calls, (QList<bool>{false, false}));
}

TEST_F(InputPanelTest, AFieldWithoutTheRuleChangesNothing) {
  line_.setFocus();
  calls.clear();
  other_.setFocus();
  EXPECT_TRUE(calls.isEmpty());
}

TEST_F(InputPanelTest, TheHandlerIsReplaceableAndHandsBackTheOneBefore) {
  EXPECT_EQ(SetInputPanelHandler(nullptr), &Record);
  ShowInputPanel(true);
  ShowInputPanel(false);
  EXPECT_TRUE(calls.isEmpty());
  SetInputPanelHandler(&Record);
  ShowInputPanel(true);
  EXPECT_EQ(calls, QList<bool>{true});
}

}  // namespace
}  // namespace brovanta
