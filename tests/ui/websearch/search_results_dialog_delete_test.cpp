// Deleting results: from the list, from the viewer, and what stops it.
#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <filesystem>

#include "tests/support/dialog_watch.h"
#include "tests/ui/websearch/results_form.h"

namespace brovanta {
namespace {

using test::RawResults;
using test::RawShownResult;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kSaveError[] = "There was an error while saving the search results to the database.";
constexpr char kDeleteError[] = "There was an error while deleting the selected search result.";
constexpr char kOpenError[] = "There was an error while opening the selected search result.";
constexpr char kQuestion[] = "Do you want to permanently delete the selected search result?";

const RawShownResult kSoap{.id = 1, .price = 2.5, .title = "Soap", .text = "Mild"};
const RawShownResult kTea{.id = 2, .price = 9, .title = "Tea", .url = "https://tea.example/"};
const RawShownResult kCup{.id = 3, .price = 12, .title = "Cup", .url = "ftp://cup.example/"};

class SearchResultsDeleteTest : public test::ResultsFormTest {
 protected:
  /// Makes the results file impossible to replace, whoever runs the test.
  void BlockWriting() const {
    const std::string path = folder_.File("WebSearch/7.dat");
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    folder_.WriteText("WebSearch/7.dat/something", "x");
  }
  /// Chooses Delete and answers its question.
  void DeleteAndAnswer(QMessageBox::StandardButton answer) {
    answers_.AnswerNext(answer);
    Tool(2796);
  }
};

TEST_F(SearchResultsDeleteTest, DeletingFromTheViewerAsksNothing) {
  Results({kSoap, kTea, kCup});
  Run([&] {
    Select(1);
    InNextDialog([&] { Press("deleteButton"); });
    Tool(2795);
    EXPECT_EQ(Rows(), "Soap 1|Cup 3");
    EXPECT_THAT(Enabled(), IsEmpty());  // no neighbour takes the selection
  });
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap), Raw(kCup)}));
}

TEST_F(SearchResultsDeleteTest, DeletingFromTheListAsks) {
  Results({kSoap, kTea, kCup});
  Run([&] {
    Select(0);
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Tea 2|Cup 3");
  });
  EXPECT_EQ(Messages(), kQuestion);
  EXPECT_EQ(Stored(), RawResults({Raw(kTea), Raw(kCup)}));
}

TEST_F(SearchResultsDeleteTest, TheQuestionHasItsIconAndItsTwoButtons) {
  Results({kSoap});
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons;
  Run([&] {
    Select(0);
    const test::DialogWatch watch([&](QWidget& window) {
      const auto* box = qobject_cast<QMessageBox*>(&window);
      ASSERT_NE(box, nullptr);
      icon = box->icon();
      buttons = box->standardButtons();
    });
    DeleteAndAnswer(QMessageBox::No);
  });
  EXPECT_EQ(icon, QMessageBox::Question);
  EXPECT_EQ(buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(Messages(), kQuestion);
}

TEST_F(SearchResultsDeleteTest, AnythingButYesDeletesNothing) {
  Results({kSoap});
  Run([&] {
    Select(0);
    DeleteAndAnswer(QMessageBox::No);
    DeleteAndAnswer(QMessageBox::NoButton);  // Escape
    EXPECT_EQ(Rows(), "Soap 1");
  });
  EXPECT_EQ(answers_.texts(), QStringList(2, QString::fromLatin1(kQuestion)));
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap)}));
}

TEST_F(SearchResultsDeleteTest, TheDeleteKeyDeletes) {
  Results({kSoap, kTea});
  Run([&] {
    QTest::keyClick(List(), Qt::Key_Down);
    answers_.AnswerNext(QMessageBox::Yes);
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_EQ(Rows(), "Tea 2");
    QTest::keyClick(List(), Qt::Key_Delete);  // nothing is selected
    EXPECT_EQ(Rows(), "Tea 2");
  });
  EXPECT_EQ(Messages(), kQuestion);
}

TEST_F(SearchResultsDeleteTest, TheLastResultLeavesAFileWithoutResults) {
  Results({kSoap});
  Run([&] {
    Select(0);
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(List()->empty_text(), QStringLiteral("No results\nSearch again with other words."));
  });
  EXPECT_EQ(Stored(), test::Hex("81 38 01 00 83 38 01 00"));
}

TEST_F(SearchResultsDeleteTest, WhatTheProgramDoesNotShowSurvivesADeletion) {
  const RawShownResult odd{.id = 40,
                           .price = 3,
                           .title = "Caf\xE9 \xC3\xA9",
                           .text = std::nullopt,
                           .url = std::nullopt,
                           .site = "",
                           .status = 0xFFFE};
  Results({kSoap, odd});
  Run([&] {
    EXPECT_EQ(List()->topLevelItem(1)->text(4), QStringLiteral("-2"));
    Select(0);
    DeleteAndAnswer(QMessageBox::Yes);
  });
  EXPECT_EQ(Stored(), RawResults({Raw(odd)}));
}

TEST_F(SearchResultsDeleteTest, TheViewersDeleteSaysWhenTheFileCannotBeWritten) {
  Results({kSoap, kTea});
  Run([&] {
    Select(0);
    InNextDialog([&] {
      BlockWriting();
      Press("deleteButton");
    });
    Tool(2795);
    EXPECT_EQ(Rows(), "Soap 1|Tea 2");
  });
  EXPECT_EQ(Messages(), kSaveError);
  EXPECT_EQ(folder_.ReadText("WebSearch/7.dat/something"), "x");
}

TEST_F(SearchResultsDeleteTest, AResultThatCouldNotBeWrittenAwayIsGoneForEveryCommand) {
  Results({kSoap, kTea});
  Run([&] {
    Select(0);
    BlockWriting();
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Soap 1|Tea 2");
    EXPECT_THAT(Enabled(), ElementsAre(2795, 2805, 2796));
    Tool(2795);
    Tool(2805);
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Soap 1|Tea 2");
  });
  EXPECT_EQ(Messages(), std::string(kQuestion) + "\n" + kSaveError + "\n" + kOpenError + "\n" +
                            kOpenError + "\n" + kQuestion + "\n" + kDeleteError);
  EXPECT_EQ(browser_.addresses(), QStringList());
}

TEST_F(SearchResultsDeleteTest, WithoutTheirFolderTheResultsCannotBeWritten) {
  Results({kSoap});
  Run([&] {
    Select(0);
    std::filesystem::remove_all(folder_.File("WebSearch"));
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Soap 1");
  });
  EXPECT_EQ(Messages(), std::string(kQuestion) + "\n" + kSaveError);
  EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(SearchResultsDeleteTest, ClosingTheProgramUnderTheQuestionDeletesNothing) {
  Results({kSoap});
  Run([&] {
    Select(0);
    QMetaObject::invokeMethod(
        dialog_, [] { QApplication::closeAllWindows(); }, Qt::QueuedConnection);
    Tool(2796);
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap)}));
}

TEST_F(SearchResultsDeleteTest, AYesOverAClosedScreenDeletesNothing) {
  Results({kSoap});
  Run([&] {
    Select(0);
    QMetaObject::invokeMethod(
        dialog_, [this] { dialog_->hide(); }, Qt::QueuedConnection);
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Soap 1");
  });
  EXPECT_EQ(Messages(), kQuestion);
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap)}));
}

TEST_F(SearchResultsDeleteTest, TheViewersDeleteOverAClosedScreenDeletesNothing) {
  Results({kSoap});
  Run([&] {
    Select(0);
    InNextDialog([&, list = dialog_] {
      list->hide();
      Press("deleteButton");
    });
    Tool(2795);
    EXPECT_EQ(Rows(), "Soap 1");
  });
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap)}));
}

}  // namespace
}  // namespace brovanta
