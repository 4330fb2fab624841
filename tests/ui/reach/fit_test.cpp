// Every screen where there is little room: on small screens, at every scale, in large print.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <optional>
#include <tuple>

#include "tests/support/dialog_watch.h"
#include "tests/support/form_check.h"
#include "tests/support/german.h"
#include "tests/support/painted_texts.h"
#include "tests/support/small_screen.h"
#include "tests/ui/reach/cut_text.h"
#include "tests/ui/reach/fit_check.h"
#include "tests/ui/reach/large_print.h"
#include "tests/ui/reach/screens.h"
#include "tests/ui/reach/sentences.h"
#include "tests/ui/reach/text_lines.h"
#include "ui/base/color_button.h"
#include "ui/base/message_box.h"
#include "ui/base/record_tree.h"

namespace brovanta::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// What empty lists would say, to the eye as to a screen reader, and do not paint.
QStringList UnpaintedHints(QWidget& screen) {
  QStringList unpainted;
  for (RecordTree* list : screen.findChildren<RecordTree*>()) {
    if (!list->isVisible() || list->model()->rowCount() != 0) continue;
    QString painted;
    for (const PaintedText& text : PaintedTexts(*list)) painted += text.text;
    painted.remove(QLatin1Char(' '));  // a line may end behind a hyphen as well as at a blank
    for (const QString& line : list->empty_text().split(QLatin1Char('\n'))) {
      if (!painted.contains(QString(line).remove(QLatin1Char(' ')))) unpainted << line;
    }
  }
  return unpainted;
}

void ExpectAllFits(const char* print, bool states) {
  Screens screens;
  const auto look = [print](const OpenScreen& open) {
    EXPECT_THAT(Lines(FitComplaints(*open.screen)), IsEmpty()) << open.name << ", " << print;
    EXPECT_THAT(Lines(CutTexts(*open.screen)), IsEmpty()) << open.name << ", " << print;
    EXPECT_THAT(Lines(UnpaintedHints(*open.screen)), IsEmpty()) << open.name << ", " << print;
    const QSize whole = QApplication::primaryScreen()->size();
    EXPECT_EQ(open.screen->window()->size().boundedTo(whole), open.screen->window()->size())
        << open.name << ", " << print << ": " << open.screen->window()->width() << " x "
        << open.screen->window()->height();
    SavePicture(open.screen, QString::fromStdString(open.name + ", " + print));
  };
  screens.ForEachAsOpened(look);
  if (states) screens.ForEachState(look);
}

/// The whole program runs on a screen of this size: a process of its own for each.
class FitTest : public testing::TestWithParam<std::tuple<QSize, int>> {};

TEST_P(FitTest, NothingIsCutOrOutOfReach) {
  if (!OnSmallScreen()) {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    EXPECT_EQ(RunOnSmallScreen(name.c_str(), std::get<0>(GetParam()), std::get<1>(GetParam())), 0);
    return;
  }
  ASSERT_EQ(QApplication::primaryScreen()->geometry().size(), std::get<0>(GetParam()));
  ASSERT_EQ(qApp->devicePixelRatio(), std::get<1>(GetParam()) / 100.0);
  // A scale changes the pixels, not the words nor what there is to be seen.
  const bool all = std::get<1>(GetParam()) == 100;
  ExpectAllFits("usual print", all);
  {
    const LargePrint large;
    ExpectAllFits("large print", all);
  }
  if (!all) return;
  const German german;
  ExpectAllFits("German, usual print", all);
  const LargePrint large;
  ExpectAllFits("German, large print", all);
}

INSTANTIATE_TEST_SUITE_P(Screens, FitTest,
                         testing::Combine(testing::Values(QSize(360, 640), QSize(640, 360),
                                                          QSize(320, 480), QSize(240, 320)),
                                          testing::Values(100, 150, 200, 300)),
                         [](const testing::TestParamInfo<FitTest::ParamType>& tested) {
                           const QSize size = std::get<0>(tested.param);
                           return std::to_string(size.width()) + "x" +
                                  std::to_string(size.height()) + "at" +
                                  std::to_string(std::get<1>(tested.param));
                         });

/// Every sentence of the program in a box of its own.
void ExpectMessagesFit(const QStringList& sentences, const std::string& how) {
  const QStringList messages = MessagesOf(sentences);
  EXPECT_GT(messages.size(), 50);
  const QSize whole = QApplication::primaryScreen()->size();
  QWidget window;
  window.show();
  for (const QString& message : messages) {
    const DialogWatch watch([&](QWidget& box) {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
      EXPECT_THAT(Lines(FitComplaints(box)), IsEmpty()) << message.toStdString() << ", " << how;
      EXPECT_THAT(Lines(CutTexts(box)), IsEmpty()) << message.toStdString() << ", " << how;
      EXPECT_EQ(box.size().boundedTo(whole), box.size()) << message.toStdString() << ", " << how;
      const auto* const row = box.findChild<QDialogButtonBox*>();
      ASSERT_NE(row, nullptr);
      for (const QAbstractButton* button : row->buttons()) {
        const bool column = row->orientation() == Qt::Vertical;
        EXPECT_GE(button->width(), column ? box.width() * 3 / 4 : 0) << message.toStdString();
      }
      box.close();
    });
    if (message.contains(QLatin1Char('?'))) {
      static_cast<void>(AskYesNoCancel(&window, message));  // with the most buttons
    } else {
      ShowMessage(&window, message);
    }
  }
}

TEST(FitMessagesTest, EverySentenceFitsABoxOnTheSmallestScreen) {
  if (!OnSmallScreen()) {
    EXPECT_EQ(RunOnSmallScreen("FitMessagesTest.EverySentenceFitsABoxOnTheSmallestScreen",
                               QSize(240, 320)),
              0);
    return;
  }
  for (const bool german : {false, true}) {
    const std::optional<German> spoken = german ? std::make_optional<German>() : std::nullopt;
    const QStringList texts = german ? GermanTexts() : EnglishTexts();
    ExpectMessagesFit(texts, german ? "German" : "English");
    const LargePrint large;
    ExpectMessagesFit(texts, german ? "German, large print" : "large print");
  }
}

/// A small form that fits until somebody spoils it.
class SpoiledFitTest : public testing::Test {
 protected:
  SpoiledFitTest() {
    auto* layout = new QVBoxLayout(&form_);
    layout->addWidget(label_);
    layout->addWidget(button_);
    label_->setObjectName(QStringLiteral("label"));
    button_->setObjectName(QStringLiteral("button"));
    button_->setText(QStringLiteral("All Stores"));
    form_.show();
  }

  std::vector<std::string> Complaints() { return Lines(FitComplaints(form_)); }
  std::vector<std::string> Cut() {
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    form_.resize(form_.sizeHint());
    return Lines(CutTexts(form_));
  }

  QDialog form_;
  QLabel* label_ = new QLabel(QStringLiteral("Stores"));
  ColorButton* button_ = new ColorButton;
};

TEST_F(SpoiledFitTest, FitsBeforeThat) {
  EXPECT_THAT(Complaints(), IsEmpty());
  EXPECT_THAT(Cut(), IsEmpty());
}

TEST_F(SpoiledFitTest, ATextThatStandsOutOfItsControlIsSeen) {
  label_->setFixedWidth(30);
  EXPECT_THAT(Cut(), Contains(HasSubstr("label: \"Stores\" takes")));
}

TEST_F(SpoiledFitTest, DotsInTheProgramsOwnWordsAreSeenAndInTypedOnesAllowed) {
  label_->setText(QStringLiteral("2 days ov\u2026"));
  EXPECT_THAT(Cut(), Contains("label: \"2 days ov\u2026\" is cut"));
  label_->setText(QStringLiteral("Extra virgin\u2026"));
  EXPECT_THAT(Cut(), IsEmpty());
}

TEST_F(SpoiledFitTest, SmallPrintIsSeen) {
  QFont font = label_->font();
  font.setPixelSize(9);
  label_->setFont(font);
  EXPECT_THAT(Cut(), Contains("label: \"Stores\" is only 9 high"));
}

TEST_F(SpoiledFitTest, ACutTextIsSeen) {
  label_->setFixedWidth(10);
  EXPECT_THAT(Complaints(), Contains(HasSubstr("label: \"Stores\" needs")));
}

TEST_F(SpoiledFitTest, AButtonThatCutsItsTextIsSeen) {
  button_->setFixedWidth(60);
  EXPECT_THAT(Complaints(), Contains(HasSubstr("button: \"All Stores\" needs")));
}

TEST_F(SpoiledFitTest, SomethingLowerThanAFingerIsSeen) {
  button_->setFixedHeight(30);
  EXPECT_THAT(Complaints(), Contains("button: lower than a finger: 30"));
}

TEST_F(SpoiledFitTest, AControlOutsideIsSeen) {
  form_.layout()->removeWidget(button_);
  button_->move(form_.width() - 20, 0);
  EXPECT_THAT(Complaints(), Contains(HasSubstr("button: outside")));
}

TEST_F(SpoiledFitTest, WhatCanBeScrolledToIsNotOutside) {
  auto* area = new QScrollArea;
  area->setWidgetResizable(true);
  auto* content = new QWidget;
  auto* fields = new QVBoxLayout(content);
  for (int i = 0; i < 20; ++i) fields->addWidget(new QPushButton(QStringLiteral("OK")));
  area->setWidget(content);
  form_.layout()->addWidget(area);
  form_.resize(300, 300);
  EXPECT_THAT(Complaints(), IsEmpty());
}

}  // namespace
}  // namespace brovanta::test
