#include "ui/websearch/search_results_dialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "tests/support/form_check.h"
#include "tests/ui/websearch/results_form.h"
#include "ui/base/picture_bar.h"

namespace brovanta {
namespace {

using test::Bytes;
using test::RawResults;
using test::RawShownResult;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kReadError[] =
    "There was an error while reading the search results from the database.";
constexpr char kSelectToView[] = "You must first select the search result that you want to view.";
constexpr char kSelectToDelete[] =
    "You must first select the search result that you want to delete.";

const RawShownResult kSoap{.id = 1, .price = 2.5, .title = "Soap", .text = "Mild"};
const RawShownResult kTea{.id = 2, .price = 9, .title = "Tea", .url = "https://tea.example/"};
const RawShownResult kCup{.id = 3, .price = 12, .title = "Cup", .url = "ftp://cup.example/"};

class SearchResultsDialogTest : public test::ResultsFormTest {
 protected:
  /// Chooses Delete and answers its question.
  void DeleteAndAnswer(QMessageBox::StandardButton answer) {
    answers_.AnswerNext(answer);
    Tool(2796);
  }
};

TEST_F(SearchResultsDialogTest, ListsTheResultsOfTheFile) {
  Results({kSoap, kTea});
  Run([&] {
    EXPECT_EQ(Rows(), "Soap 1|Tea 2");
    EXPECT_EQ(Label("headerLabel"), "Search: soap");
    EXPECT_EQ(dialog_->windowTitle(), QStringLiteral("Search Results"));
  });
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap), Raw(kTea)}));
}

TEST_F(SearchResultsDialogTest, EqualPricesKeepTheFilesOrderAndAWrongOrderIsPutRight) {
  Results({kCup, {.id = 8, .price = 9, .title = "Pot"}, kTea, kSoap});
  Run([&] { EXPECT_EQ(Rows(), "Soap 1|Pot 8|Tea 2|Cup 3"); });
}

TEST_F(SearchResultsDialogTest, ThreeResultsGiveAnItemColumn228WideAndFourGive214) {
  Results({kSoap, kTea, kCup});
  Run([&] { EXPECT_EQ(List()->columnWidth(0), 228); });
  Results({kSoap, kTea, kCup, {.id = 4, .price = 13}});
  Run([&] {
    EXPECT_EQ(List()->columnWidth(0), 214);
    Select(3);
    DeleteAndAnswer(QMessageBox::Yes);
    EXPECT_EQ(Rows(), "Soap 1|Tea 2|Cup 3");
    EXPECT_EQ(List()->columnWidth(0), 214);  // decided when the list opened
  });
}

TEST_F(SearchResultsDialogTest, APriceOfZeroIsOneBlankInTheListAndInTheViewer) {
  Results({{.id = 1, .price = 0.0}});
  Run([&] {
    EXPECT_EQ(static_cast<ResultRow*>(List()->topLevelItem(0))->subitem(kPriceSubitem),
              QStringLiteral(" "));
    Select(0);
    InNextDialog([&] { EXPECT_EQ(Label("priceLabel"), " "); });
    Tool(2795);
  });
}

TEST_F(SearchResultsDialogTest, WithoutASelectedRowTheThreeButtonsAreDisabled) {
  Results({kSoap, kTea});
  Run([&] {
    EXPECT_THAT(Enabled(), IsEmpty());
    Select(1);
    EXPECT_THAT(Enabled(), ElementsAre(2795, 2805, 2796));
    List()->clearSelection();
    EXPECT_THAT(Enabled(), IsEmpty());
  });
}

TEST_F(SearchResultsDialogTest, ViewShowsTheSelectedResult) {
  Results({kSoap, kTea});
  Run([&] {
    Select(0);
    InNextDialog([&] {
      EXPECT_EQ(Label("headerLabel"), "Search: soap");
      EXPECT_EQ(Label("titleLabel"), "Soap");
      EXPECT_EQ(Label("descriptionLabel"), "Mild");
      EXPECT_EQ(Label("urlLabel"), "http://shop.example/1");
      EXPECT_EQ(Label("webSiteLabel"), "Corner Shop");
      EXPECT_EQ(Label("priceLabel"), "$2.50");
      Press("closeButton");
    });
    Tool(2795);
    EXPECT_EQ(Rows(), "Soap 1|Tea 2");
    EXPECT_THAT(Enabled(), ElementsAre(2795, 2805, 2796));
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(SearchResultsDialogTest, EnterAndADoubleTapView) {
  Results({kSoap, kTea});
  std::vector<std::string> viewed;
  const auto note = [&] { viewed.push_back(Label("titleLabel")); };
  Run([&] {
    QTest::keyClick(List(), Qt::Key_Down);
    InNextDialog(note);
    QTest::keyClick(List(), Qt::Key_Return);
    Select(1);
    InNextDialog(note);
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {},
                       List()->visualItemRect(List()->topLevelItem(1)).center());
  });
  EXPECT_THAT(viewed, ElementsAre("Soap", "Tea"));
}

TEST_F(SearchResultsDialogTest, TheBrowserOpensTheSelectedPage) {
  Results({kSoap, kTea});
  Run([&] {
    Select(1);
    Tool(2805);
    QTest::keyClick(List(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(browser_.addresses(), QStringList(2, QStringLiteral("https://tea.example/")));
  EXPECT_EQ(Messages(), "");
}

TEST_F(SearchResultsDialogTest, AnAddressOnAFileServerIsOpened) {
  Results({kCup});
  Run([&] {
    Select(0);
    Tool(2805);
  });
  EXPECT_EQ(browser_.addresses(), QStringList(QStringLiteral("ftp://cup.example/")));
  EXPECT_EQ(Messages(), "");
}

TEST_F(SearchResultsDialogTest, AnAddressThatIsNoneOfTheWebIsNotOpened) {
  Results({{.id = 1, .price = 2, .title = "Soap", .url = "file:///etc/passwd"}});
  Run([&] {
    Select(0);
    Tool(2805);
  });
  EXPECT_EQ(browser_.addresses(), QStringList());
  EXPECT_EQ(Messages(),
            "There was an error while opening the selected search result in Internet Explorer.");
}

// The buttons are disabled then, yet a command may still be under way.
TEST_F(SearchResultsDialogTest, WithoutASelectedRowEachCommandSaysWhatIsMissing) {
  Results({kSoap});
  Run([&] {
    for (const int command : {2795, 2805, 2796, 4711}) {
      Q_EMIT Find<PictureBar>("commandBar")->CommandChosen(command);
    }
  });
  EXPECT_EQ(Messages(), std::string(kSelectToView) + "\n" + kSelectToView + "\n" + kSelectToDelete);
}

TEST_F(SearchResultsDialogTest, AMissingFileIsReportedAndTheListIsEmpty) {
  Run([&] {
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(List()->empty_text(), QStringLiteral("The results could not be read"));
    EXPECT_THAT(Enabled(), IsEmpty());
  });
  EXPECT_EQ(Messages(), kReadError);
  EXPECT_EQ(Stored(), std::nullopt);
}

TEST_F(SearchResultsDialogTest, ADamagedFileIsReportedAndLeftAsItIs) {
  const Bytes whole = RawResults({Raw(kSoap), Raw(kTea)});
  const Bytes cut(whole.begin(), whole.end() - 20);
  folder_.Write("WebSearch/7.dat", cut);
  Run([&] {
    EXPECT_EQ(Rows(), "");
    QTest::keyClick(List(), Qt::Key_Down);
    QTest::keyClick(List(), Qt::Key_Delete);
  });
  EXPECT_EQ(Messages(), kReadError);
  EXPECT_EQ(Stored(), cut);
}

TEST_F(SearchResultsDialogTest, EscapeAndCloseEndIt) {
  Results({kSoap});
  Run([&] {
    QTest::keyClick(List(), Qt::Key_Escape);
    EXPECT_FALSE(dialog_->isVisible());
  });
  Run([&] {
    Press("closeButton");
    EXPECT_FALSE(dialog_->isVisible());
  });
}

// The screen is gone by the time the answer is looked at.
TEST_F(SearchResultsDialogTest, ClosingTheProgramUnderTheViewerEndsBoth) {
  Results({kSoap});
  Run([&] {
    Select(0);
    InNextDialog([&] {
      QApplication::closeAllWindows();
      EXPECT_FALSE(dialog_->isVisible());
    });
    Tool(2795);
    EXPECT_FALSE(dialog_->isVisible());
  });
  EXPECT_EQ(Stored(), RawResults({Raw(kSoap)}));
}

TEST_F(SearchResultsDialogTest, EveryControlHasAName) {
  Results({kSoap});
  Run([&] {
    EXPECT_EQ(List()->accessibleName(), QStringLiteral("Search results"));
    EXPECT_EQ(Find<QToolButton>("tool2795")->toolTip(), QStringLiteral("View result (Enter)"));
    EXPECT_EQ(Find<QToolButton>("tool2805")->toolTip(),
              QStringLiteral("Open in the web browser (Ctrl+O)"));
    EXPECT_EQ(Find<QToolButton>("tool2796")->toolTip(), QStringLiteral("Delete result (Del)"));
    for (const char* name : {"tool2795", "tool2805", "tool2796"}) {
      EXPECT_FALSE(Find(name)->accessibleName().isEmpty()) << name;
      EXPECT_FALSE(Find<QToolButton>(name)->icon().isNull()) << name;
    }
  });
}

TEST_F(SearchResultsDialogTest, TabGoesFromTheListThroughTheButtons) {
  Results({kSoap});
  Run([&] {
    Select(0);
    EXPECT_EQ(test::TabOrder(dialog_), "resultList tool2795 tool2805 tool2796 closeButton");
  });
}

TEST_F(SearchResultsDialogTest, FitsEveryScreenWhateverTheTextsAre) {
  const std::string endless(2048, 'W');
  std::vector<RawShownResult> results = {
      {.id = 1, .price = 1.95, .title = "Curd soap, 200 g"},
      {.id = 2,
       .price = 4.9,
       .title = "Olive oil soap, 3 cakes of 100 g, without perfume",
       .site = "Caf\xC3\xA9 M\xC3\xBCller \xE2\x82\xAC"},
      {.id = 3, .price = 12, .title = endless, .site = endless},
      {.id = 4, .price = 1e100, .title = "<b>Gold</b> soap &amp; dish"}};
  for (std::uint32_t id = 5; id < 30; ++id) {
    results.push_back({.id = id, .price = 20.0 + id, .title = "Soap of the house", .site = "Fair"});
  }
  Results(results);
  Run([&] {
    for (const QSize size : test::ScreenSizes()) {
      dialog_->resize(size);
      EXPECT_EQ(test::Clipped(dialog_), "") << size.width();
      EXPECT_EQ(dialog_->size(), size);
      Select(1);
      test::SavePicture(dialog_, QStringLiteral("search_results"));
      List()->scrollToBottom();
      test::SavePicture(dialog_, QStringLiteral("search_results_end"));
    }
  });
}

TEST_F(SearchResultsDialogTest, FitsWithAFontTwiceTheSize) {
  Results({kSoap, kTea});
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPixelSize(2 * QFontInfo(before).pixelSize());
  QApplication::setFont(large);
  Run([&] {
    dialog_->resize(360, 640);
    EXPECT_EQ(test::Clipped(dialog_), "");
    test::SavePicture(dialog_, QStringLiteral("search_results_large_print"));
  });
  QApplication::setFont(before);
}

}  // namespace
}  // namespace brovanta
