// What "Done" makes of a search.
#include <gmock/gmock.h>

#include <QLabel>
#include <QTest>

#include "tests/support/message_answers.h"
#include "tests/ui/websearch/search_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kToday = 1795222800;  // 2026-11-21 01:00:00 UTC
constexpr const char* kNothing = "Brovanta found no search results.";
const QString kNotSaved = QStringLiteral(
    "There was an error while saving the search results.\nPlease try your search again.");

std::string Items(int count) {
  std::string page;
  for (int i = 1; i <= count; ++i) page += Block("Soap " + std::to_string(i), "/s", "1.50");
  return page;
}

class SearchProgressDialogSavingTest : public SearchScreenTest {
 protected:
  /// The results file of the search, as it stands.
  std::optional<Bytes> ResultsFile(int number) {
    return folder_.Read("WebSearch/" + std::to_string(number) + ".dat");
  }
  static std::string HeaderOf(const QWidget& list) {
    const auto* label = list.findChild<QLabel*>(QStringLiteral("headerLabel"));
    return label == nullptr ? "none" : label->text().toStdString();
  }
  /// Closes the next dialog. What its header said by then.
  std::shared_ptr<std::string> CloseNextList() {
    auto header = std::make_shared<std::string>();
    InNextDialog([header](QWidget& list) {
      *header = HeaderOf(list);
      list.close();
    });
    return header;
  }
  /// One result as a shop of the agents gives it.
  static Bytes Result(std::uint32_t id, double price, std::string_view title, std::string_view url,
                      std::string_view shop) {
    return Join({RawNumbers(id, price), RawText(title), RawText(std::nullopt), RawText(url),
                 RawText(shop)});
  }
};

TEST_F(SearchProgressDialogSavingTest, WhereEveryAgentFailsDoneEndsWithMinusOne) {
  for (int site = 1; site <= 3; ++site) AddShop(site);
  LoadConfiguration();
  const auto list = CloseNextDialog();
  const int result = RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_THAT(AgentRows(dialog),
                ElementsAre("Shop 3: failed", "Shop 2: failed", "Shop 1: failed"));
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kNothing, true, false}));
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, -1);
  EXPECT_FALSE(*list);
  EXPECT_FALSE(folder_.Read("websearch.dat"));
}

TEST_F(SearchProgressDialogSavingTest, FailedStartAfterAGoodSearchSavesNothingOfThat) {
  AddShop(1, Items(1));
  LoadConfiguration();
  EXPECT_EQ(RunToDone(), 0);
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunProgress(
      [](SearchProgressDialog& dialog) {
        Await([&] { return HasFinished(dialog); });
        ClickButton(dialog, "doneButton");
      },
      QStringLiteral("soap"), 2);
  EXPECT_EQ(result, -1);
  EXPECT_FALSE(ResultsFile(3));
}

TEST_F(SearchProgressDialogSavingTest, DoneSavesTheResultsAndOpensTheirList) {
  AddShop(1, Block("Red soap", "/red", "$2.50") + Block("Blue soap", "/blue", "0.75"));
  agents_.back().SiteName = "Corner";
  LoadConfiguration();
  std::string list_title;
  std::string list_header;
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    InNextDialog([&](QWidget& list) {
      EXPECT_TRUE(dialog.isVisible());
      list_title = list.metaObject()->className();
      list_header = HeaderOf(list);
      list.close();
    });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(list_title, "brovanta::SearchResultsDialog");
  EXPECT_EQ(list_header, "Search: soap");
  EXPECT_EQ(folder_.Read("websearch.dat"),
            RawIndex(2, {{.number = 2, .category = 1, .date = kToday, .words = "soap"}}));
  EXPECT_EQ(ResultsFile(2),
            RawResults({Result(1, 0.75, "Blue soap", "http://shop.example/blue", "Corner"),
                        Result(2, 2.5, "Red soap", "http://shop.example/red", "Corner")}));
}

TEST_F(SearchProgressDialogSavingTest, SaveFailureIsReportedAndEndsWithZero) {
  folder_.WriteText("websearch.dat", "no index");
  AddShop(1, Items(1));
  LoadConfiguration();
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(answers.texts(), QStringList{kNotSaved}) << "and no list";
  EXPECT_EQ(folder_.ReadText("websearch.dat"), "no index");
  EXPECT_FALSE(ResultsFile(2));
}

TEST_F(SearchProgressDialogSavingTest, ResultsThatCannotBeWrittenAreASaveFailureToo) {
  folder_.WriteText("WebSearch", "a file where the folder should be");
  AddShop(1, Items(1));
  LoadConfiguration();
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(answers.texts(), QStringList{kNotSaved});
  EXPECT_EQ(folder_.Read("websearch.dat"),
            RawIndex(2, {{.number = 2, .date = kToday, .words = "soap"}}));
}

TEST_F(SearchProgressDialogSavingTest, NameIsSearchedForWithItsFirstHundredBytes) {
  AddShop(1, Block(std::string(100, 'x'), "/x", "1"));
  LoadConfiguration();
  std::shared_ptr<std::string> header;
  const int result = RunProgress(
      [&](SearchProgressDialog& dialog) {
        Await([&] { return HasFinished(dialog); });
        header = CloseNextList();
        ClickButton(dialog, "doneButton");
      },
      QString(140, QLatin1Char('x')));
  EXPECT_EQ(result, 0);
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(*header, "Search: " + std::string(100, 'x'));
  EXPECT_THAT(Objects(), ElementsAre("/1?q=" + std::string(100, 'x')));
  EXPECT_EQ(folder_.Read("websearch.dat"),
            RawIndex(2, {{.number = 2, .date = kToday, .words = std::string(49, 'x')}}));
}

TEST_F(SearchProgressDialogSavingTest, NameBecomesEightBitText) {
  AddShop(1, Block("Caf\xE9 au lait", "/c", "1"));
  LoadConfiguration();
  std::shared_ptr<std::string> header;
  const int result = RunProgress(
      [&](SearchProgressDialog& dialog) {
        Await([&] { return HasFinished(dialog); });
        header = CloseNextList();
        ClickButton(dialog, "doneButton");
      },
      QStringLiteral("cafe\u0301 \u0416"));
  EXPECT_EQ(result, 0);
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(*header, "Search: caf\xC3\xA9 ?");
  EXPECT_THAT(Objects(), ElementsAre("/1?q=caf%ff+%3f"));
  EXPECT_EQ(folder_.Read("websearch.dat"),
            RawIndex(2, {{.number = 2, .date = kToday, .words = "caf\xE9 ?"}}));
}

TEST_F(SearchProgressDialogSavingTest, NameOfOnlyBlanksFindsNothing) {
  AddShop(1, Items(3));
  LoadConfiguration();
  const int result = RunProgress(
      [](SearchProgressDialog& dialog) {
        Await([&] { return HasFinished(dialog); });
        EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 1: 0 results"));
        ClickButton(dialog, "doneButton");
      },
      QStringLiteral("  "));
  EXPECT_EQ(result, -1);
}

TEST_F(SearchProgressDialogSavingTest, StopKeepsWhatHasBeenFound) {
  AddShop(1, Items(2));
  AddHeldShop(2, Items(5));
  LoadConfiguration();
  const int result = RunProgress([this](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 1; });
    ClickButton(dialog, "stopButton");
    Await([&] { return EndedAgents(dialog) == 2; });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 2: failed", "Shop 1: 2 results"));
    Await([&] { return HasFinished(dialog); });
    EXPECT_EQ(ProgressOf(dialog).status, "Brovanta found 2 search results.");
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(ResultsFile(2),
            RawResults({Result(1, 1.5, "Soap 1", "http://shop.example/s", "Shop 1"),
                        Result(2, 1.5, "Soap 2", "http://shop.example/s", "Shop 1")}));
}

}  // namespace
}  // namespace brovanta::test
