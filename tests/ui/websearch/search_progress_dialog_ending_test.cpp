// The progress screen that stops, leaves or goes while its agents still run.
#include <gmock/gmock.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "search/results_file.h"
#include "tests/search/scripted_shops.h"
#include "tests/ui/websearch/search_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SearchProgressDialogEndingTest : public SearchScreenTest {
 protected:
  /// `answering` shops that answer and, behind them, `held` ones that do not.
  void AddShops(int answering, int held) {
    for (int site = 1; site <= answering + held; ++site) {
      const std::string page = Block("Soap of " + std::to_string(site), "/s", "1.50");
      if (site <= answering) {
        AddShop(site, page);
      } else {
        AddHeldShop(site, page);
      }
    }
    LoadConfiguration();
  }
  /// The network, with an end that waits until all threads have ended, which are counted. Should
  /// one wait for something that does not come, it is left behind after half a minute.
  SearchServices CountedServices() {
    SearchServices services = ServicesWithoutDelay();
    services.start_thread = [count = threads_](std::function<void()> procedure) {
      ++*count;
      return std::thread([count, run = std::move(procedure)] {
        run();
        --*count;
      });
    };
    services.end_wait = std::chrono::milliseconds(kAtMost);
    return services;
  }
  /// The titles of a saved search.
  std::vector<std::string> Saved(std::int32_t number) {
    SearchResultList list;
    EXPECT_EQ(ReadSearchResults(list, searches_->saved_searches().ResultsPath(number)), 0);
    std::vector<std::string> titles;
    for (const auto& item : list.items()) titles.push_back(item.Title.value_or("(none)"));
    return titles;
  }

  const std::shared_ptr<std::atomic<int>> threads_ = std::make_shared<std::atomic<int>>(0);
};

TEST_F(SearchProgressDialogEndingTest, StopAndDoneAtEveryMoment) {
  constexpr int kShops = 6;
  for (int answered = 0; answered < kShops; ++answered) {
    agents_.clear();
    AddShops(answered, kShops - answered);
    const int result = RunProgress([&](SearchProgressDialog& dialog) {
      Await([&] { return IsSearching(dialog) && EndedAgents(dialog) == answered; });
      ClickButton(dialog, "stopButton");
      Await([&] { return HasFinished(dialog); });
      CloseNextDialog();
      ClickButton(dialog, "doneButton");  // the others are still on their way out
    });
    EXPECT_EQ(result, answered == 0 ? -1 : 0) << answered;
    Release();
  }
}

TEST_F(SearchProgressDialogEndingTest, StopInTheMomentOfTheStart) {
  std::promise<void> delay;
  SearchServices services = SearchServices::Real();
  services.sleep = [end = delay.get_future().share()](std::chrono::milliseconds) { end.wait(); };
  UseServices(std::move(services));
  AddShops(3, 3);
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    ClickButton(dialog, "stopButton");
    ClickButton(dialog, "stopButton");
    EXPECT_EQ(EndedAgents(dialog), 0);
    delay.set_value();
    Await([&] { return EndedAgents(dialog) == 6; });
    EXPECT_EQ(ProgressOf(dialog),
              (ShownProgress{"Brovanta found no search results.", true, false}));
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, -1);
  EXPECT_THAT(Objects(), IsEmpty()) << "every thread was still in its sleep";
}

TEST_F(SearchProgressDialogEndingTest, FurtherFinishedMessagesChangeNothing) {
  AddShops(0, 3);
  RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return Objects().size() == 3; });
    ClickButton(dialog, "stopButton");
    Await([&] { return HasFinished(dialog); });
    const ShownProgress first = ProgressOf(dialog);
    EXPECT_EQ(first, (ShownProgress{"Brovanta found no search results.", true, false}));
    Await([&] { return EndedAgents(dialog) == 3; });  // each of them has sent the message
    EXPECT_EQ(ProgressOf(dialog), first);
    dialog.done(2);
  });
}

TEST_F(SearchProgressDialogEndingTest, DoneRightAfterStopSavesAWholeFile) {
  AddShops(2, 30);
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 2; });
    ClickButton(dialog, "stopButton");
    Await([&] { return HasFinished(dialog); });
    InNextDialog([&](QWidget& list) {
      Await([&] { return EndedAgents(dialog) == 32; });  // they go on to report below the list
      list.close();
    });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(Saved(2), testing::UnorderedElementsAre("Soap of 1", "Soap of 2"));
}

TEST_F(SearchProgressDialogEndingTest, ResultsThatComeBehindDoneAreNotSaved) {
  const auto shops = std::make_shared<ScriptedShops>();
  shops->Answer(1, Block("Early soap", "/s", "1"));
  shops->Answer(2, Block("Late soap", "/s", "1"));
  shops->Hold(2, true);  // does not see that it is stopped
  shops->Hold(3);
  UseServices(shops->Services());
  for (int site = 1; site <= 3; ++site) agents_.push_back(ScriptedShops::Agent(site));
  LoadConfiguration();
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 1; });
    ClickButton(dialog, "stopButton");
    Await([&] { return HasFinished(dialog); });
    InNextDialog([&](QWidget& list) {
      shops->Release();
      Await([&] { return EndedAgents(dialog) == 3; });
      list.close();
    });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(Saved(2), ElementsAre("Early soap"));
  EXPECT_TRUE(shops->WaitForThreads());
}

TEST_F(SearchProgressDialogEndingTest, EndedFromOutsideInEveryState) {
  AddShops(2, 4);
  QWidget main;
  main.show();
  const std::function<void(SearchProgressDialog&)> states[] = {
      [](SearchProgressDialog&) {},  // not started yet
      [](SearchProgressDialog& dialog) { Await([&] { return IsSearching(dialog); }); },
      [](SearchProgressDialog& dialog) { Await([&] { return EndedAgents(dialog) == 2; }); },
      [](SearchProgressDialog& dialog) {
        Await([&] { return EndedAgents(dialog) == 2; });
        ClickButton(dialog, "stopButton");
      },
      [](SearchProgressDialog& dialog) {
        Await([&] { return EndedAgents(dialog) == 2; });
        ClickButton(dialog, "stopButton");
        Await([&] { return HasFinished(dialog); });
      }};
  for (const auto& reach : states) {
    const int result = RunProgress(
        [&](SearchProgressDialog& dialog) {
          reach(dialog);
          EndDialogsOf(main);
        },
        QStringLiteral("soap"), 1, &main);
    EXPECT_EQ(result, ModalDialog::kCancelled);
    EXPECT_EQ(searches_->engine().RunningCount(), 0U);
  }
  EXPECT_FALSE(folder_.Read("websearch.dat"));
}

TEST_F(SearchProgressDialogEndingTest, EndedBeforeItsTimerItAsksNobody) {
  AddShops(2, 0);
  RunProgress([this](SearchProgressDialog& dialog) {
    QTimerEvent late(dialog.start_timer());
    dialog.done(2);
    EXPECT_EQ(dialog.start_timer(), 0);
    QApplication::sendEvent(&dialog, &late);  // as one that was on its way
    EXPECT_THAT(AgentRows(dialog), IsEmpty());
    EXPECT_EQ(searches_->engine().RunningCount(), 0U);
  });
  EXPECT_THAT(Objects(), IsEmpty());
}

TEST_F(SearchProgressDialogEndingTest, DestroyedWhileItsThreadsRun) {
  UseServices(CountedServices());
  AddShops(3, 30);
  {
    SearchProgressDialog dialog(*searches_, QStringLiteral("soap"), 1, nullptr);
    dialog.show();
    Await([&] { return EndedAgents(dialog) == 3; });
  }
  searches_.reset();
  EXPECT_EQ(*threads_, 0) << "none was left behind";
  EXPECT_TRUE(IsQuiet());
}

TEST_F(SearchProgressDialogEndingTest, DestroyedWithoutHavingBeenShown) {
  AddShops(1, 0);
  { const SearchProgressDialog dialog(*searches_, QStringLiteral("soap"), 1, nullptr); }
  EXPECT_THAT(Objects(), IsEmpty());
}

TEST_F(SearchProgressDialogEndingTest, MessageThatIsOnItsWayWhenItGoesHoldsNobody) {
  UseServices(CountedServices());
  AddShops(20, 0);
  SearchProgressDialog dialog(*searches_, QStringLiteral("soap"), 1, nullptr);
  dialog.show();
  Await([&] { return IsSearching(dialog); });
  Await([&] { return EndedAgents(dialog) > 0; });
  QElapsedTimer asking;
  asking.start();
  while (Objects().size() < 20 && asking.elapsed() < 30'000) QThread::yieldCurrentThread();
  ASSERT_EQ(Objects().size(), 20U) << "their reports wait in the queue";
  dialog.done(2);
  const auto rows = AgentRows(dialog);
  QCoreApplication::processEvents();
  EXPECT_EQ(AgentRows(dialog), rows) << "nothing reaches it any more";
  searches_.reset();
  EXPECT_EQ(*threads_, 0) << "none of them waits for an answer";
}

TEST_F(SearchProgressDialogEndingTest, EndedWithTheResultsListOpenAboveIt) {
  AddShops(1, 5);
  QWidget main;
  main.show();
  const int result = RunProgress(
      [&](SearchProgressDialog& dialog) {
        Await([&] { return EndedAgents(dialog) == 1; });
        ClickButton(dialog, "stopButton");
        Await([&] { return HasFinished(dialog); });
        InNextDialog([&](QWidget& list) {
          EndDialogsOf(main);
          searches_.reset();  // as the main window does behind it
          EXPECT_FALSE(list.isVisible());
        });
        ClickButton(dialog, "doneButton");
        EXPECT_FALSE(dialog.isVisible());
      },
      QStringLiteral("soap"), 1, &main);
  EXPECT_EQ(result, ModalDialog::kCancelled) << "not overwritten by what was under way";
  EXPECT_TRUE(folder_.Read("WebSearch/2.dat")) << "what was saved stays";
}

TEST_F(SearchProgressDialogEndingTest, AllWindowsClosedWithTheResultsListOpenAboveIt) {
  AddShops(1, 0);
  RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    InNextDialog([&](QWidget& list) {
      QApplication::closeAllWindows();
      EXPECT_FALSE(list.isVisible());
      EXPECT_FALSE(dialog.isVisible()) << "it waits for nothing but the list";
    });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_THAT(Saved(2), ElementsAre("Soap of 1"));
}

TEST_F(SearchProgressDialogEndingTest, AllWindowsClosedDuringTheSearchDoNoHarm) {
  AddShops(1, 1);
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 1; });
    QApplication::closeAllWindows();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(IsSearching(dialog));
    Release();
    Await([&] { return HasFinished(dialog); });
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Saved(2).size(), 2U);
}

TEST_F(SearchProgressDialogEndingTest, EndedUnderTheMessageOfAFailedStart) {
  LoadConfiguration();
  QWidget main;
  main.show();
  const int result = RunProgress(
      [&](SearchProgressDialog& dialog) {
        InNextDialog([&](QWidget&) {
          EndDialogsOf(main);
          searches_.reset();
        });
        Await([&] { return !dialog.isVisible(); });
        EXPECT_FALSE(HasFinished(dialog)) << "it is left as it was";
      },
      QStringLiteral("soap"), 1, &main);
  EXPECT_EQ(result, ModalDialog::kCancelled);
}

TEST_F(SearchProgressDialogEndingTest, NewSearchWhileTheOldThreadsEnd) {
  const auto shops = std::make_shared<ScriptedShops>();
  shops->Answer(1, Block("Old soap", "/s", "1"));
  shops->Hold(1, true);
  shops->Hold(2);
  UseServices(shops->Services());
  agents_ = {ScriptedShops::Agent(1), ScriptedShops::Agent(2)};
  LoadConfiguration();
  const int first = RunProgress([&](SearchProgressDialog& dialog) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return shops->urls().size() == 2; }, kAtMost));
    ClickButton(dialog, "stopButton");
    Await([&] { return HasFinished(dialog); });
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(first, -1);
  EXPECT_GT(shops->threads(), 0);
  agents_ = {ScriptedShops::Agent(3)};
  shops->Answer(3, Block("New soap", "/s", "2"));
  shops->Hold(3);
  LoadConfiguration();  // lets the old agents go
  const int second = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return IsSearching(dialog); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return shops->urls().size() == 3; }, kAtMost));
    shops->Release();
    Await([&] { return HasFinished(dialog); });
    EXPECT_TRUE(shops->WaitForThreads());
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 3: 1 results"));
    EXPECT_EQ(ProgressOf(dialog).status, "Brovanta found 1 search results.");
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(second, 0);
  EXPECT_THAT(Saved(2), ElementsAre("New soap"));
}

TEST_F(SearchProgressDialogEndingTest, TwoHundredAgentsAtOnce) {
  AddShops(200, 0);
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_EQ(EndedAgents(dialog), 200);
    EXPECT_EQ(ProgressOf(dialog).status, "Brovanta found 200 search results.");
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Saved(2).size(), 200U);
}

TEST_F(SearchProgressDialogEndingTest, TwoHundredAgentsStoppedAtOnce) {
  AddShops(20, 180);
  const int result = RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return EndedAgents(dialog) == 20; });
    ClickButton(dialog, "stopButton");
    Await([&] { return EndedAgents(dialog) == 200; });
    CloseNextDialog();
    ClickButton(dialog, "doneButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Saved(2).size(), 20U);
}

TEST_F(SearchProgressDialogEndingTest, ThreadsThatCannotBeMadeAreNotWaitedFor) {
  const auto shops = std::make_shared<ScriptedShops>();
  shops->RefuseThread(0);
  UseServices(shops->Services());
  agents_ = {ScriptedShops::Agent(1), ScriptedShops::Agent(2)};
  LoadConfiguration();
  RunProgress([&](SearchProgressDialog& dialog) {
    Await([&] { return HasFinished(dialog); });
    EXPECT_THAT(AgentRows(dialog), ElementsAre("Shop 2: failed"));
    dialog.done(2);
  });
}

}  // namespace
}  // namespace brovanta::test
