#include "ui/base/modal_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "tests/support/small_screen.h"
#include "ui/base/message_box.h"

namespace brovanta {
namespace {

/// A form as they all are: fields that scroll, a row of buttons below.
class SampleDialog : public ModalDialog {
 public:
  explicit SampleDialog(int cancel_result = kCancelled) : ModalDialog(nullptr, cancel_result) {
    auto* layout = new QVBoxLayout(this);
    area_ = new QScrollArea(this);
    area_->setWidgetResizable(true);
    auto* content = new QWidget;
    auto* fields = new QVBoxLayout(content);
    for (int i = 0; i < 30; ++i) {
      fields_.append(new QLineEdit(content));
      fields->addWidget(fields_.last());
    }
    area_->setWidget(content);
    layout->addWidget(area_);
    for (auto** button : {&other_, &ok_, &cancel_}) {
      *button = new QPushButton(QStringLiteral("Button"), this);
      layout->addWidget(*button);
    }
    connect(other_, &QPushButton::clicked, this, [this] { ++other_clicks_; });
    connect(ok_, &QPushButton::clicked, this, [this] { done(kCompleted); });
    connect(cancel_, &QPushButton::clicked, this, &SampleDialog::reject);
  }

  QScrollArea* area_ = nullptr;
  QList<QLineEdit*> fields_;
  QPushButton* other_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* cancel_ = nullptr;
  int other_clicks_ = 0;
};

template <typename Action>
int RunDialog(SampleDialog& dialog, Action action) {
  QTimer::singleShot(0, &dialog, action);
  return dialog.exec();
}

TEST(ModalDialogTest, EscapeEndsWithTheCancelResultWhichIsNotZero) {
  SampleDialog dialog;
  EXPECT_EQ(RunDialog(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), 2);
}

TEST(ModalDialogTest, CloseBoxEndsWithTheCancelResult) {
  SampleDialog dialog(-1);
  EXPECT_EQ(RunDialog(dialog, [&] { dialog.close(); }), -1);
}

TEST(ModalDialogTest, AFieldThatIsLeftShowsTheBeginningOfItsText) {
  SampleDialog dialog;
  RunDialog(dialog, [&] {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    dialog.fields_[0]->setFocus();
    QTest::keyClicks(dialog.fields_[0], QString(200, QLatin1Char('n')));
    QTest::keyClick(dialog.fields_[0], Qt::Key_Tab);
    EXPECT_TRUE(dialog.fields_[1]->hasFocus());
    EXPECT_EQ(dialog.fields_[0]->cursorPosition(), 0);
    dialog.close();
  });
}

TEST(ModalDialogTest, EnterInAFieldPressesNoButtonWithoutADefault) {
  SampleDialog dialog;
  const int result = RunDialog(dialog, [&] {
    dialog.fields_[0]->setFocus();
    QTest::keyClick(dialog.fields_[0], Qt::Key_Return);
    EXPECT_EQ(dialog.other_clicks_, 0);
    QTest::mouseClick(dialog.cancel_, Qt::LeftButton);
  });
  EXPECT_EQ(result, ModalDialog::kCancelled);
}

TEST(ModalDialogTest, EnterInAFieldPressesTheExplicitDefault) {
  SampleDialog dialog;
  dialog.ok_->setDefault(true);
  const int result = RunDialog(dialog, [&] {
    dialog.fields_[0]->setFocus();
    QTest::keyClick(dialog.fields_[0], Qt::Key_Enter);
  });
  EXPECT_EQ(result, ModalDialog::kCompleted);
}

TEST(ModalDialogTest, EnterOnAFocusedButtonPressesThatOneAndNotTheDefault) {
  SampleDialog dialog;
  dialog.ok_->setDefault(true);
  const int result = RunDialog(dialog, [&] {
    dialog.cancel_->setFocus();
    QTest::keyClick(dialog.cancel_, Qt::Key_Return);
  });
  EXPECT_EQ(result, ModalDialog::kCancelled);
}

TEST(ModalDialogTest, TheDefaultStaysTheDefaultWhileAnotherButtonHasTheFocus) {
  SampleDialog dialog;
  dialog.ok_->setDefault(true);
  dialog.show();
  dialog.other_->setFocus();
  EXPECT_TRUE(dialog.ok_->isDefault());
  EXPECT_FALSE(dialog.other_->isDefault());
}

TEST(ModalDialogTest, OpensAt360By640OnALargeScreen) {
  ASSERT_FALSE(IsSmallScreen(QApplication::primaryScreen()));
  SampleDialog dialog;
  dialog.show();
  EXPECT_EQ(dialog.size(), QSize(360, 640));
  EXPECT_FALSE(dialog.isFullScreen());
}

TEST(ModalDialogTest, FillsASmallScreen) {
  if (!test::OnSmallScreen()) {
    EXPECT_EQ(test::RunOnSmallScreen("ModalDialogTest.FillsASmallScreen"), 0);
    return;
  }
  ASSERT_TRUE(IsSmallScreen(QApplication::primaryScreen()));
  SampleDialog dialog;
  dialog.resize(200, 200);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  EXPECT_TRUE(dialog.isFullScreen());
  EXPECT_EQ(dialog.size(), QSize(360, 640));
}

TEST(ModalDialogTest, KeepsASizeThatWasGiven) {
  SampleDialog dialog;
  dialog.resize(400, 300);
  dialog.show();
  EXPECT_EQ(dialog.size(), QSize(400, 300));
}

TEST(ModalDialogTest, NoScreenCountsAsALargeOne) { EXPECT_FALSE(IsSmallScreen(nullptr)); }

TEST(ModalDialogTest, TheFocusedFieldIsScrolledIntoView) {
  SampleDialog dialog;
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  dialog.fields_.last()->setFocus();
  EXPECT_FALSE(dialog.fields_.last()->visibleRegion().isEmpty());
  EXPECT_GT(dialog.area_->verticalScrollBar()->value(), 0);
}

TEST(ModalDialogTest, TheFocusedFieldStaysInViewWhenTheKeyboardTakesHalfTheScreen) {
  SampleDialog dialog;
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  QLineEdit* field = dialog.fields_[6];
  field->setFocus();
  dialog.resize(360, 320);
  QCoreApplication::processEvents();
  EXPECT_FALSE(field->visibleRegion().isEmpty());
}

TEST(ModalDialogTest, EndingTheProgramEndsWhatIsOpenOverTheWindowTheInnermostFirst) {
  QWidget window;
  window.show();
  QStringList ended;
  int outer_result = -1;
  Answer answer = Answer::kYes;
  {
    ModalDialog outer(&window);
    QObject::connect(&outer, &QDialog::finished, [&] { ended.append(QStringLiteral("outer")); });
    QTimer::singleShot(0, &outer, [&] {
      QTimer::singleShot(0, &outer, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QObject::connect(box, &QDialog::finished, [&] { ended.append(QStringLiteral("box")); });
        EndDialogsOf(window);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
      });
      answer = AskYesNo(&outer, QStringLiteral("Go on?"));
    });
    outer_result = outer.exec();
  }
  EXPECT_EQ(ended, (QStringList{QStringLiteral("box"), QStringLiteral("outer")}));
  EXPECT_EQ(outer_result, ModalDialog::kCancelled);
  EXPECT_EQ(answer, Answer::kNo);
  EXPECT_TRUE(window.isVisible());
}

TEST(ModalDialogTest, EndingTheProgramLeavesTheDialogsOfOtherWindowsAlone) {
  QWidget window;
  ModalDialog other(nullptr);
  other.show();
  EndDialogsOf(window);
  EXPECT_TRUE(other.isVisible());
}

TEST(ModalDialogTest, ThePartOfAListInWhichOneTypesIsCalledAsItsLabelSays) {
  SampleDialog dialog;
  auto* const box = new QComboBox(&dialog);
  box->setEditable(true);
  auto* const label = new QLabel(QStringLiteral("Country:"), &dialog);
  label->setBuddy(box);
  dialog.show();
  EXPECT_EQ(box->lineEdit()->accessibleName(), QStringLiteral("Country"));
}

}  // namespace
}  // namespace brovanta
