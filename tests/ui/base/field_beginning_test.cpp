#include "ui/base/field_beginning.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "tests/support/painted_texts.h"
#include "ui/base/name_combo.h"

namespace brovanta {
namespace {

const QString kLongName = QStringLiteral("Mediterranean Delicatessen at the Harbour");
constexpr int kLength = 41;

/// A name to type, a name to choose or to type, and a button.
class FieldBeginningTest : public testing::Test {
 protected:
  FieldBeginningTest() {
    auto* fields = new QVBoxLayout(&form_);
    for (QWidget* field : {static_cast<QWidget*>(line_), static_cast<QWidget*>(names_),
                           static_cast<QWidget*>(button_)}) {
      fields->addWidget(field);
    }
    ListItem item;
    item.Id = 7;
    item.Name.Assign(kLongName.toStdString());
    NameList list;
    list.Insert(item);
    names_->Fill(list);
    ShowBeginningsOfLeftFields(form_);
    form_.resize(120, 160);
    form_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form_));
  }

  /// What the field shows of its text begins where the text begins.
  static bool ShowsBeginning(QLineEdit& line) {
    for (const test::PaintedText& painted : test::PaintedTexts(line, false)) {
      if (painted.text == line.text()) return painted.whole.left() >= 0;
    }
    return false;
  }

  /// Opens the list and picks the long name.
  void Choose() {
    names_->setFocus();
    QTest::keyClick(names_, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(names_->view()->isVisible());
    QTest::keyClick(names_->view(), Qt::Key_Down);
    QTest::keyClick(names_->view(), Qt::Key_Return);
    ASSERT_FALSE(names_->view()->isVisible());
    ASSERT_EQ(names_->currentText(), kLongName);
  }

  QDialog form_;
  QLineEdit* line_ = new QLineEdit;
  NameCombo* names_ = new NameCombo;
  QPushButton* button_ = new QPushButton(QStringLiteral("OK"));
};

TEST_F(FieldBeginningTest, AChosenNameShowsItsBeginningOnceItIsLeft) {
  Choose();
  EXPECT_FALSE(ShowsBeginning(*names_->lineEdit()));
  QTest::keyClick(names_, Qt::Key_Tab);
  ASSERT_TRUE(button_->hasFocus());
  EXPECT_TRUE(ShowsBeginning(*names_->lineEdit()));
  EXPECT_EQ(names_->currentText(), kLongName);
  EXPECT_EQ(names_->Reference()->Id, 7);
}

TEST_F(FieldBeginningTest, SoDoTypedNames) {
  for (QLineEdit* line : {line_, names_->lineEdit()}) {
    QTest::mouseClick(line, Qt::LeftButton);
    QTest::keyClicks(line, kLongName + QStringLiteral(" 2"));
    EXPECT_FALSE(ShowsBeginning(*line));
    QTest::mouseClick(button_, Qt::LeftButton);
    EXPECT_TRUE(button_->hasFocus());
    EXPECT_TRUE(ShowsBeginning(*line));
    EXPECT_EQ(line->text(), kLongName + QStringLiteral(" 2"));
  }
  EXPECT_EQ(names_->Reference()->Id, 0) << "typed, not chosen";
}

TEST_F(FieldBeginningTest, WhoLooksIntoAListAndPicksNothingGoesOnTypingWhereHeWas) {
  QTest::mouseClick(names_->lineEdit(), Qt::LeftButton);
  QTest::keyClicks(names_->lineEdit(), QStringLiteral("Mediterranean Delicatssen"));
  for (int i = 0; i < 4; ++i) QTest::keyClick(names_->lineEdit(), Qt::Key_Left);
  QTest::keyClick(names_, Qt::Key_Down, Qt::AltModifier);
  ASSERT_TRUE(names_->view()->isVisible());
  QTest::keyClick(names_->view(), Qt::Key_Escape);
  ASSERT_FALSE(names_->view()->isVisible());
  EXPECT_TRUE(names_->hasFocus());
  QTest::keyClicks(names_->lineEdit(), QStringLiteral("e"));
  EXPECT_EQ(names_->currentText(), QStringLiteral("Mediterranean Delicatessen"));
}

TEST_F(FieldBeginningTest, BehindAChosenNameOneGoesOnTypingAtItsEnd) {
  QTest::mouseClick(names_->lineEdit(), Qt::LeftButton);
  QTest::keyClicks(names_->lineEdit(), QStringLiteral("Med"));
  Choose();
  QTest::keyClicks(names_->lineEdit(), QStringLiteral(" 2"));
  EXPECT_EQ(names_->currentText(), kLongName + QStringLiteral(" 2"));
}

TEST_F(FieldBeginningTest, AFieldBehindAnotherWindowStaysAsItIs) {
  line_->setFocus();
  QTest::keyClicks(line_, kLongName);
  QTest::keyClick(line_, Qt::Key_Left, Qt::ShiftModifier);
  QDialog other;
  other.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_EQ(line_->selectedText(), kLongName.right(1));
  EXPECT_EQ(line_->cursorPosition(), kLength - 1);
}

// As after a message about what was typed.
TEST_F(FieldBeginningTest, WhoIsSentBackToAFieldGoesOnWhereHeWas) {
  line_->setFocus();
  QTest::keyClicks(line_, kLongName);
  QTest::keyClick(line_, Qt::Key_Left);
  button_->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(line_->cursorPosition(), 0);
  line_->setFocus();
  EXPECT_EQ(line_->cursorPosition(), kLength - 1);
}

TEST_F(FieldBeginningTest, AClickIntoAFieldThatWasLeftMeansTheLetterThatIsShownThere) {
  line_->setFocus();
  QTest::keyClicks(line_, kLongName);
  QTest::keyClick(line_, Qt::Key_Tab);
  QTest::mouseClick(line_, Qt::LeftButton, {}, {line_->width() / 2, line_->height() / 2});
  EXPECT_TRUE(line_->hasFocus());
  EXPECT_LT(line_->cursorPosition(), kLength / 2);
}

TEST_F(FieldBeginningTest, TabStillSelectsTheWholeField) {
  line_->setText(kLongName);
  button_->setFocus();
  QTest::keyClick(button_, Qt::Key_Tab);
  ASSERT_TRUE(line_->hasFocus());
  EXPECT_EQ(line_->selectedText(), kLongName);
  QTest::keyClick(line_, Qt::Key_Tab);
  EXPECT_TRUE(ShowsBeginning(*line_));
  EXPECT_FALSE(line_->hasSelectedText());
}

// A field loses the focus while it is destroyed, when it is no field any more: AddressSanitizer and
// its companion would see it touched.
TEST_F(FieldBeginningTest, AFieldWithTheFocusCanBeDestroyed) {
  for (QWidget* field : {static_cast<QWidget*>(line_), static_cast<QWidget*>(names_)}) {
    field->setFocus();
    ASSERT_TRUE(field->hasFocus());
    delete field;
    EXPECT_NE(form_.focusWidget(), field);
  }
}

}  // namespace
}  // namespace brovanta
