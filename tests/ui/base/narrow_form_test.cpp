#include "ui/base/narrow_form.h"

#include <gtest/gtest.h>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include "ui/base/theme.h"

namespace brovanta {
namespace {

QPoint Place(const QWidget& widget) { return widget.mapTo(widget.window(), QPoint(0, 0)); }

TEST(NarrowFormTest, LabelsStandAboveTheirFieldsWhereBothDoNotFit) {
  QWidget form;
  auto* grid = new QGridLayout(&form);
  auto* label = new QLabel(QStringLiteral("A label of some length:"));
  auto* field = new QLineEdit;
  auto* below = new QPushButton(QStringLiteral("Below"));
  field->setMinimumWidth(150);
  grid->addWidget(label, 0, 0);
  grid->addWidget(field, 0, 1);
  grid->addWidget(below, 1, 0, 1, 2);
  form.resize(500, 300);
  form.show();
  FormColumns columns(*grid);
  columns.Fit(500);
  grid->activate();
  EXPECT_GT(Place(*field).x(), Place(*label).x());
  EXPECT_LT(Place(*label).y(), Place(*field).y() + field->height());
  columns.Fit(200);
  grid->activate();
  EXPECT_GE(Place(*field).y(), Place(*label).y() + label->height());
  EXPECT_EQ(Place(*field).x(), Place(*label).x());
  EXPECT_GT(Place(*below).y(), Place(*field).y());
  columns.Fit(500);
  grid->activate();
  EXPECT_GT(Place(*field).x(), Place(*label).x());
}

TEST(NarrowFormTest, ButtonsStandOneBelowTheOtherWhereTheyDoNotFit) {
  QWidget window;
  auto* line = new QHBoxLayout(&window);
  line->setObjectName(QStringLiteral("buttonLayout"));
  for (const char* text : {"Open", "Close", "Delete"}) {
    auto* button = new QPushButton(QString::fromLatin1(text));
    button->setMinimumWidth(100);
    line->addWidget(button);
  }
  window.resize(500, 300);
  FitButtonLines(window);
  EXPECT_EQ(line->direction(), QBoxLayout::LeftToRight);
  window.setMinimumSize(1, 1);
  line->setSizeConstraint(QLayout::SetNoConstraint);
  window.resize(120, 300);
  FitButtonLines(window);
  EXPECT_EQ(line->direction(), QBoxLayout::TopToBottom);
}

TEST(NarrowFormTest, AWholeWindowScrollsToWhatHasTheFocus) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  QList<QPushButton*> buttons;
  for (int i = 0; i < 20; ++i) {
    buttons << new QPushButton(QStringLiteral("Button"));
    layout->addWidget(buttons.last());
  }
  ScrollWhole(window);
  window.resize(200, 200);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(window.size(), QSize(200, 200));
  buttons.last()->setFocus();
  ShowFocus(window);
  EXPECT_EQ(buttons.last()->visibleRegion().boundingRect(), buttons.last()->rect());
  buttons.first()->setFocus();
  ShowFocus(window);
  EXPECT_EQ(buttons.first()->visibleRegion().boundingRect(), buttons.first()->rect());
}

TEST(NarrowFormTest, ButtonsOfARowWriteInOneSizeThatFits) {
  QWidget window;
  auto* line = new QHBoxLayout(&window);
  line->setObjectName(QStringLiteral("buttonLayout"));
  QFont large = window.font();
  large.setPixelSize(28);
  window.setFont(large);
  QList<QPushButton*> buttons;
  for (const char* text : {"Open", "Close", "Delete"}) {
    buttons << new QPushButton(QString::fromLatin1(text));
    line->addWidget(buttons.last());
  }
  line->setSizeConstraint(QLayout::SetNoConstraint);
  window.resize(250, 60);
  FitButtonLines(window);
  EXPECT_EQ(line->direction(), QBoxLayout::LeftToRight);
  EXPECT_LT(buttons[0]->font().pixelSize(), 28);
  EXPECT_GE(buttons[0]->font().pixelSize(), theme::kLeastTextPixels);
  EXPECT_EQ(buttons[0]->font(), buttons[1]->font());
  EXPECT_EQ(buttons[0]->font(), buttons[2]->font());
  line->activate();
  EXPECT_LE(buttons[2]->geometry().right(), 250);
  EXPECT_LE(buttons[2]->fontMetrics().horizontalAdvance(buttons[2]->text()), buttons[2]->width());
  window.resize(600, 60);
  FitButtonLines(window);
  EXPECT_EQ(buttons[0]->font().pixelSize(), 28);
}

TEST(NarrowFormTest, ALabelAboveItsFieldIsSeenWithIt) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  QList<QLabel*> labels;
  QList<QLineEdit*> fields;
  for (int i = 0; i < 8; ++i) {
    labels << new QLabel(QStringLiteral("Label"));
    fields << new QLineEdit;
    labels.last()->setBuddy(fields.last());
    layout->addWidget(labels.last());
    layout->addWidget(fields.last());
  }
  ScrollWhole(window);
  window.resize(200, 120);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const int i : {4, 7, 2, 0}) {
    fields[i]->setFocus();
    ShowFocus(window);
    EXPECT_EQ(fields[i]->visibleRegion().boundingRect(), fields[i]->rect()) << i;
    EXPECT_EQ(labels[i]->visibleRegion().boundingRect(), labels[i]->rect()) << i;
  }
  EXPECT_EQ(window.findChild<QScrollArea*>()->verticalScrollBar()->value(), 0);
}

}  // namespace
}  // namespace brovanta
