#include "ui/product/find_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "tests/support/form_check.h"
#include "ui/base/input_panel.h"

namespace brovanta {
namespace {

QList<bool> panel_calls;

void RecordPanel(bool show) { panel_calls.append(show); }

class FindDialogTest : public testing::Test {
 protected:
  FindDialogTest() : before_(SetInputPanelHandler(&RecordPanel)) { panel_calls.clear(); }
  ~FindDialogTest() override { SetInputPanelHandler(before_); }

  static QComboBox* Box(FindTextDialog& dialog) {
    return dialog.findChild<QComboBox*>(QStringLiteral("findTextBox"));
  }
  static void Press(FindTextDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
  }
  static void Type(FindTextDialog& dialog, const QString& text) {
    Box(dialog)->lineEdit()->selectAll();
    QTest::keyClick(Box(dialog), Qt::Key_Delete);
    test::TypeText(Box(dialog), text);
  }
  template <typename Action>
  static int RunDialog(FindTextDialog& dialog, Action action) {
    QTimer::singleShot(0, &dialog, action);
    return dialog.exec();
  }
  static int Find(FindTextDialog& dialog, const QString& text) {
    return RunDialog(dialog, [&dialog, text] {
      Type(dialog, text);
      Press(dialog, "findButton");
    });
  }

 private:
  InputPanelHandler before_;
};

TEST_F(FindDialogTest, OpensWithTheCurrentTextAndTheFocusInTheField) {
  FindTextDialog dialog(nullptr, "Caf\xE9");
  const int result = RunDialog(dialog, [&dialog] {
    EXPECT_EQ(Box(dialog)->currentText(), QStringLiteral("Caf\u00E9"));
    EXPECT_EQ(dialog.focusWidget(), Box(dialog));
    dialog.reject();
  });
  EXPECT_EQ(result, -1);
}

TEST_F(FindDialogTest, NoCurrentTextGivesAnEmptyField) {
  FindTextDialog dialog(nullptr, std::nullopt);
  EXPECT_EQ(Box(dialog)->currentText(), QString());
  EXPECT_EQ(dialog.find_text(), std::nullopt);
}

TEST_F(FindDialogTest, FindEndsWithZeroAndHandsTheTextBackAsStoredText) {
  FindTextDialog dialog(nullptr, std::nullopt);
  EXPECT_EQ(Find(dialog, QStringLiteral("M\u00FCsli")), 0);
  EXPECT_EQ(dialog.find_text(), "M\xFCsli");
}

TEST_F(FindDialogTest, EnterIsFind) {
  FindTextDialog dialog(nullptr, std::nullopt);
  const int result = RunDialog(dialog, [&dialog] {
    Type(dialog, QStringLiteral("milk"));
    QTest::keyClick(Box(dialog), Qt::Key_Return);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(dialog.find_text(), "milk");
}

TEST_F(FindDialogTest, ClearEndsWithZeroAndWithoutText) {
  FindTextDialog dialog(nullptr, "milk");
  EXPECT_EQ(RunDialog(dialog, [&dialog] { Press(dialog, "clearButton"); }), 0);
  EXPECT_EQ(dialog.find_text(), std::nullopt);
}

TEST_F(FindDialogTest, ClearOnAnEmptyTextStillEndsWithZero) {
  FindTextDialog dialog(nullptr, std::nullopt);
  EXPECT_EQ(RunDialog(dialog, [&dialog] { Press(dialog, "clearButton"); }), 0);
  EXPECT_EQ(dialog.find_text(), std::nullopt);
}

TEST_F(FindDialogTest, FindWithAnEmptyFieldEndsWithZeroAndWithoutText) {
  FindTextDialog dialog(nullptr, "milk");
  EXPECT_EQ(Find(dialog, QString()), 0);
  EXPECT_EQ(dialog.find_text(), std::nullopt);
}

TEST_F(FindDialogTest, ATextOfOnlyBlanksIsKeptAsItIs) {
  FindTextDialog dialog(nullptr, std::nullopt);
  EXPECT_EQ(Find(dialog, QStringLiteral("   ")), 0);
  EXPECT_EQ(dialog.find_text(), "   ");
}

TEST_F(FindDialogTest, CancelAfterEditingLeavesTheTextInForce) {
  FindTextDialog dialog(nullptr, "milk");
  const int result = RunDialog(dialog, [&dialog] {
    Type(dialog, QStringLiteral("bread"));
    Press(dialog, "cancelButton");
  });
  EXPECT_EQ(result, -1);
  EXPECT_EQ(dialog.find_text(), "milk");
}

TEST_F(FindDialogTest, EscapeAndTheCloseBoxAreCancel) {
  FindTextDialog escaped(nullptr, "milk");
  EXPECT_EQ(RunDialog(escaped, [&escaped] { QTest::keyClick(Box(escaped), Qt::Key_Escape); }), -1);
  FindTextDialog closed(nullptr, "milk");
  EXPECT_EQ(RunDialog(closed, [&closed] { closed.close(); }), -1);
}

TEST_F(FindDialogTest, ThePanelIsShownInTheFieldAndHiddenByFindAndClear) {
  FindTextDialog dialog(nullptr, "milk");
  RunDialog(dialog, [&dialog] {
    EXPECT_EQ(panel_calls, QList<bool>{true});
    Press(dialog, "findButton");
  });
  EXPECT_FALSE(panel_calls.last());
  FindTextDialog again(nullptr, "milk");
  RunDialog(again, [&again] { Press(again, "clearButton"); });
  EXPECT_FALSE(panel_calls.last());
}

TEST_F(FindDialogTest, ATypedTextIsNotCompletedToAnEarlierOne) {
  FindTextDialog first(nullptr, std::nullopt);
  Find(first, QStringLiteral("marmalade"));
  FindTextDialog second(nullptr, std::nullopt);
  EXPECT_EQ(Find(second, QStringLiteral("mar")), 0);
  EXPECT_EQ(second.find_text(), "mar");
}

TEST_F(FindDialogTest, EarlierTextsAreOfferedTheLatestFirstEachOnce) {
  for (int i = 0; i < 12; ++i) {
    FindTextDialog dialog(nullptr, std::nullopt);
    Find(dialog, QStringLiteral("text %1").arg(i));
  }
  FindTextDialog repeated(nullptr, std::nullopt);
  Find(repeated, QStringLiteral("text 9"));
  FindTextDialog dialog(nullptr, std::nullopt);
  ASSERT_EQ(Box(dialog)->count(), 10);
  EXPECT_EQ(Box(dialog)->itemText(0), QStringLiteral("text 9"));
  EXPECT_EQ(Box(dialog)->itemText(1), QStringLiteral("text 11"));
  EXPECT_EQ(Box(dialog)->itemText(9), QStringLiteral("text 2"));
  EXPECT_EQ(Box(dialog)->currentText(), QString());
}

TEST_F(FindDialogTest, TabGoesFromTheFieldOverTheButtons) {
  FindTextDialog dialog(nullptr, std::nullopt);
  dialog.show();
  EXPECT_EQ(test::TabOrder(&dialog), "findTextBox findButton clearButton cancelButton");
}

TEST_F(FindDialogTest, FitsEveryScreen) {
  for (const QSize& size : test::ScreenSizes()) {
    FindTextDialog dialog(nullptr, "whole milk");
    dialog.resize(size);
    dialog.show();
    EXPECT_EQ(test::Clipped(&dialog), "");
    test::SavePicture(&dialog, QStringLiteral("find"));
  }
}

TEST_F(FindDialogTest, FitsWithAFontTwiceTheSize) {
  const QFont before = QApplication::font();
  QFont twice = before;
  twice.setPixelSize(2 * QFontInfo(before).pixelSize());
  QApplication::setFont(twice);
  {
    FindTextDialog dialog(nullptr, "whole milk");
    dialog.resize(361, 640);
    dialog.show();
    EXPECT_EQ(test::Clipped(&dialog), "");
    test::SavePicture(&dialog, QStringLiteral("find_twice"));
  }
  QApplication::setFont(before);
}

TEST_F(FindDialogTest, ShowsAnIconAndItsLabel) {
  FindTextDialog dialog(nullptr, std::nullopt);
  EXPECT_FALSE(dialog.findChild<QLabel*>(QStringLiteral("iconLabel"))->pixmap().isNull());
  EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("findTextLabel"))->text(),
            QStringLiteral("Find text:"));
}

TEST_F(FindDialogTest, APastedTextIsOfOneLine) {
  const auto paste = [](const QString& text) {
    FindTextDialog dialog(nullptr, std::nullopt);
    EXPECT_EQ(RunDialog(dialog,
                        [&dialog, text] {
                          QGuiApplication::clipboard()->setText(text);
                          QTest::keyClick(Box(dialog), Qt::Key_V, Qt::ControlModifier);
                          Press(dialog, "findButton");
                        }),
              0);
    return dialog.find_text();
  };
  EXPECT_EQ(paste(QStringLiteral("whole\tmilk\n")), "whole milk ");
  EXPECT_EQ(paste(QString(QChar(0)) + QStringLiteral("zz")), std::nullopt);
  EXPECT_EQ(paste(QString(5000, QLatin1Char('m'))), std::string(5000, 'm'));
}

}  // namespace
}  // namespace brovanta
