#include "search/window_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#include "search/results_file.h"
#include "search/saved_searches.h"
#include "search/search_engine.h"
#include "tests/search/scripted_shops.h"
#include "tests/support/temp_folder.h"

namespace brovanta {
namespace {

using test::Block;
using test::ScriptedShops;
using testing::ElementsAre;

// A screen's thread: this one, with a queue of calls to make, as a toolkit has it.
class Screen {
 public:
  explicit Screen(WindowLink::Handler handler = nullptr) {
    link = std::make_shared<WindowLink>(
        [this, handler](std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam) {
          messages.push_back(message);
          threads.push_back(std::this_thread::get_id());
          if (handler) handler(message, wParam, lParam);
        },
        [this] {
          const std::lock_guard lock(mutex_);
          ++calls_;
          changed_.notify_all();
        });
  }

  // Waits for the next call and makes it.
  void RunOne() {
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return calls_ > 0; });
      --calls_;
    }
    link->Deliver();
  }
  void RunUntil(const std::function<bool()>& done) {
    while (!done()) RunOne();
  }

  std::shared_ptr<WindowLink> link;
  std::vector<std::uint32_t> messages;
  std::vector<std::thread::id> threads;

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int calls_ = 0;
};

TEST(WindowLinkTest, OnItsOwnThreadSendingIsAPlainCall) {
  Screen screen;
  screen.link->SendMessage(WM_SEARCH_AGENT_STARTED, 0, 0);
  EXPECT_THAT(screen.messages, ElementsAre(1124U));
}

TEST(WindowLinkTest, MessageForWhichNobodyCanBeWokenIsLostAndHoldsNobody) {
  int handled = 0;
  WindowLink link([&](std::uint32_t, std::uintptr_t, std::intptr_t) { ++handled; },
                  [] { throw std::bad_alloc(); });
  std::thread sender([&] { link.SendMessage(WM_SEARCH_AGENT_STARTED, 0, 0); });
  sender.join();
  link.Deliver();  // finds nothing of it
  link.Close();
  EXPECT_EQ(handled, 0);
}

TEST(WindowLinkTest, MessageThatIsLostLeavesTheOneInFrontOfIt) {
  std::vector<std::uint32_t> handled;
  std::promise<void> waits;
  int woken = 0;
  WindowLink link(
      [&](std::uint32_t message, std::uintptr_t, std::intptr_t) { handled.push_back(message); },
      [&] {
        if (++woken == 2) throw std::bad_alloc();
        waits.set_value();
      });
  std::thread first([&] { link.SendMessage(WM_SEARCH_AGENT_RESULTS, 0, 0); });
  waits.get_future().wait();
  std::thread second([&] { link.SendMessage(WM_SEARCH_AGENT_FAILED, 0, 0); });
  second.join();
  link.Deliver();
  first.join();
  link.Deliver();
  EXPECT_THAT(handled, ElementsAre(1126U));
}

TEST(WindowLinkTest, MessageOfAnotherThreadIsHandledOnItsOwn) {
  Screen screen;
  std::vector<std::size_t> handled;
  std::thread sender([&] {
    screen.link->SendMessage(WM_SEARCH_AGENT_RESULTS, 0, 5);
    handled.push_back(screen.messages.size());  // it has been handled when the call returns
  });
  screen.RunOne();
  sender.join();
  EXPECT_THAT(screen.threads, ElementsAre(std::this_thread::get_id()));
  EXPECT_THAT(handled, ElementsAre(1U));
}

TEST(WindowLinkTest, ParametersArrive) {
  std::vector<std::intptr_t> values;
  Screen screen([&](std::uint32_t, std::uintptr_t wParam, std::intptr_t lParam) {
    values = {static_cast<std::intptr_t>(wParam), lParam};
  });
  std::thread sender([&] { screen.link->SendMessage(WM_SEARCH_AGENT_FAILED, 99, -63); });
  screen.RunOne();
  sender.join();
  EXPECT_THAT(values, ElementsAre(99, -63));
}

TEST(WindowLinkTest, SendersOfManyThreadsAreAllServed) {
  Screen screen;
  std::vector<std::thread> senders;
  for (int i = 0; i < 50; ++i) {
    senders.emplace_back([&] { screen.link->SendMessage(WM_SEARCH_FINISHED, 0, 0); });
  }
  screen.RunUntil([&] { return screen.messages.size() == 50; });
  for (std::thread& sender : senders) sender.join();
}

TEST(WindowLinkTest, ClosingLetsGoOfWhoeverWaits) {
  std::mutex mutex;
  std::condition_variable changed;
  bool waits = false;
  const auto link = std::make_shared<WindowLink>(
      [](std::uint32_t, std::uintptr_t, std::intptr_t) { FAIL() << "closed"; },
      [&] {
        const std::lock_guard lock(mutex);
        waits = true;
        changed.notify_all();
      });
  std::thread sender([&] { link->SendMessage(WM_SEARCH_FINISHED, 0, 0); });
  {
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return waits; });
  }
  link->Close();
  sender.join();
  link->Deliver();  // a call that was queued before
}

TEST(WindowLinkTest, ClosedLinkHandlesNothing) {
  Screen screen;
  screen.link->Close();
  screen.link->SendMessage(WM_SEARCH_FINISHED, 0, 0);
  std::thread([&] { screen.link->SendMessage(WM_SEARCH_FINISHED, 0, 0); }).join();
  screen.link->Close();
  EXPECT_TRUE(screen.messages.empty());
}

TEST(WindowLinkTest, MayBeClosedWhileAMessageIsHandled) {
  std::shared_ptr<WindowLink> link;
  Screen screen([&](std::uint32_t, std::uintptr_t, std::intptr_t) { link->Close(); });
  link = screen.link;
  std::thread sender([&] { screen.link->SendMessage(WM_SEARCH_FINISHED, 0, 0); });
  screen.RunOne();
  sender.join();
  EXPECT_THAT(screen.messages, ElementsAre(1128U));
}

// A handler that runs the queue itself, as a screen within a screen does.
TEST(WindowLinkTest, DeliversWithinTheHandler) {
  std::thread second;
  Screen* screen_of_handler = nullptr;
  Screen screen([&](std::uint32_t message, std::uintptr_t, std::intptr_t) {
    if (message != WM_SEARCH_AGENT_RESULTS) return;
    second = std::thread([&] { screen_of_handler->link->SendMessage(WM_SEARCH_FINISHED, 0, 0); });
    screen_of_handler->RunOne();
  });
  screen_of_handler = &screen;
  std::thread first([&] { screen.link->SendMessage(WM_SEARCH_AGENT_RESULTS, 0, 0); });
  screen.RunOne();
  first.join();
  second.join();
  EXPECT_THAT(screen.messages, ElementsAre(1126U, 1128U));
}

// The whole way: a search whose messages all arrive on the screen's thread.
TEST(WindowLinkTest, SearchReportsOnTheScreensThread) {
  const auto shops = std::make_shared<ScriptedShops>();
  for (std::int32_t site = 1; site <= 20; ++site) shops->Answer(site, Block("Soap", "/", "2"));
  SearchEngine engine(shops->Services());
  Screen screen;
  ASSERT_EQ(engine.StartSearch(ScriptedShops::Agents(20), 1, "soap", screen.link), 20);
  EXPECT_EQ(screen.messages.size(), 20U);  // every start was a plain call
  screen.RunUntil([&] { return screen.messages.back() == WM_SEARCH_FINISHED; });
  EXPECT_EQ(screen.messages.size(), 41U);
  for (const std::thread::id id : screen.threads) EXPECT_EQ(id, std::this_thread::get_id());
}

// The screen goes at each moment of a search, its threads wherever they are; the next one starts.
TEST(WindowLinkTest, ScreenMayGoAtAnyMomentOfASearch) {
  const auto shops = std::make_shared<ScriptedShops>();
  for (std::int32_t site = 1; site <= 3; ++site) shops->Answer(site, Block("Soap", "/", "2"));
  SearchEngine engine(shops->Services());
  for (std::size_t moment = 3; moment <= 7; ++moment) {
    Screen screen;
    ASSERT_EQ(engine.StartSearch(ScriptedShops::Agents(3), 1, "soap", screen.link), 3);
    screen.RunUntil([&] { return screen.messages.size() >= moment; });
    (void)engine.StopSearch();
    screen.link->Close();
    EXPECT_TRUE(shops->WaitForThreads());
  }
}

// "Stop" at the first report, "Done" as soon as the first end comes: what has been found by then is
// saved while other agents deliver, fail, or come back from where they were stuck.
TEST(WindowLinkTest, ResultsAreSavedRightAfterAStopWhileTheRestReports) {
  constexpr std::int32_t kAgents = 18;
  const auto shops = std::make_shared<ScriptedShops>();
  for (std::int32_t site = 1; site <= kAgents; ++site) {
    shops->Answer(site, Block("Soap", "/a", "3") + Block("Soap dish", "/b", "2"));
    if (site > 6) shops->Hold(site, site > 12);
  }
  const test::TempFolder folder;
  SavedSearches saved;
  saved.SetPaths(folder.File("websearch.dat"), folder.path());
  SearchEngine engine(shops->Services());
  std::size_t finished = 0;
  bool stopped = false;
  Screen screen([&](std::uint32_t message, std::uintptr_t, std::intptr_t) {
    if (message == WM_SEARCH_AGENT_RESULTS && !stopped) stopped = engine.StopSearch() == 0;
    if (message == WM_SEARCH_FINISHED) ++finished;
  });
  ASSERT_EQ(engine.StartSearch(ScriptedShops::Agents(kAgents), 1, "soap", screen.link), kAgents);
  screen.RunUntil([&] { return finished > 0; });
  EXPECT_TRUE(stopped);
  shops->Release();
  const SearchResultList results = engine.Results();
  const std::int32_t number = saved.SaveSearch(1, "soap", &results);
  screen.RunUntil([&] { return finished == kAgents; });

  EXPECT_GE(results.size(), 2U);
  EXPECT_EQ(results.size() % 2, 0U) << "half of what an agent has found";
  SearchResultList read;
  ASSERT_EQ(ReadSearchResults(read, saved.ResultsPath(number)), 0);
  EXPECT_EQ(read.size(), results.size());
  EXPECT_GE(engine.ResultCount(), results.size());
  EXPECT_LE(engine.ResultCount(), 12U) << "only six shops had a page";
  EXPECT_EQ(screen.messages.size(), 3U * kAgents) << "start, report and end of each";
  EXPECT_TRUE(shops->WaitForThreads());
}

// Nobody handles messages any more; the end of the program still comes.
TEST(WindowLinkTest, EngineEndsBehindAClosedScreen) {
  const auto shops = std::make_shared<ScriptedShops>();
  Screen screen;
  {
    SearchEngine engine(shops->Services());
    ASSERT_EQ(engine.StartSearch(ScriptedShops::Agents(5), 1, "soap", screen.link), 5);
    screen.RunOne();
    screen.link->Close();
  }
  EXPECT_EQ(shops->threads(), 0);
}

}  // namespace
}  // namespace brovanta
