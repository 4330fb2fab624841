#include "ui/websearch/search_progress_dialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>

#include "tests/support/form_check.h"
#include "tests/support/message_answers.h"
#include "tests/ui/websearch/search_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSearching = "Brovanta is searching the internet...";
constexpr const char* kNothing = "Brovanta found no search results.";
const QString kNotStarted = QStringLiteral(
    "There was an error while starting the search agents for the selected category.");

std::string Items(int count) {
  std::string page;
  for (int i = 1; i <= count; ++i) page += Block("Soap " + std::to_string(i), "/s", "1.50");
  return page;
}

class SearchProgressDialogTest : public SearchScreenTest {};

TEST_F(SearchProgressDialogTest, OpensWithBothButtonsDisabledAndTheTimerRunning) {
  AddShop(1);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    EXPECT_EQ(ProgressOf(dialog),
              (ShownProgress{"Starting the web search agents....", false, false}));
    EXPECT_THAT(AgentRows(dialog), IsEmpty());
    EXPECT_NE(dialog.start_timer(), 0);
    dialog.done(2);
  });
  EXPECT_THAT(Objects(), IsEmpty());
}

TEST_F(SearchProgressDialogTest, AgentsStartHalfASecondAfterItHasOpened) {
  AddHeldShop(1);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    QElapsedTimer since;
    since.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsSearching(dialog); }, kAtMost));
    EXPECT_GE(since.elapsed(), 480);
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, TimerFiresOnceAndTheEngineIsStartedOnce) {
  AddHeldShop(1);
  LoadConfiguration();
  RunProgress([this](SearchProgressDialog& dialog) {
    const int timer = dialog.start_timer();
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsSearching(dialog); }, kAtMost));
    EXPECT_EQ(dialog.start_timer(), 0);
    QTimerEvent late(timer);
    QApplication::sendEvent(&dialog, &late);
    dialog.hide();  // appearing once more is no opening
    dialog.show();
    EXPECT_EQ(dialog.start_timer(), 0);
    Await([&] { return !Objects().empty(); });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 1: searching"));
    dialog.done(2);
  });
  EXPECT_EQ(Objects().size(), 1U);
}

TEST_F(SearchProgressDialogTest, WhileSearchingOnlyStopIsEnabled) {
  AddHeldShop(1);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kSearching, false, true}));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, NewAgentsAreListedAtTheTop) {
  for (int site = 1; site <= 3; ++site) AddHeldShop(site);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    EXPECT_THAT(AgentRows(dialog),
                ElementsAre("Shop 3: searching", "Shop 2: searching", "Shop 1: searching"));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, EachRowSaysWhatItsAgentFound) {
  AddShop(1, Items(2));
  AddShop(2);
  AddShop(3, "no items here");
  AddShop(4, Items(1));
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 4: 1 results", "Shop 3: 0 results",
                                               "Shop 2: failed", "Shop 1: 2 results"));
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{"Brovanta found 3 search results.", true, false}));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, MessageBetweenStartedAndFinishedIsNotHandled) {
  AddShop(1, Items(2));
  AddHeldShop(2);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    const auto nothing_changes = [&dialog] {
      const ShownProgress shown = ProgressOf(dialog);
      const std::vector<std::string> rows = AgentRows(dialog);
      dialog.progress_window().SendMessage(1125, 1, 7);
      EXPECT_EQ(ProgressOf(dialog), shown);
      EXPECT_EQ(AgentRows(dialog), rows);
    };
    nothing_changes();
    Await([&] { return EndedAgents(dialog) == 1; });
    nothing_changes();
    ClickButton(dialog, "stopButton");
    Await([&] { return HasFinished(dialog); });
    nothing_changes();
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, RowsChangeWhileOthersStillSearch) {
  AddShop(1, Items(2));
  AddHeldShop(2);
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 1; });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 2: searching", "Shop 1: 2 results"));
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kSearching, false, true}));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, OneResultIsCountedInTheSameWords) {
  AddShop(1, Items(1));
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_EQ(ProgressOf(dialog).status, "Brovanta found 1 search results.");
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, AgentWithoutResultsShowsZero) {
  AddShop(1, "a page without items");
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 1: 0 results"));
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kNothing, true, false}));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, CategoryThatNobodyServesIsAFailedStart) {
  AddShop(1);
  LoadConfiguration();
  MessageAnswers answers({QMessageBox::Ok});
  const int result = RunProgress(
      [&](SearchProgressDialog& dialog) {
        Await([&] { return HasFinished(dialog); });
        EXPECT_EQ(answers.texts(), QStringList{kNotStarted});
        EXPECT_EQ(ProgressOf(dialog),
                  (ShownProgress{"There was an error while starting the search.", true, false}));
        EXPECT_THAT(AgentRows(dialog), IsEmpty());
        ClickButton(dialog, "doneButton");
      },
      QStringLiteral("soap"), 2);
  EXPECT_EQ(result, -1);
}

TEST_F(SearchProgressDialogTest, AgentsOfAnyNameAreShown) {
  for (const char* name :
       {"Caf\xC3\xA9 \xE2\x82\xAC", "Caf\xE9", " Blanks ", "Two\r\nlines", "<b>", ""}) {
    AddHeldShop(static_cast<std::int32_t>(agents_.size()) + 1);
    agents_.back().SiteName = name;
  }
  LoadConfiguration();
  RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    EXPECT_THAT(
        AgentRows(dialog),
        ElementsAre(": searching", "<b>: searching", "Two  lines: searching", " Blanks : searching",
                    "Caf\xC3\xA9: searching", "Caf\xC3\xA9 \xE2\x82\xAC: searching"));
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogTest, EscapeAndTheCloseBoxDoNothing) {
  AddHeldShop(1, Items(1));
  LoadConfiguration();
  const int result = RunProgress([this](SearchProgressDialog& dialog) {
    const auto try_to_leave = [&](const char* state) {
      QTest::keyClick(&dialog, Qt::Key_Escape);
      EXPECT_FALSE(dialog.close()) << state;
      EXPECT_TRUE(dialog.isVisible()) << state;
    };
    try_to_leave("starting");
    Await([&] { return IsSearching(dialog); });
    try_to_leave("searching");
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kSearching, false, true}));
    Release();
    Await([&] { return HasFinished(dialog); });
    try_to_leave("finished");
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(folder_.Read("WebSearch/2.dat"));
}

TEST_F(SearchProgressDialogTest, StopEndsTheSearchAndFindsNothingMore) {
  for (int site = 1; site <= 3; ++site) AddHeldShop(site, Items(1));
  LoadConfiguration();
  const int result = RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    ClickButton(dialog, "stopButton");
    Await([&] { return EndedAgents(dialog) == 3; });
    EXPECT_THAT(AgentRows(dialog),
                ElementsAre("Shop 3: failed", "Shop 2: failed", "Shop 1: failed"));
    EXPECT_EQ(ProgressOf(dialog), (ShownProgress{kNothing, true, false}));
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, -1);
}

TEST_F(SearchProgressDialogTest, KeyboardIsEnough) {
  AddHeldShop(1);
  LoadConfiguration();
  const int result = RunProgress([](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("stopButton"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    Await([&] { return HasFinished(dialog); });
    EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("doneButton"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(result, -1);
}

TEST_F(SearchProgressDialogTest, HasItsTextsAndNames) {
  LoadConfiguration();
  SearchProgressDialog dialog(*searches_, QStringLiteral("soap"), 1, nullptr);
  EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("doneButton"))->text().toStdString(),
            "Done");
  EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("stopButton"))->text().toStdString(),
            "Stop");
  EXPECT_EQ(dialog.findChild<QWidget*>(QStringLiteral("agentList"))->accessibleName().toStdString(),
            "Search agents");
  EXPECT_TRUE(dialog.isModal());
}

TEST_F(SearchProgressDialogTest, LooksWellInEveryState) {
  for (int site = 1; site <= 14; ++site) {
    if (site % 3 == 0) {
      AddHeldShop(site);
    } else {
      AddShop(site, Items(site % 4));
    }
  }
  agents_[12].SiteName = "A shop with a name that is longer than any screen is wide";
  LoadConfiguration();
  RunProgress([this](SearchProgressDialog& dialog) {
    const auto look = [&](const char* name) {
      for (const QSize& size : ScreenSizes()) {
        dialog.resize(size);
        SavePicture(&dialog, QString::fromLatin1(name));
        EXPECT_EQ(Clipped(&dialog), "") << name << size.width();
      }
    };
    look("search_progress_1_starting");
    Await([&] { return EndedAgents(dialog) == 10; });
    look("search_progress_2_searching");
    Release();
    Await([&] { return HasFinished(dialog); });
    look("search_progress_3_finished");
    QFont font = dialog.font();
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    dialog.setFont(font);
    look("search_progress_4_large");
    dialog.done(2);
  });
}

}  // namespace
}  // namespace brovanta::test
