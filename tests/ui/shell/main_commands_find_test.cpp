// The Find command of the main screen.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainCommandsFindTest : public MainScreenTest {
 protected:
  /// Types a text into the find dialog, or leaves it, and clicks one of its buttons.
  void FindText(const char* text, const char* button_name) {
    InNextDialog([text, button_name](QWidget& dialog) {
      auto* box = dialog.findChild<QComboBox*>();
      ASSERT_NE(box, nullptr);
      if (text != nullptr) {
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), QString::fromLatin1(text));
      }
      QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromLatin1(button_name)),
                        Qt::LeftButton);
    });
    Tool(kToolFind);
  }

  std::string FilterText() { return screen().filter().find_text.value_or("(none)"); }
};

TEST_F(MainCommandsFindTest, FindNarrowsTheListAndKeepsStoreAndCategory) {
  AddProduct("Fresh milk", kToday, "Corner", "Dairy");
  AddProduct("Cheese", kToday, "Corner", "Dairy");
  AddProduct("Milk powder", kToday, "Market");
  Open();
  const std::vector<std::string> stores = MenuTexts("storeFilterButton");
  EXPECT_EQ(stores.size(), 3U);
  ChooseFilter("storeFilterButton", "Corner");
  ChooseFilter("categoryFilterButton", "Dairy");
  FindText("MILK", "findButton");
  EXPECT_EQ(FilterText(), "MILK");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Fresh milk@Corner"));
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
  EXPECT_EQ(Text("categoryFilterButton"), "Dairy");
  EXPECT_EQ(MenuTexts("storeFilterButton"), stores);  // also the one that the list no longer has
}

TEST_F(MainCommandsFindTest, FindTextIsClearedBySwitchingTabs) {
  AddProduct("Milk", kToday);
  AddProduct("Cheese", kToday);
  Open();
  FindText("cheese", "findButton");
  EXPECT_EQ(Rows().size(), 2U);
  ChooseTab(2);
  EXPECT_EQ(FilterText(), "(none)");
  ChooseTab(0);
  EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(MainCommandsFindTest, ClearTakesTheFindTextAwayAndCancelKeepsIt) {
  AddProduct("Milk", kToday);
  AddProduct("Cheese", kToday);
  Open();
  FindText("cheese", "findButton");
  FindText("milk", "cancelButton");
  EXPECT_EQ(FilterText(), "cheese");
  EXPECT_EQ(Rows().size(), 2U);
  FindText(nullptr, "clearButton");
  EXPECT_EQ(FilterText(), "(none)");
  EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(MainCommandsFindTest, FindShowsTheCurrentText) {
  AddProduct("Milk", kToday);
  Open();
  FindText("milk", "findButton");
  QString shown;
  InNextDialog([&shown](QWidget& dialog) {
    shown = dialog.findChild<QComboBox*>()->currentText();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  ToolsMenu("Search");
  EXPECT_EQ(shown.toStdString(), "milk");
  EXPECT_EQ(FilterText(), "milk");
}

TEST_F(MainCommandsFindTest, FindTextThatMatchesNothingIsNamedOnTheGround) {
  AddProduct("Milk", kToday);
  Open();
  FindText("cheese", "findButton");
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(tree().empty_text().toStdString(),
            "Nothing found for \"cheese\" on this day\nFind and Clear show everything again.");
}

TEST_F(MainCommandsFindTest, ClearOnAnEmptyTextRefillsTheList) {
  AddProduct("Milk", kToday);
  Open();
  EXPECT_EQ(Rows().size(), 2U);
  AddProduct("Cheese", kToday);  // behind the screen's back
  FindText(nullptr, "clearButton");
  EXPECT_EQ(FilterText(), "(none)");
  EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(MainCommandsFindTest, ATextOfBlanksIsTheFilterAndMatchesEverything) {
  AddProduct("Milk", kToday);
  AddProduct("Cheese", kToday);
  Open();
  FindText("  ", "findButton");
  EXPECT_EQ(FilterText(), "  ");
  EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(MainCommandsFindTest, AViewModeTheOneInUseTooClearsTheFindText) {
  AddProduct("Milk", kToday);
  AddProduct("Cheese", kToday);
  Open();
  for (const int mode : {kMonthlyView, kMonthlyView, kDailyView}) {
    FindText("cheese", "findButton");
    EXPECT_EQ(Rows().size(), 2U);
    ChooseView(mode);
    EXPECT_EQ(FilterText(), "(none)");
    EXPECT_EQ(Rows().size(), 3U);
  }
}

TEST_F(MainCommandsFindTest, ADateClearsTheFindText) {
  AddProduct("Milk", kToday);
  AddProduct("Cheese", kToday);
  Open();
  FindText("cheese", "findButton");
  QTest::mouseClick(&button("periodHeadingButton"), Qt::LeftButton);
  Press(Qt::Key_Right);
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("periodHeadingButton"), "Nov 22, 2026");
  EXPECT_EQ(FilterText(), "(none)");
  EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(MainCommandsFindTest, AChosenFilterKeepsTheFindText) {
  AddProduct("Fresh milk", kToday, "Corner", "Dairy");
  AddProduct("Cheese", kToday, "Corner", "Dairy");
  AddProduct("Milk powder", kToday);
  Open();
  FindText("milk", "findButton");
  EXPECT_EQ(Rows().size(), 3U);
  ChooseFilter("storeFilterButton", "Corner");
  EXPECT_EQ(FilterText(), "milk");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Fresh milk@Corner"));
  ChooseFilter("categoryFilterButton", "Dairy");
  EXPECT_EQ(FilterText(), "milk");
  ChooseFilter("storeFilterButton", "All Stores");
  EXPECT_EQ(FilterText(), "milk");
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Fresh milk@Corner"));
}

TEST_F(MainCommandsFindTest, FindDoesNothingOnTheWebSearchList) {
  Open();
  ChooseTab(3);
  const auto opened = WatchForDialog();
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_FALSE(*opened);
}

}  // namespace
}  // namespace brovanta::test
