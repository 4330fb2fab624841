// The program that is closed while a dialog is open.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "platform/file.h"
#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

class MainCommandsClosingTest : public MainScreenTest {};

TEST_F(MainCommandsClosingTest, ClosingTheProgramWhileADialogIsOpenChangesNothing) {
  const std::string typed = "Typed but not saved";
  for (const int command : {kToolAdd, kToolEdit, kToolDelete, kToolPurchase, kToolFind}) {
    if (command == kToolAdd) AddProduct("Milk", kToday);
    Open();
    Select("Milk");
    InNextDialog([&typed](QWidget& dialog) {
      if (auto* field = dialog.findChild<QLineEdit*>()) {
        QTest::keyClicks(field, QString::fromStdString(typed));
      }
      QApplication::closeAllWindows();  // what the end of the desktop does
    });
    Tool(command);
    EXPECT_FALSE(screen().isVisible()) << command;
    EXPECT_EQ(screen().database(), nullptr) << command;
    EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk")) << command;
    EXPECT_FALSE(platform::FileExists(folder_.File("purchase.dat"))) << command;
  }
}

TEST_F(MainCommandsClosingTest, ClosingTheProgramUnderAMessageOfADialogEndsAllThree) {
  Open();
  InNextDialog([this](QWidget& dialog) {
    InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
    Click(dialog, "okButton");  // refused: there is no name
  });
  Tool(kToolAdd);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(screen().database(), nullptr);
}

TEST_F(MainCommandsClosingTest, ClosingTheMainWindowEndsWhatIsOpenOverIt) {
  const std::string typed = "Typed but not saved";
  for (const int command : {kToolAdd, kToolEdit, kToolDelete, kToolPurchase, kToolFind}) {
    if (command == kToolAdd) AddProduct("Milk", kToday);
    Open();
    Select("Milk");
    InNextDialog([this, &typed](QWidget& dialog) {
      if (auto* field = dialog.findChild<QLineEdit*>()) {
        QTest::keyClicks(field, QString::fromStdString(typed));
      }
      screen().close();
      EXPECT_FALSE(dialog.isVisible());
    });
    Tool(command);
    EXPECT_FALSE(screen().isVisible()) << command;
    EXPECT_EQ(screen().database(), nullptr) << command;
    EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk")) << command;
  }
}

TEST_F(MainCommandsClosingTest, ClosingTheMainWindowUnderAMessageOfADialogEndsAllThree) {
  Open();
  InNextDialog([this](QWidget& dialog) {
    InNextDialog([this](QWidget&) { screen().close(); });
    Click(dialog, "okButton");  // refused: there is no name
    EXPECT_FALSE(dialog.isVisible());
  });
  Tool(kToolAdd);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

}  // namespace
}  // namespace brovanta::test
