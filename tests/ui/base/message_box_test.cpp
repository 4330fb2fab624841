#include "ui/base/message_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "tests/support/form_check.h"
#include "tests/support/german.h"
#include "tests/support/message_answers.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

using test::MessageAnswers;

const QString kQuestion = QStringLiteral("Do you want to delete it?");

/// Runs on the box that is open once it is.
template <typename Action>
void WithOpenBox(Action action) {
  QTimer::singleShot(0, qApp, [action] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    action(box);
  });
}

TEST(MessageBoxTest, IsCaptionedBrovantaAndClosesWithOk) {
  MessageAnswers answers({QMessageBox::Ok});
  ShowMessage(nullptr, QStringLiteral("The tax must be a valid number."));
  EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("The tax must be a valid number.")});
  EXPECT_EQ(answers.captions(), QStringList{QStringLiteral("Brovanta")});
}

TEST(MessageBoxTest, CarriageReturnLineFeedIsOneLineBreak) {
  MessageAnswers answers({QMessageBox::Ok});
  ShowMessage(nullptr, QStringLiteral("one\r\ntwo"));
  EXPECT_EQ(answers.texts(), QStringList{QStringLiteral("one\ntwo")});
}

TEST(MessageBoxTest, TextIsNeverReadAsMarkup) {
  WithOpenBox([](QMessageBox* box) {
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    box->close();
  });
  ShowMessage(nullptr, QStringLiteral("<b>bold</b>"));
}

TEST(MessageBoxTest, ButtonsDecideTheAnswer) {
  MessageAnswers answers(
      {QMessageBox::Yes, QMessageBox::No, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel});
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kYes);
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kNo);
  EXPECT_EQ(AskYesNoCancel(nullptr, kQuestion), Answer::kYes);
  EXPECT_EQ(AskYesNoCancel(nullptr, kQuestion), Answer::kNo);
  EXPECT_EQ(AskYesNoCancel(nullptr, kQuestion), Answer::kCancel);
}

TEST(MessageBoxTest, EscapeAnswersNoAndCancelWhereItIsOffered) {
  MessageAnswers answers;
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kNo);
  EXPECT_EQ(AskYesNoCancel(nullptr, kQuestion), Answer::kCancel);
  EXPECT_EQ(answers.texts().size(), 2);
}

TEST(MessageBoxTest, CloseBoxAnswersLikeEscape) {
  WithOpenBox([](QMessageBox* box) { box->close(); });
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kNo);
  WithOpenBox([](QMessageBox* box) { box->close(); });
  EXPECT_EQ(AskYesNoCancel(nullptr, kQuestion), Answer::kCancel);
}

TEST(MessageBoxTest, QuestionsShowTheQuestionIcon) {
  WithOpenBox([](QMessageBox* box) {
    EXPECT_EQ(box->icon(), QMessageBox::Question);
    test::SavePicture(box, QStringLiteral("question"));
    box->close();
  });
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kNo);
}

TEST(MessageBoxTest, ALongSentenceIsWrappedAndFitsANarrowScreen) {
  WithOpenBox([](QMessageBox* box) {
    test::SavePicture(box, QStringLiteral("message"));
    EXPECT_LE(box->width(), 320);
    EXPECT_EQ(test::Clipped(box), "");
    for (const QAbstractButton* button : box->buttons()) {
      EXPECT_GE(button->height(), theme::kFingerHeight);
    }
    box->close();
  });
  ShowMessage(nullptr, QStringLiteral("There was an error while saving the Brovanta options to the "
                                      "registry."));
}

TEST(MessageBoxTest, ThreeButtonsFitANarrowScreen) {
  WithOpenBox([](QMessageBox* box) {
    test::SavePicture(box, QStringLiteral("question_three"));
    EXPECT_LE(box->width(), 320);
    EXPECT_EQ(test::Clipped(box), "");
    box->close();
  });
  EXPECT_EQ(AskYesNoCancel(nullptr, QStringLiteral("Do you want to delete all occurrences of this "
                                                   "product or only the selected one?")),
            Answer::kCancel);
}

TEST(MessageBoxTest, KeepsItsSizeAndItsLinesWhenThePaletteChanges) {
  for (const bool question : {false, true}) {
    WithOpenBox([](QMessageBox* box) {
      const QSize size = box->size();
      UseDarkPalette(true);
      QCoreApplication::processEvents();
      EXPECT_EQ(box->size(), size);
      auto* const text = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
      EXPECT_TRUE(text->wordWrap());
      EXPECT_GE(text->height(), text->heightForWidth(text->width()));
      UseDarkPalette(false);
      QCoreApplication::processEvents();
      EXPECT_EQ(box->size(), size);
      box->reject();
    });
    const QString sentence =
        QStringLiteral("Do you want to permanently delete the selected product from the list?");
    if (question) {
      EXPECT_EQ(AskYesNo(nullptr, sentence), Answer::kNo);
    } else {
      ShowMessage(nullptr, sentence);
    }
  }
}

TEST(MessageBoxTest, BelongsToTheWindowOfItsParent) {
  QWidget window;
  QWidget child(&window);
  window.show();
  WithOpenBox([&window](QMessageBox* box) {
    EXPECT_EQ(box->parentWidget(), &window);
    box->close();
  });
  ShowMessage(&child, QStringLiteral("text"));
}

TEST(MessageBoxTest, TheButtonsSpeakTheLanguage) {
  const test::German german;
  WithOpenBox([](QMessageBox* box) {
    EXPECT_EQ(box->button(QMessageBox::Yes)->text().remove(QLatin1Char('&')), QStringLiteral("Ja"));
    EXPECT_EQ(box->button(QMessageBox::No)->text().remove(QLatin1Char('&')),
              QStringLiteral("Nein"));
    box->close();
  });
  EXPECT_EQ(AskYesNo(nullptr, QStringLiteral("?")), Answer::kNo);
}

TEST(MessageBoxTest, ThePictureOfAQuestionHasAName) {
  WithOpenBox([](QMessageBox* box) {
    const auto* picture = box->findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->accessibleName(), QStringLiteral("Question"));
    box->close();
  });
  EXPECT_EQ(AskYesNo(nullptr, kQuestion), Answer::kNo);
}

}  // namespace
}  // namespace brovanta
