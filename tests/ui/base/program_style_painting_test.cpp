#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

QColor PixelAt(QWidget& widget, int x, int y) { return widget.grab().toImage().pixelColor(x, y); }

TEST(ProgramStylePaintingTest, TheFocusedFieldHasANavyFrame) {
  QWidget window;
  QLineEdit edit(&window);
  edit.setGeometry(10, 10, 200, 40);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  edit.setFocus();
  EXPECT_EQ(edit.grab().toImage().pixelColor(100, 0), theme::kNavy);
  edit.clearFocus();
  EXPECT_EQ(edit.grab().toImage().pixelColor(100, 0), theme::kFieldLine);
}

TEST(ProgramStylePaintingTest, TheDefaultButtonIsNavyAndAnotherIsNot) {
  QPushButton button(QStringLiteral("OK"));
  button.resize(100, 40);
  EXPECT_EQ(button.grab().toImage().pixelColor(50, 4), theme::kGround);
  button.setDefault(true);
  EXPECT_EQ(button.grab().toImage().pixelColor(50, 4), theme::kNavy);
  button.setEnabled(false);
  EXPECT_EQ(button.grab().toImage().pixelColor(50, 4), theme::kBar);
}

TEST(ProgramStylePaintingTest, ButtonsShowFocusAndPress) {
  QPushButton button(QStringLiteral("OK"));
  button.resize(100, 40);
  button.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
  button.setFocus();
  EXPECT_EQ(button.grab().toImage().pixelColor(50, 1), theme::kNavy);
  button.setDown(true);
  EXPECT_EQ(button.grab().toImage().pixelColor(50, 6), theme::kSelection);
}

TEST(ProgramStylePaintingTest, ProgressFillsItsPartOfTheBarInNavy) {
  QProgressBar bar;
  bar.setTextVisible(false);
  bar.setRange(0, 4);
  bar.resize(400, 20);
  bar.setValue(0);
  EXPECT_EQ(PixelAt(bar, 20, 10), theme::kBar);
  bar.setValue(1);
  EXPECT_EQ(PixelAt(bar, 50, 10), theme::kNavy);
  EXPECT_EQ(PixelAt(bar, 110, 10), theme::kBar);
  bar.setValue(4);
  EXPECT_EQ(PixelAt(bar, 390, 10), theme::kNavy);
}

TEST(ProgramStylePaintingTest, TheSelectedTabIsUnderlinedInNavy) {
  QTabBar tabs;
  tabs.addTab(QString());
  tabs.addTab(QString());
  tabs.resize(200, tabs.sizeHint().height());
  tabs.show();
  const QRect first = tabs.tabRect(0);
  const QRect second = tabs.tabRect(1);
  EXPECT_GE(first.width(), 56);
  EXPECT_GE(first.height(), 28);
  const QImage image = tabs.grab().toImage();
  EXPECT_EQ(image.pixelColor(first.center().x(), first.bottom()), theme::kNavy);
  EXPECT_EQ(image.pixelColor(second.center().x(), second.bottom()), theme::kBar);
}

TEST(ProgramStylePaintingTest, TheEditFieldInAComboBoxHasNoFrameOfItsOwn) {
  QComboBox combo;
  combo.setEditable(true);
  combo.resize(200, 40);
  combo.show();
  const QPoint edge = combo.lineEdit()->geometry().topLeft() + QPoint(50, 0);
  EXPECT_EQ(PixelAt(combo, 100, 0), theme::kFieldLine);
  EXPECT_EQ(PixelAt(combo, edge.x(), edge.y()), theme::kGround);
}

TEST(ProgramStylePaintingTest, AChosenTextHasTheColorOfATypedOne) {
  QComboBox combo;
  combo.addItem(QString(8, QChar(0x2588)));  // full blocks: nothing but ink
  combo.resize(200, 40);
  EXPECT_EQ(PixelAt(combo, 40, 20), theme::kText);
}

TEST(ProgramStylePaintingTest, AFieldForSeveralLinesLooksLikeOneForASingleLine) {
  QWidget window;
  QPlainTextEdit edit(&window);
  edit.setGeometry(10, 10, 200, 100);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  edit.clearFocus();
  EXPECT_EQ(PixelAt(edit, 100, 0), theme::kFieldLine);
  EXPECT_EQ(PixelAt(edit, 100, 1), theme::kGround);
  edit.setFocus();
  EXPECT_EQ(PixelAt(edit, 100, 1), theme::kNavy);
}

TEST(ProgramStylePaintingTest, ADisabledFieldLooksQuiet) {
  QComboBox combo;
  combo.resize(200, 40);
  combo.setEnabled(false);
  EXPECT_EQ(PixelAt(combo, 100, 0), theme::kLine);
  EXPECT_EQ(PixelAt(combo, 100, 5), theme::kBar);
}

TEST(ProgramStylePaintingTest, ACheckedBoxIsFilledWithNavy) {
  QCheckBox box;
  box.resize(box.sizeHint());
  const int middle = box.height() / 2;
  EXPECT_EQ(PixelAt(box, 3, middle), theme::kGround);
  box.setChecked(true);
  EXPECT_EQ(PixelAt(box, 3, middle), theme::kNavy);
}

TEST(ProgramStylePaintingTest, AToolButtonShowsFocusAndPress) {
  QToolButton button;
  button.setFocusPolicy(Qt::StrongFocus);
  button.resize(40, 40);
  button.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
  button.setFocus();
  EXPECT_EQ(PixelAt(button, 20, 1), theme::kNavy);
  button.setDown(true);
  EXPECT_EQ(PixelAt(button, 20, 6), theme::kSelection);
}

TEST(ProgramStylePaintingTest, TheToolBarIsFlatUnderALine) {
  QWidget window;
  QToolBar bar(&window);
  bar.setGeometry(0, 100, 200, 48);
  EXPECT_EQ(PixelAt(bar, 100, 0), theme::kLine);
  EXPECT_EQ(PixelAt(bar, 100, 20), theme::kBar);
}

TEST(ProgramStylePaintingTest, AScrollBarWithNothingToScrollShowsNoSlider) {
  QScrollBar bar(Qt::Vertical);
  bar.resize(10, 100);
  bar.setRange(0, 0);
  EXPECT_EQ(PixelAt(bar, 5, 50), theme::kGround);
  bar.setRange(0, 100);
  bar.setPageStep(100);
  EXPECT_EQ(PixelAt(bar, 5, 25), theme::kFieldLine);
  EXPECT_EQ(PixelAt(bar, 5, 75), theme::kGround);
}

}  // namespace
}  // namespace brovanta
