#include "ui/shell/options_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <clocale>
#include <filesystem>

#include "tests/support/comma_locale.h"
#include "tests/support/form_check.h"
#include "tests/support/german.h"
#include "tests/support/message_answers.h"
#include "tests/support/temp_folder.h"
#include "ui/base/input_panel.h"

namespace brovanta {
namespace {

using test::Control;
using test::MessageAnswers;

const QString kTaxMessage = QStringLiteral("The tax must be a valid number.");
const QString kSaveMessage =
    QStringLiteral("There was an error while saving the Brovanta options to the registry.");

QList<bool> panel_calls;

void RecordPanel(bool show) { panel_calls.append(show); }

class OptionsDialogTest : public testing::Test {
 protected:
  OptionsDialogTest() : store_(folder_.File("settings/registry.reg")) {}

  QLineEdit* Tax() { return qobject_cast<QLineEdit*>(Control(dialog_, 1003)); }
  QComboBox* Country() { return qobject_cast<QComboBox*>(Control(dialog_, 1018)); }
  QLineEdit* Zip() { return qobject_cast<QLineEdit*>(Control(dialog_, 1002)); }

  void Press(int button) { QTest::mouseClick(Control(dialog_, button), Qt::LeftButton); }

  static void Replace(QLineEdit* edit, const QString& text) {
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    test::TypeText(edit, text);
  }

  static void Paste(QLineEdit* edit, const QString& text) {
    Replace(edit, {});
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
  }

  /// Runs the dialog; the action plays the person.
  template <typename Action>
  int RunDialog(Action action) {
    OptionsDialog dialog(options_, nullptr);
    dialog_ = &dialog;
    QTimer::singleShot(0, &dialog, [&dialog, action] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
      action();
    });
    const int result = dialog.exec();
    dialog_ = nullptr;
    return result;
  }

  int EnterTax(const QString& text) {
    return RunDialog([this, text] {
      Replace(Tax(), text);
      Press(1);
      if (dialog_->isVisible()) Press(2);
    });
  }

  /// What a next start of the program would load.
  AppOptions Stored() { return {store_, AppOptions::kKeyPath}; }

  /// From here on nothing can be saved: a file stands where the folder would be.
  void BreakStore() {
    std::filesystem::remove_all(folder_.File("settings"));
    folder_.WriteText("settings", "");
  }

  test::TempFolder folder_;
  platform::RegistryStore store_;
  AppOptions options_{store_, AppOptions::kKeyPath};
  OptionsDialog* dialog_ = nullptr;
};

TEST_F(OptionsDialogTest, FirstStartShowsTheDefaults) {
  RunDialog([this] {
    EXPECT_EQ(Tax()->text(), QStringLiteral("0.00"));
    EXPECT_EQ(Country()->currentText(), QStringLiteral("United States"));
    EXPECT_EQ(Zip()->text(), QString());
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, EveryControlHasItsNumberAndText) {
  RunDialog([this] {
    const std::pair<int, const char*> labels[] = {
        {1072, "Sales Tax"},
        {1075, "Brovanta can automatically add the sales tax to your purchases."},
        {1076, "Tax (%):"},
        {1073, "Location"},
        {1074, "Brovanta can download store coupons based on your location."},
        {1077, "Country:"},
        {1062, "Zip Code:"}};
    for (const auto& [number, text] : labels) {
      const auto* label = qobject_cast<QLabel*>(Control(dialog_, number));
      ASSERT_NE(label, nullptr) << number;
      EXPECT_EQ(label->text(), QLatin1String(text));
    }
    EXPECT_EQ(qobject_cast<QPushButton*>(Control(dialog_, 1))->text(), QStringLiteral("OK"));
    EXPECT_EQ(qobject_cast<QPushButton*>(Control(dialog_, 2))->text(), QStringLiteral("Cancel"));
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, SectionTitlesAreBoldAndFourteenPixelsHigh) {
  RunDialog([this] {
    for (const int title : {1072, 1073}) {
      EXPECT_EQ(Control(dialog_, title)->font().weight(), 700);
      EXPECT_GE(QFontInfo(Control(dialog_, title)->font()).pixelSize(), 14);
    }
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, OffersTwentyTwoCountriesInOrder) {
  RunDialog([this] {
    ASSERT_EQ(Country()->count(), 22);
    EXPECT_EQ(Country()->itemText(0), QString());
    EXPECT_EQ(Country()->itemText(1), QStringLiteral("Australia"));
    EXPECT_EQ(Country()->itemText(20), QStringLiteral("United Kingdom"));
    EXPECT_EQ(Country()->itemText(21), QStringLiteral("United States"));
    EXPECT_GE(Country()->findText(QStringLiteral("Luxembourg")), 0);
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, PastedTextsAreOfOneLine) {
  RunDialog([this] {
    Paste(Tax(), QStringLiteral("\t7.5\n"));
    Paste(Country()->lineEdit(), QStringLiteral("New\nZealand"));
    Paste(Zip(), QStringLiteral("90\t210") + QChar(0) + QString(100000, u'9'));
    Press(1);
  });
  EXPECT_EQ(Stored().tax(), 7.5);
  EXPECT_EQ(Stored().country(), "New Zealand");
  EXPECT_EQ(Stored().zip_code(), "90 210");
}

TEST_F(OptionsDialogTest, ACommaLocaleChangesNoNumber) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(EnterTax(QStringLiteral("8.25")), 0);
  EXPECT_EQ(Stored().tax(), 8.25);
  RunDialog([this] {
    EXPECT_EQ(Tax()->text(), QStringLiteral("8.25"));
    dialog_->reject();
  });
  EXPECT_EQ(EnterTax(QStringLiteral("7,5")), 0);
  EXPECT_EQ(Stored().tax(), 7.0) << "a comma ends the number";
}

TEST_F(OptionsDialogTest, ATaxOfSevenAndAHalfIsStoredAndShownWithTwoDecimals) {
  EXPECT_EQ(EnterTax(QStringLiteral("7.5")), 0);
  EXPECT_EQ(options_.tax(), 7.5);
  EXPECT_EQ(Stored().tax(), 7.5);
  RunDialog([this] {
    EXPECT_EQ(Tax()->text(), QStringLiteral("7.50"));
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, LettersAreStoredAsZero) {
  options_.set_tax(5.0);
  EXPECT_EQ(EnterTax(QStringLiteral("abc")), 0);
  EXPECT_EQ(Stored().tax(), 0.0);
}

TEST_F(OptionsDialogTest, NotANumberAndInfinityAreStoredAsZero) {
  for (const char* const text : {"nan", "inf", "infinity", "0x10", "1e999"}) {
    options_.set_tax(5.0);
    EXPECT_EQ(EnterTax(QLatin1String(text)), 0);
    EXPECT_EQ(options_.tax(), 0.0) << text;
  }
}

TEST_F(OptionsDialogTest, ANegativeTaxIsRefusedAndChangesNothing) {
  options_.set_tax(5.0);
  MessageAnswers answers({QMessageBox::Ok});
  EXPECT_EQ(EnterTax(QStringLiteral("-1")), ModalDialog::kCancelled);
  EXPECT_EQ(answers.texts(), QStringList{kTaxMessage});
  EXPECT_EQ(options_.tax(), 5.0);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("settings")));
}

TEST_F(OptionsDialogTest, TheRefusedTaxIsKeptInTheFieldForCorrection) {
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunDialog([this] {
    Replace(Tax(), QStringLiteral("-0.5"));
    Press(1);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(Tax()->text(), QStringLiteral("-0.5"));
    Replace(Tax(), QStringLiteral("0.5"));
    Press(1);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(options_.tax(), 0.5);
  EXPECT_EQ(answers.texts().size(), 1);
}

TEST_F(OptionsDialogTest, MinusZeroIsNoNegativeNumber) {
  EXPECT_EQ(EnterTax(QStringLiteral("-0")), 0);
  RunDialog([this] {
    EXPECT_EQ(Tax()->text(), QStringLiteral("0.00"));
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, OnlyTheFirstTwentyCharactersOfTheTaxCount) {
  EXPECT_EQ(EnterTax(QStringLiteral("000000000000000000123")), 0);
  EXPECT_EQ(options_.tax(), 12.0);
}

TEST_F(OptionsDialogTest, CountryAndZipCodeAreStoredAsTyped) {
  const int result = RunDialog([this] {
    Replace(Country()->lineEdit(), QStringLiteral("\u00D6sterreich"));
    Replace(Zip(), QStringLiteral("A-1010"));
    Press(1);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Stored().country(), "\xC3\x96sterreich");
  EXPECT_EQ(Stored().zip_code(), "A-1010");
}

TEST_F(OptionsDialogTest, ATypedBeginningIsNotCompleted) {
  RunDialog([this] {
    Replace(Country()->lineEdit(), QStringLiteral("Ger"));
    Press(1);
  });
  EXPECT_EQ(Stored().country(), "Ger");
  RunDialog([this] {
    EXPECT_EQ(Country()->count(), 22);
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, ACountryIsChosenFromTheListByKeys) {
  RunDialog([this] {
    Replace(Country()->lineEdit(), QString());
    QTest::keyClick(Country(), Qt::Key_Down);
    QTest::keyClick(Country(), Qt::Key_Down);
    Press(1);
  });
  EXPECT_TRUE(Stored().country() == "Australia" || Stored().country() == "Austria")
      << Stored().country();
}

TEST_F(OptionsDialogTest, AnEmptyCountryIsStoredAsAnEmptyText) {
  RunDialog([this] {
    Replace(Country()->lineEdit(), QString());
    Press(1);
  });
  EXPECT_EQ(Stored().country(), "");
}

TEST_F(OptionsDialogTest, TextsEndAtTheLengthThatCanBeReadBack) {
  RunDialog([this] {
    Replace(Country()->lineEdit(), QString(60, QLatin1Char('c')));
    Replace(Zip(), QString(60, QLatin1Char('9')));
    Press(1);
  });
  EXPECT_EQ(Stored().country(), std::string(39, 'c'));
  EXPECT_EQ(Stored().zip_code(), std::string(39, '9'));
}

TEST_F(OptionsDialogTest, AFailedSaveKeepsTheDialogOpenAndTheNewValuesForThisRun) {
  BreakStore();
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunDialog([this] {
    Replace(Tax(), QStringLiteral("19"));
    Replace(Zip(), QStringLiteral("10115"));
    Press(1);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(Zip()->text(), QStringLiteral("10115"));
    Press(2);
  });
  EXPECT_EQ(result, ModalDialog::kCancelled);
  EXPECT_EQ(answers.texts(), QStringList{kSaveMessage});
  EXPECT_EQ(options_.tax(), 19.0);
  EXPECT_EQ(options_.zip_code(), "10115");
}

TEST_F(OptionsDialogTest, CancelAndEscapeChangeNothing) {
  const int cancelled = RunDialog([this] {
    Replace(Tax(), QStringLiteral("3"));
    Press(2);
  });
  const int escaped = RunDialog([this] {
    Replace(Zip(), QStringLiteral("3"));
    QTest::keyClick(Zip(), Qt::Key_Escape);
  });
  EXPECT_NE(cancelled, 0);
  EXPECT_NE(escaped, 0);
  EXPECT_EQ(options_.tax(), 0.0);
  EXPECT_EQ(options_.zip_code(), "");
  EXPECT_FALSE(std::filesystem::exists(folder_.File("settings")));
}

TEST_F(OptionsDialogTest, EnterInAFieldIsOk) {
  const int result = RunDialog([this] {
    Replace(Tax(), QStringLiteral("4"));
    QTest::keyClick(Tax(), Qt::Key_Return);
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(options_.tax(), 4.0);
}

TEST_F(OptionsDialogTest, EveryFieldShowsTheInputPanel) {
  const InputPanelHandler before = SetInputPanelHandler(&RecordPanel);
  RunDialog([this] {
    Control(dialog_, 1)->setFocus();
    panel_calls.clear();
    for (QWidget* field : {static_cast<QWidget*>(Tax()), static_cast<QWidget*>(Country()),
                           static_cast<QWidget*>(Zip())}) {
      field->setFocus();
    }
    dialog_->reject();
  });
  SetInputPanelHandler(before);
  EXPECT_EQ(panel_calls, (QList<bool>{true, true, true}));
}

TEST_F(OptionsDialogTest, TabFollowsTheEye) {
  RunDialog([this] {
    EXPECT_EQ(test::TabOrder(dialog_), "taxEdit countryBox zipCodeEdit okButton cancelButton");
    dialog_->reject();
  });
}

TEST_F(OptionsDialogTest, FitsEveryScreen) {
  for (const QSize& size : test::ScreenSizes()) {
    RunDialog([this, size] {
      dialog_->resize(size);
      EXPECT_EQ(test::Clipped(dialog_), "");
      test::SavePicture(dialog_, QStringLiteral("options"));
      dialog_->reject();
    });
  }
}

TEST_F(OptionsDialogTest, FitsWithAFontTwiceTheSize) {
  const QFont before = QApplication::font();
  QFont twice = before;
  twice.setPixelSize(2 * QFontInfo(before).pixelSize());
  QApplication::setFont(twice);
  RunDialog([this] {
    EXPECT_EQ(test::Clipped(dialog_), "");
    test::SavePicture(dialog_, QStringLiteral("options_twice"));
    dialog_->reject();
  });
  QApplication::setFont(before);
}

TEST_F(OptionsDialogTest, TheSettingsKeepTheEnglishCountryWhateverTheLanguage) {
  const test::German german;
  RunDialog([this] {
    EXPECT_EQ(Country()->currentText(), QStringLiteral("Vereinigte Staaten"));
    EXPECT_EQ(Country()->count(), 22);
    EXPECT_EQ(Country()->itemText(0), QString());
    EXPECT_EQ(Country()->itemText(1), QStringLiteral("Australien"));
    EXPECT_GT(Country()->findText(QStringLiteral("Spanien")),
              Country()->findText(QStringLiteral("\u00D6sterreich")));
    Replace(Country()->lineEdit(), QStringLiteral("Deutschland"));
    Press(1);
  });
  EXPECT_EQ(options_.country(), "Germany");
  RunDialog([this] {
    EXPECT_EQ(Country()->currentText(), QStringLiteral("Deutschland"));
    Replace(Country()->lineEdit(), QStringLiteral("Utopia"));
    Press(1);
  });
  EXPECT_EQ(options_.country(), "Utopia");
}

}  // namespace
}  // namespace brovanta
