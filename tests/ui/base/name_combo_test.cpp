#include "ui/base/name_combo.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

#include "tests/support/form_check.h"

namespace brovanta {
namespace {

ListItem Item(int id, std::string_view name) {
  ListItem item;
  item.Id = id;
  item.Name.Assign(name);
  return item;
}

class NameComboTest : public testing::Test {
 protected:
  NameComboTest() {
    names_.Insert(Item(5001, "Aldi"));
    names_.Insert(Item(12, "M\xFCller"));  // Windows-1252
    names_.Insert(Item(7, "Corner Shop"));
    combo_.Fill(names_);
    combo_.show();
  }

  void Type(const QString& text) {
    combo_.lineEdit()->selectAll();
    QTest::keyClick(combo_.lineEdit(), Qt::Key_Delete);
    test::TypeText(combo_.lineEdit(), text);
  }

  NameList names_;
  NameCombo combo_;
};

TEST_F(NameComboTest, StartsWithAnEmptyItemAndFollowsTheList) {
  ASSERT_EQ(combo_.count(), 4);
  EXPECT_EQ(combo_.itemText(0), QString());
  EXPECT_EQ(combo_.itemData(0).toInt(), 0);
  EXPECT_EQ(combo_.itemText(1), QStringLiteral("Corner Shop"));
  EXPECT_EQ(combo_.itemData(1).toInt(), 7);
  EXPECT_EQ(combo_.itemText(2), QStringLiteral("Müller"));
  EXPECT_EQ(combo_.itemText(3), QStringLiteral("Aldi"));
  EXPECT_EQ(combo_.currentText(), QString());
}

TEST_F(NameComboTest, CanSortTheNamesWithoutRegardToLetterCase) {
  names_.Insert(Item(3, "bakery"));
  combo_.FillSorted(names_);
  QStringList texts;
  for (int i = 0; i < combo_.count(); ++i) texts.append(combo_.itemText(i));
  EXPECT_EQ(texts.join(QLatin1Char('|')).toStdString(), "|Aldi|bakery|Corner Shop|M\u00FCller");
  EXPECT_EQ(combo_.itemData(0).toInt(), 0);
  EXPECT_EQ(combo_.itemData(2).toInt(), 3);
  EXPECT_EQ(combo_.currentText(), QString());
}

TEST_F(NameComboTest, AnEmptyTextIsNoReference) {
  EXPECT_FALSE(combo_.Reference().has_value());
  Type(QStringLiteral("x"));
  Type(QString());
  EXPECT_FALSE(combo_.Reference().has_value());
}

TEST_F(NameComboTest, OfTwoEntriesWithOneNameTheSelectedOneCounts) {
  names_.Insert(Item(5002, "Aldi"));
  combo_.Fill(names_);
  combo_.SelectId(5002);
  ASSERT_TRUE(combo_.Reference().has_value());
  EXPECT_EQ(combo_.Reference()->Id, 5002);
}

TEST_F(NameComboTest, AKnownNameInAnotherLetterCasePicksItsId) {
  Type(QStringLiteral("MÜLLER"));
  ASSERT_TRUE(combo_.Reference().has_value());
  EXPECT_EQ(combo_.Reference()->Id, 12);
}

TEST_F(NameComboTest, TheBeginningOfAKnownNameIsANewName) {
  Type(QStringLiteral("Al"));
  EXPECT_EQ(combo_.currentText(), QStringLiteral("Al"));
  ASSERT_TRUE(combo_.Reference().has_value());
  EXPECT_EQ(combo_.Reference()->Id, 0);
  EXPECT_EQ(combo_.Reference()->Name, "Al");
}

TEST_F(NameComboTest, EnterInsertsNothing) {
  Type(QStringLiteral("New place"));
  QTest::keyClick(combo_.lineEdit(), Qt::Key_Return);
  EXPECT_EQ(combo_.count(), 4);
}

TEST_F(NameComboTest, TypingAfterPickingForgetsThePickedItem) {
  combo_.SelectId(7);
  EXPECT_EQ(combo_.Reference()->Id, 7);
  Type(QStringLiteral("Corner Shop 2"));
  EXPECT_EQ(combo_.Reference()->Id, 0);
}

TEST_F(NameComboTest, UnknownIdsAndZeroSelectNothing) {
  combo_.SelectId(0);
  combo_.SelectId(999);
  EXPECT_EQ(combo_.currentIndex(), 0);
}

TEST_F(NameComboTest, AnUnknownIdStaysTheReferenceUntilTheUserDoesSomething) {
  combo_.SelectId(999);
  EXPECT_EQ(combo_.currentText(), QString());
  ASSERT_TRUE(combo_.Reference().has_value());
  EXPECT_EQ(combo_.Reference()->Id, 999);
  Type(QStringLiteral("x"));
  EXPECT_EQ(combo_.Reference()->Name, "x");
  QTest::keyClick(combo_.lineEdit(), Qt::Key_Backspace);
  EXPECT_FALSE(combo_.Reference().has_value()) << "emptied by hand";

  combo_.SelectId(999);
  QTest::keyClick(&combo_, Qt::Key_Down);
  QTest::keyClick(&combo_, Qt::Key_Up);
  EXPECT_EQ(combo_.currentIndex(), 0);
  EXPECT_FALSE(combo_.Reference().has_value()) << "none was chosen";

  combo_.SelectId(999);
  combo_.SelectId(7);
  EXPECT_EQ(combo_.Reference()->Id, 7);
  combo_.SelectId(999);
  combo_.SelectId(0);
  EXPECT_EQ(combo_.Reference()->Id, 7) << "0 selects nothing";
}

TEST_F(NameComboTest, APastedNameIsOfOneLine) {
  const auto paste = [this](const QString& text) {
    combo_.lineEdit()->selectAll();
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(combo_.lineEdit(), Qt::Key_V, Qt::ControlModifier);
  };
  paste(QStringLiteral("x\ty\nz"));
  EXPECT_EQ(combo_.Reference()->Name, "x y z");
  paste(QString(QChar(0)) + QStringLiteral("zz"));
  EXPECT_FALSE(combo_.Reference().has_value());
  paste(QStringLiteral("Corner\tShop"));
  EXPECT_EQ(combo_.Reference()->Id, 7);
  paste(QString(50, QLatin1Char('s')) + QChar(0) + QStringLiteral("behind"));
  EXPECT_FALSE(combo_.IsTooLong());
}

TEST_F(NameComboTest, FiftyCharactersAreAccepted) {
  Type(QString(50, QLatin1Char('s')));
  EXPECT_FALSE(combo_.IsTooLong());
  Type(QString(51, QLatin1Char('s')));
  EXPECT_TRUE(combo_.IsTooLong());
}

// Of a 50-character name 49 are stored; typed again it is the same name.
TEST_F(NameComboTest, ANameCutWhenItWasStoredIsFoundAgain) {
  names_.Insert(Item(5002, std::string(50, 's')));
  combo_.Fill(names_);
  EXPECT_EQ(combo_.itemText(combo_.count() - 1), QString(49, QLatin1Char('s')));
  Type(QString(50, QLatin1Char('S')));
  EXPECT_EQ(combo_.Reference()->Id, 5002);
}

TEST_F(NameComboTest, ANameThatWasGivenAnIdIsFoundAtTheNextTry) {
  Type(QStringLiteral("Kiosk"));
  combo_.Remember(NameRef{5003, "Kiosk"});
  EXPECT_EQ(combo_.currentText(), QStringLiteral("Kiosk"));
  EXPECT_EQ(combo_.Reference()->Id, 5003);
  combo_.Remember(NameRef{5003, "Kiosk"});
  EXPECT_EQ(combo_.count(), 5);
  combo_.Remember(std::nullopt);
  combo_.Remember(NameRef{0, "x"});
  EXPECT_EQ(combo_.count(), 5);
}

TEST_F(NameComboTest, NamesThatCameMeanwhileAreFoundAndTheTypedOneStays) {
  combo_.Fill(names_);
  const int before = combo_.count();
  Type(QStringLiteral("kiosk"));
  names_.Insert(Item(5003, "Kiosk"));
  names_.Insert(Item(5004, ""));  // none that could be typed
  combo_.RememberAll(names_);
  EXPECT_EQ(combo_.count(), before + 1);
  EXPECT_EQ(combo_.currentText(), QStringLiteral("kiosk"));
  EXPECT_EQ(combo_.Reference()->Id, 5003);
  combo_.RememberAll(names_);
  EXPECT_EQ(combo_.count(), before + 1);
}

TEST_F(NameComboTest, CharactersOutsideTheCodePageBecomeQuestionMarks) {
  Type(QString::fromUtf8("茶 shop"));
  EXPECT_EQ(combo_.Reference()->Name, "? shop");
}

TEST_F(NameComboTest, TheEmptyItemIsReadAsNone) {
  EXPECT_EQ(combo_.itemData(0, Qt::AccessibleTextRole).toString(), QStringLiteral("none"));
  combo_.FillSorted(names_);
  EXPECT_EQ(combo_.itemData(0, Qt::AccessibleTextRole).toString(), QStringLiteral("none"));
  EXPECT_TRUE(combo_.itemText(0).isEmpty());
}

}  // namespace
}  // namespace brovanta
