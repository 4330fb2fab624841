// The commands of the web-search tab: a saved search is opened again and deleted.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <filesystem>

#include "tests/search/raw_searches.h"
#include "tests/support/form_check.h"
#include "tests/ui/shell/main_screen.h"
#include "ui/shell/main_commands.h"
#include "ui/websearch/result_list.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kQuestion[] =
    "Do you want to permanently delete the selected web search and all its results?";
constexpr int kWebSearchTab = 3;

const RawEntry kSoap{.number = 2, .date = kToday, .words = "soap"};
const RawEntry kTea{.number = 3, .date = kToday, .words = "tea"};

class MainCommandsSearchTest : public MainScreenTest {
 protected:
  void Searches(const std::vector<RawEntry>& entries) {
    std::filesystem::create_directory(folder_.File("WebSearch"));
    folder_.Write("websearch.dat", RawIndex(9, entries));
    for (const RawEntry& entry : entries) {
      folder_.Write(ResultsName(entry.number), RawResults({RawResult(1, 2.5, entry.words)}));
    }
  }
  static std::string ResultsName(std::uint32_t number) {
    return "WebSearch/" + std::to_string(number) + ".dat";
  }
  bool HasResults(std::uint32_t number) const {
    return folder_.Read(ResultsName(number)).has_value();
  }
  void OpenTab() {
    Open();
    ChooseTab(kWebSearchTab);
  }
};

TEST_F(MainCommandsSearchTest, EditOpensTheResultsOfTheSearchAgain) {
  Searches({kSoap, {.number = 5, .date = kToday, .words = "m\xFCsli"}});
  OpenTab();
  Select("m\u00FCsli");
  SavePicture(&screen(), QStringLiteral("web_searches"));
  std::string header;
  std::string title;
  InNextDialog([&](QWidget& dialog) {
    header = dialog.findChild<QLabel*>(QStringLiteral("headerLabel"))->text().toStdString();
    title = dialog.findChild<ResultList*>()->topLevelItem(0)->text(0).toStdString();
    Click(dialog, "closeButton");
  });
  Tool(kToolEdit);
  EXPECT_EQ(header, "Search: m\u00FCsli");
  EXPECT_EQ(title, "m\u00FCsli");
}

TEST_F(MainCommandsSearchTest, EnterOpensTheResultsAndTheListIsNotRebuilt) {
  Searches({kSoap});
  OpenTab();
  Select("soap");
  const auto opened = WatchForDialog();
  folder_.Write("websearch.dat", RawIndex(9, {}));
  Press(Qt::Key_Return);
  EXPECT_TRUE(*opened);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap"));
  EXPECT_THAT(EnabledCommands(), ElementsAre(kToolEdit, kToolDelete, kMenuEdit, kMenuDelete));
}

TEST_F(MainCommandsSearchTest, EditOfASearchThatIsGoneDoesNothing) {
  Searches({kSoap});
  OpenTab();
  Select("soap");
  ASSERT_EQ(screen().searches()->saved_searches().DeleteSavedSearch(2), 2);
  const auto opened = WatchForDialog();
  ToolsMenu("Edit");
  EXPECT_FALSE(*opened);
}

TEST_F(MainCommandsSearchTest, DeleteAsksAndTakesTheResultsFileAlong) {
  Searches({kSoap, kTea});
  OpenTab();
  Select("soap");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_EQ(box->text, kQuestion);
  EXPECT_EQ(box->icon, QMessageBox::Question);
  EXPECT_EQ(box->buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "tea"));
  EXPECT_THAT(EnabledCommands(), IsEmpty());
  RawEntry deleted = kSoap;
  deleted.deleted = 1;
  EXPECT_EQ(folder_.Read("websearch.dat"), RawIndex(9, {deleted, kTea}));
  EXPECT_FALSE(HasResults(2));
  EXPECT_TRUE(HasResults(3));
}

TEST_F(MainCommandsSearchTest, DeleteAnsweredWithNoLeavesEverything) {
  Searches({kSoap});
  OpenTab();
  Select("soap");
  AnswerNext(QMessageBox::No);
  Press(Qt::Key_Delete);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap"));
  EXPECT_EQ(folder_.Read("websearch.dat"), RawIndex(9, {kSoap}));
  EXPECT_TRUE(HasResults(2));
}

TEST_F(MainCommandsSearchTest, ASearchWithoutResultsFileIsDeletedAllTheSame) {
  Searches({kSoap});
  std::filesystem::remove(folder_.File(ResultsName(2)));
  OpenTab();
  Select("soap");
  AnswerNext(QMessageBox::Yes);
  ToolsMenu("Delete");
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(MainCommandsSearchTest, AnIndexThatCannotBeWrittenKeepsTheResults) {
  Searches({kSoap});
  const std::string index = folder_.File("websearch.dat");
  std::filesystem::permissions(index, std::filesystem::perms::owner_read);
  OpenTab();
  Select("soap");
  AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "soap"));
  EXPECT_EQ(folder_.Read("websearch.dat"), RawIndex(9, {kSoap}));
  EXPECT_TRUE(HasResults(2));
}

TEST_F(MainCommandsSearchTest, ClosingTheProgramUnderTheResultsEndsBoth) {
  for (const bool all_windows : {true, false}) {
    Searches({kSoap});
    OpenTab();
    Select("soap");
    InNextDialog([&](QWidget& dialog) {
      if (all_windows) {
        QApplication::closeAllWindows();
      } else {
        screen().close();
      }
      EXPECT_FALSE(dialog.isVisible());
    });
    Tool(kToolEdit);
    EXPECT_FALSE(screen().isVisible());
    EXPECT_EQ(screen().searches(), nullptr);
    EXPECT_TRUE(HasResults(2));
  }
}

TEST_F(MainCommandsSearchTest, ClosingTheProgramUnderTheQuestionDeletesNothing) {
  Searches({kSoap});
  OpenTab();
  Select("soap");
  InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
  Tool(kToolDelete);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(folder_.Read("websearch.dat"), RawIndex(9, {kSoap}));
  EXPECT_TRUE(HasResults(2));
}

TEST_F(MainCommandsSearchTest, ClosedWindowUnderTheReadErrorOpensNoResults) {
  Searches({kSoap});
  folder_.WriteText(ResultsName(2), "damaged");
  OpenTab();
  Select("soap");
  InNextDialog([this](QWidget& box) {
    EXPECT_NE(qobject_cast<QMessageBox*>(&box), nullptr) << "before the list opens";
    screen().close();
  });
  Tool(kToolEdit);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(MainCommandsSearchTest, ClosingTheProgramUnderTheViewerDeletesNothing) {
  Searches({kSoap});
  const std::optional<Bytes> results = folder_.Read(ResultsName(2));
  OpenTab();
  Select("soap");
  InNextDialog([this](QWidget& dialog) {
    auto* list = dialog.findChild<ResultList*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->topLevelItem(0)).center());
    InNextDialog([this](QWidget&) { screen().close(); });
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  Tool(kToolEdit);
  EXPECT_FALSE(screen().isVisible());
  EXPECT_EQ(folder_.Read(ResultsName(2)), results);
}

}  // namespace
}  // namespace brovanta::test
