#include "ui/websearch/search_dialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/support/message_answers.h"
#include "tests/ui/websearch/search_screen.h"
#include "ui/base/input_panel.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kNoFile = QStringLiteral(
    "There was an error while loading the web search agents configuration file.\n\nPlease use the "
    "Update command to download the latest web search agents configuration file.");
const QString kNoCategories = QStringLiteral(
    "There are no search categories defined in the web search agents configuration file.\n\nPlease "
    "use the Update command to download the latest web search agents configuration file.");
const QString kNoName =
    QStringLiteral("You must first enter the item name for the item that you want to search for.");
const QString kNoCategory = QStringLiteral(
    "You must first select the item category for the item that you want to search for.");

QList<bool> panel_calls;

void RecordPanel(bool show) { panel_calls.append(show); }

class SearchDialogTest : public SearchScreenTest {
 protected:
  static QComboBox& Categories(QDialog& dialog) {
    return *dialog.findChild<QComboBox*>(QStringLiteral("categoryBox"));
  }
  static QLineEdit& Name(QDialog& dialog) {
    return *dialog.findChild<QLineEdit*>(QStringLiteral("nameEdit"));
  }
  static std::vector<std::string> Offered(QDialog& dialog) {
    std::vector<std::string> texts;
    for (int i = 0; i < Categories(dialog).count(); ++i) {
      texts.push_back(Categories(dialog).itemText(i).toStdString());
    }
    return texts;
  }
  /// Picks a category from the drop-down list by its place.
  static void Choose(QDialog& dialog, int index) {
    QComboBox& box = Categories(dialog);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(&box, Qt::Key_Down);
    ASSERT_EQ(box.currentIndex(), index);
  }
  /// Opens the dialog and works in it. Its result.
  int Run(const std::function<void(SearchDialog&)>& work, QWidget* parent = nullptr) {
    SearchDialog dialog(*searches_, parent);
    const DialogWatch watch([&](QWidget&) { work(dialog); }, &dialog);  // once it is open
    return dialog.exec();
  }
  std::vector<std::string> OfferedFor(const std::vector<WebAgentType>& categories) {
    categories_ = categories;
    WriteConfiguration(folder_);
    std::vector<std::string> offered;
    Run([&](SearchDialog& dialog) {
      offered = Offered(dialog);
      dialog.close();
    });
    return offered;
  }
  /// In the progress screen, which is the next dialog: "Done" once it is enabled.
  void FinishProgress() {
    InNextDialog([this](QWidget& window) {
      auto& progress = dynamic_cast<SearchProgressDialog&>(window);
      Await([&] { return HasFinished(progress); });
      CloseNextDialog();
      ClickButton(progress, "doneButton");
    });
  }
  /// Fills the form with real events and starts the search.
  int SearchFor(const QString& name, int category_index) {
    return Run([&](SearchDialog& dialog) {
      Choose(dialog, category_index);
      TypeText(&Name(dialog), name);
      FinishProgress();
      ClickButton(dialog, "searchButton");
    });
  }
};

TEST_F(SearchDialogTest, OffersTheCategoriesOfTheConfigurationInItsOrder) {
  categories_ = {{3, "Toys"}, {1, "Groceries"}, {2, "Books & more"}};
  WriteConfiguration(folder_);
  Run([](SearchDialog& dialog) {
    EXPECT_THAT(Offered(dialog), ElementsAre("Toys", "Groceries", "Books & more"));
    EXPECT_EQ(Categories(dialog).itemData(0).toInt(), 3);
    EXPECT_EQ(Categories(dialog).itemData(2).toInt(), 2);
    EXPECT_EQ(Categories(dialog).currentIndex(), -1) << "none is taken beforehand";
    dialog.close();
  });
}

TEST_F(SearchDialogTest, SaysWhatItIsFor) {
  WriteConfiguration(folder_);
  Run([](SearchDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("promptLabel"))->text().toStdString(),
              "Please enter the category and name of the item that you want to find in the web "
              "stores.");
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("categoryLabel"))->text().toStdString(),
              "Category:");
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("nameLabel"))->text().toStdString(),
              "Name:");
    auto* search = dialog.findChild<QPushButton*>(QStringLiteral("searchButton"));
    EXPECT_EQ(search->text().toStdString(), "Search");
    EXPECT_TRUE(search->isDefault());
    EXPECT_EQ(Control(&dialog, 2)->property("text").toString().toStdString(), "Cancel");
    EXPECT_TRUE(dialog.isModal());
    dialog.close();
  });
}

TEST_F(SearchDialogTest, WithoutAConfigurationFileItStillOpensAfterTheMessage) {
  MessageAnswers answers({QMessageBox::Ok});
  QWidget main;
  main.show();
  const int result = Run(
      [&](SearchDialog& dialog) {
        EXPECT_EQ(answers.texts(), QStringList{kNoFile}) << "said before it opened";
        EXPECT_EQ(answers.captions(), QStringList{QStringLiteral("Brovanta")});
        EXPECT_EQ(Categories(dialog).count(), 0);
        ClickButton(dialog, "cancelButton");
      },
      &main);
  EXPECT_EQ(result, ModalDialog::kCancelled);
  EXPECT_EQ(answers.texts().size(), 1) << "once";
}

TEST_F(SearchDialogTest, DamagedConfigurationLeavesTheListEmptyToo) {
  WebAgent incomplete = AgentFor(1);
  incomplete.EndURL.reset();
  agents_ = {incomplete};
  WriteConfiguration(folder_);
  MessageAnswers answers({QMessageBox::Ok});
  Run([&](SearchDialog& dialog) {
    EXPECT_EQ(answers.texts(), QStringList{kNoFile});
    EXPECT_THAT(Offered(dialog), IsEmpty());
    dialog.close();
  });
}

TEST_F(SearchDialogTest, ConfigurationWithoutCategoriesIsReportedInItsOwnWords) {
  categories_.clear();
  AddShop(1);
  WriteConfiguration(folder_);
  MessageAnswers answers({QMessageBox::Ok});
  Run([&](SearchDialog& dialog) {
    EXPECT_EQ(answers.texts(), QStringList{kNoCategories});
    EXPECT_THAT(Offered(dialog), IsEmpty());
    dialog.close();
  });
}

TEST_F(SearchDialogTest, WithoutCategoriesItCanOnlyBeCancelled) {
  MessageAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
  const int result = Run([&](SearchDialog& dialog) {
    TypeText(&Name(dialog), QStringLiteral("soap"));
    ClickButton(dialog, "searchButton");
    EXPECT_EQ(answers.texts(), (QStringList{kNoFile, kNoCategory}));
    EXPECT_TRUE(dialog.isVisible());
    ClickButton(dialog, "cancelButton");
  });
  EXPECT_NE(result, 0);
}

TEST_F(SearchDialogTest, EmptyFormReportsTheNameFirst) {
  WriteConfiguration(folder_);
  MessageAnswers answers({QMessageBox::Ok});
  Run([&](SearchDialog& dialog) {
    ClickButton(dialog, "searchButton");
    EXPECT_EQ(answers.texts(), QStringList{kNoName});
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.focusWidget(), &Name(dialog));
    dialog.close();
  });
}

TEST_F(SearchDialogTest, NameWithoutACategoryReportsTheCategory) {
  WriteConfiguration(folder_);
  MessageAnswers answers({QMessageBox::Ok});
  Run([&](SearchDialog& dialog) {
    TypeText(&Name(dialog), QStringLiteral("soap"));
    Name(dialog).setFocus();
    QTest::keyClick(&Name(dialog), Qt::Key_Return);
    EXPECT_EQ(answers.texts(), QStringList{kNoCategory});
    EXPECT_EQ(dialog.focusWidget(), &Categories(dialog));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Name(dialog).text(), QStringLiteral("soap"));
    dialog.close();
  });
}

TEST_F(SearchDialogTest, SearchWithResultsEndsWithZero) {
  AddShop(1, test::Block("Soap", "/s", "1.50"));
  WriteConfiguration(folder_);
  EXPECT_EQ(SearchFor(QStringLiteral("soap"), 0), 0);
  EXPECT_THAT(Objects(), ElementsAre("/1?q=soap"));
}

TEST_F(SearchDialogTest, SearchWithoutResultsEndsWithMinusOne) {
  AddShop(1);
  WriteConfiguration(folder_);
  EXPECT_EQ(SearchFor(QStringLiteral("soap"), 0), -1);
}

TEST_F(SearchDialogTest, ChosenCategoryDecidesWhoIsAsked) {
  AddShop(1, test::Block("Soap", "/s", "1.50"));
  agents_.back().SiteType = "1";
  AddShop(2, test::Block("Soap", "/s", "1.50"));
  agents_.back().SiteType = "1,2";
  AddShop(3, test::Block("Soap", "/s", "1.50"));
  agents_.back().SiteType = "2";
  WriteConfiguration(folder_);
  EXPECT_EQ(SearchFor(QStringLiteral("soap"), 1), 0);
  EXPECT_THAT(Objects(), testing::UnorderedElementsAre("/2?q=soap", "/3?q=soap"));
}

TEST_F(SearchDialogTest, NameOfOnlyBlanksIsNotEmptyAndNotTrimmed) {
  AddShop(1, test::Block("Soap", "/s", "1.50"));
  WriteConfiguration(folder_);
  EXPECT_EQ(SearchFor(QStringLiteral("   "), 0), -1) << "no title has a word of it";
  EXPECT_THAT(Objects(), ElementsAre("/1?q=+++"));
}

TEST_F(SearchDialogTest, APastedNameIsOfOneLine) {
  AddShop(1, test::Block("Fresh soap", "/s", "1.50"));
  WriteConfiguration(folder_);
  MessageAnswers answers({QMessageBox::Ok});
  const int result = Run([&](SearchDialog& dialog) {
    const auto paste = [&dialog](const QString& text) {
      Name(dialog).setFocus();
      Name(dialog).selectAll();
      QGuiApplication::clipboard()->setText(text);
      QTest::keyClick(&Name(dialog), Qt::Key_V, Qt::ControlModifier);
    };
    Choose(dialog, 0);
    paste(QString(QChar(0)) + QStringLiteral("zz"));
    ClickButton(dialog, "searchButton");
    EXPECT_EQ(answers.texts(), QStringList{kNoName});
    paste(QStringLiteral("fresh\tsoap"));
    FinishProgress();
    ClickButton(dialog, "searchButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(Objects(), ElementsAre("/1?q=fresh+soap"));
}

TEST_F(SearchDialogTest, BlanksAroundANameGoOut) {
  AddShop(1, test::Block("Soap", "/s", "1.50"));
  WriteConfiguration(folder_);
  EXPECT_EQ(SearchFor(QStringLiteral(" soap "), 0), 0);
  EXPECT_THAT(Objects(), ElementsAre("/1?q=+soap+"));
}

TEST_F(SearchDialogTest, EnterInTheNameSearches) {
  AddShop(1, test::Block("Soap", "/s", "1.50"));
  WriteConfiguration(folder_);
  const int result = Run([&](SearchDialog& dialog) {
    Choose(dialog, 0);
    TypeText(&Name(dialog), QStringLiteral("soap"));
    FinishProgress();
    QTest::keyClick(&Name(dialog), Qt::Key_Return);
  });
  EXPECT_EQ(result, 0);
}

TEST_F(SearchDialogTest, ConfigurationIsLoadedAtEachOpening) {
  EXPECT_THAT(OfferedFor({{1, "Groceries"}, {2, "Books"}}), ElementsAre("Groceries", "Books"));
  EXPECT_THAT(OfferedFor({{4, "Gardens"}}), ElementsAre("Gardens"));
}

TEST_F(SearchDialogTest, CategoriesAreUtf8WhereTheyCanBe) {
  EXPECT_THAT(OfferedFor({{1, "Caf\xC3\xA9"}, {2, "Caf\xE9"}, {3, " "}}),
              ElementsAre("Caf\xC3\xA9", "Caf\xC3\xA9", " "));
}

TEST_F(SearchDialogTest, CategoryNamesAreOfOneLine) {
  EXPECT_THAT(OfferedFor({{1, "Food &\r\ndrink"}, {2, "Books\n"}}),
              ElementsAre("Food &  drink", "Books "));
}

TEST_F(SearchDialogTest, EscapeCloseBoxAndCancelDoNotEndWithZero) {
  WriteConfiguration(folder_);
  const std::function<void(SearchDialog&)> ways[] = {
      [](SearchDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
      [](SearchDialog& dialog) { dialog.close(); },
      [](SearchDialog& dialog) { ClickButton(dialog, "cancelButton"); }};
  for (const auto& way : ways) EXPECT_EQ(Run(way), ModalDialog::kCancelled);
}

TEST_F(SearchDialogTest, KeyboardIsShownForTheNameOnly) {
  WriteConfiguration(folder_);
  const InputPanelHandler before = SetInputPanelHandler(&RecordPanel);
  Run([](SearchDialog& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_EQ(dialog.focusWidget(), &Categories(dialog));
    panel_calls.clear();
    QTest::keyClick(&Categories(dialog), Qt::Key_Tab);
    EXPECT_EQ(panel_calls, QList<bool>{true});
    EXPECT_EQ(TabOrder(&dialog), "nameEdit searchButton cancelButton categoryBox");
    dialog.close();
  });
  SetInputPanelHandler(before);
}

TEST_F(SearchDialogTest, ProgramClosedUnderTheFirstMessageDoesNotOpenIt) {
  QWidget main;
  main.show();
  bool opened = false;
  InNextDialog([&](QWidget& box) {
    EndDialogsOf(main);
    EXPECT_FALSE(box.isVisible());
  });
  SearchDialog dialog(*searches_, &main);
  const DialogWatch watch([&](QWidget&) { opened = true; }, &dialog);
  EXPECT_EQ(dialog.exec(), ModalDialog::kCancelled);
  EXPECT_FALSE(opened);
}

TEST_F(SearchDialogTest, ProgramClosedDuringTheSearchIsNoCompletedSearch) {
  AddHeldShop(1);
  WriteConfiguration(folder_);
  QWidget main;
  main.show();
  const int result = Run(
      [&](SearchDialog& dialog) {
        Choose(dialog, 0);
        TypeText(&Name(dialog), QStringLiteral("soap"));
        InNextDialog([&](QWidget& window) {
          auto& progress = dynamic_cast<QDialog&>(window);
          Await([&] { return IsSearching(progress); });
          EndDialogsOf(main);
          searches_.reset();  // as the main window does behind it
        });
        ClickButton(dialog, "searchButton");
        EXPECT_FALSE(dialog.isVisible());
      },
      &main);
  EXPECT_EQ(result, ModalDialog::kCancelled);
}

TEST_F(SearchDialogTest, OpensSmallWithAllOfItInView) {
  WriteConfiguration(folder_);
  Run([](SearchDialog& dialog) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    auto* area = dialog.findChild<QScrollArea*>();
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << "nothing has to be scrolled for";
    EXPECT_LT(dialog.height(), 300);
    dialog.close();
  });
}

TEST_F(SearchDialogTest, LooksWell) {
  WriteConfiguration(folder_);
  Run([](SearchDialog& dialog) {
    for (const QSize& size : ScreenSizes()) {
      dialog.resize(size);
      Choose(dialog, 0);
      SavePicture(&dialog, QStringLiteral("search"));
      EXPECT_EQ(Clipped(&dialog), "") << size.width();
    }
    dialog.close();
  });
}

TEST_F(SearchDialogTest, TextOfTwiceTheSizeFits) {
  WriteConfiguration(folder_);
  Run([](SearchDialog& dialog) {
    QFont font = dialog.font();
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    dialog.setFont(font);
    for (const QSize& size : ScreenSizes()) {
      dialog.resize(size);
      SavePicture(&dialog, QStringLiteral("search_large"));
      EXPECT_EQ(Clipped(&dialog), "") << size.width();
    }
    dialog.close();
  });
}

}  // namespace
}  // namespace brovanta::test
