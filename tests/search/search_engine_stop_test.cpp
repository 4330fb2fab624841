// A search that is stopped.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "search/agent_status.h"
#include "search/search_engine.h"
#include "tests/search/agents.h"
#include "tests/search/recording_window.h"
#include "tests/search/scripted_shops.h"
#include "tests/search/search_engine_fixture.h"

namespace brovanta {
namespace {

using std::chrono::milliseconds;
using test::Block;
using test::Delivered;
using test::Failed;
using test::Finished;
using test::RecordingWindow;
using test::ScriptedShops;
using test::Seen;
using test::Started;
using testing::ElementsAre;

using SearchEngineStopTest = test::SearchEngineTest;

TEST_F(SearchEngineStopTest, StoppedAgentsAllFailAndEachSaysFinished) {
  for (std::int32_t site = 1; site <= 3; ++site) shops_->Hold(site);
  ASSERT_EQ(Start(3), 3);
  ASSERT_TRUE(shops_->WaitForDownloads(3));
  EXPECT_EQ(engine_->StopSearch(), 0);
  EXPECT_EQ(engine_->RunningCount(), 0U);
  ASSERT_TRUE(window_->WaitUntilFinished(3));
  ASSERT_TRUE(shops_->WaitForThreads());
  const auto seen = window_->seen();
  ASSERT_EQ(seen.size(), 9U);
  EXPECT_THAT(std::vector(seen.begin(), seen.begin() + 3),
              ElementsAre(Started(1), Started(2), Started(3)));
  std::vector<std::int32_t> failed;
  for (std::size_t i = 3; i < 9; i += 2) {
    EXPECT_EQ(seen[i], Failed(seen[i].site, 0x10000010));
    EXPECT_EQ(seen[i + 1], Finished(0));
    failed.push_back(seen[i].site);
  }
  EXPECT_THAT(failed, testing::UnorderedElementsAre(1, 2, 3)) << "each of them once";
}

// Nobody else's report comes between an agent's own and the end that belongs to it, however long
// the screen takes for either and however many wait to report meanwhile.
TEST_F(SearchEngineStopTest, ReportAndEndOfAnAgentStandTogether) {
  constexpr std::int32_t kAgents = 50;
  std::vector<bool> mixed;
  std::shared_ptr<RecordingWindow> window;
  window = std::make_shared<RecordingWindow>([&](const Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_STARTED || mixed.size() == 2) return;
    mixed.push_back(window->WaitFor(WM_SEARCH_AGENT_FAILED, 2, milliseconds(300)));
  });
  for (std::int32_t site = 1; site <= kAgents; ++site) shops_->Hold(site);
  ASSERT_EQ(Start(ScriptedShops::Agents(kAgents), window), kAgents);
  ASSERT_TRUE(shops_->WaitForDownloads(kAgents));
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(mixed, ElementsAre(false, false));
  const auto seen = window->seen();
  ASSERT_EQ(seen.size(), 3U * kAgents);
  for (std::size_t i = kAgents; i < seen.size(); i += 2) {
    EXPECT_EQ(seen[i], Failed(seen[i].site, AGENT_NO_PAGE));
    EXPECT_EQ(seen[i + 1], Finished(0));
  }
}

TEST_F(SearchEngineStopTest, AgentThatHasReportedLeavesTheOthersInTheList) {
  shops_->Hold(1);
  shops_->Answer(2, Block("Soap", "/2", "2"));
  ASSERT_EQ(Start(2), 2);
  ASSERT_TRUE(shops_->WaitForThreads(1));
  EXPECT_EQ(engine_->RunningCount(), 1U);
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads()) << "the one that was held has not been stopped";
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Started(2), Delivered(2, 1),
                                           Failed(1, 0x10000010), Finished(1)));
}

TEST_F(SearchEngineStopTest, StoppedAgentsReportToAnEmptyList) {
  std::vector<std::size_t> counts;
  const auto window = std::make_shared<RecordingWindow>([&](const Seen& seen) {
    if (seen.message != WM_SEARCH_AGENT_STARTED) counts.push_back(engine_->RunningCount());
  });
  for (std::int32_t site = 1; site <= 2; ++site) shops_->Hold(site);
  ASSERT_EQ(Start(ScriptedShops::Agents(2), window), 2);
  ASSERT_TRUE(shops_->WaitForDownloads(2));
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(counts, ElementsAre(0U, 0U, 0U, 0U));
}

TEST_F(SearchEngineStopTest, StoppingNothingIsNoError) {
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_EQ(window_->Count(WM_SEARCH_FINISHED), 1U);
}

TEST_F(SearchEngineStopTest, StoppedTwiceAgentsReportOnce) {
  shops_->Hold(1);
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  EXPECT_EQ(engine_->StopSearch(), 0);
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
}

// Read to its end the page would hold the thread for minutes: a marker of 150,000 wildcards that
// fails at its last one, for each of as many starts.
TEST_F(SearchEngineStopTest, StopEndsTheReadingOfAPage) {
  std::string marker;
  while (marker.size() < 300'000) marker += "*a";
  WebAgent agent = ScriptedShops::Agent(1);
  agent.StartResult = marker + "*ab";
  std::promise<void> downloaded;
  SearchServices services = shops_->Services();
  services.download = [&](const std::string&, std::uint32_t, const std::atomic<std::int32_t>&) {
    downloaded.set_value();
    return std::optional(std::string(319'999, 'a'));
  };
  engine_ = std::make_unique<SearchEngine>(services);
  ASSERT_EQ(Start({ScriptedShops::Share(agent)}, window_), 1);
  downloaded.get_future().wait();
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
}

// The page is there, and has been read to where it ends for the agent, when the stop is noticed.
TEST_F(SearchEngineStopTest, AgentThatHasReadItsPageDeliversBehindAStop) {
  WebAgent agent = ScriptedShops::Agent(1);
  agent.EndHeader = "nowhere in the page";
  std::promise<void> downloaded;
  std::promise<void> stopped;
  SearchServices services = shops_->Services();
  services.download = [&](const std::string&, std::uint32_t, const std::atomic<std::int32_t>&) {
    downloaded.set_value();
    stopped.get_future().wait();
    return std::optional(Block("Soap", "/1", "2"));
  };
  engine_ = std::make_unique<SearchEngine>(services);
  ASSERT_EQ(Start({ScriptedShops::Share(agent)}, window_), 1);
  downloaded.get_future().wait();
  EXPECT_EQ(engine_->StopSearch(), 0);
  stopped.set_value();
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Delivered(1, 0), Finished(0)));
}

// The screen may hold a message for as long as it likes.
TEST_F(SearchEngineStopTest, StoppingDoesNotWaitForAMessageThatIsBeingHandled) {
  std::promise<void> handled;
  const auto wait = handled.get_future().share();
  const auto window = std::make_shared<RecordingWindow>([wait](const Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_FAILED) wait.wait();
  });
  shops_->Hold(2);
  ASSERT_EQ(Start(ScriptedShops::Agents(2), window), 2);
  ASSERT_TRUE(window->WaitFor(WM_SEARCH_AGENT_FAILED));
  EXPECT_EQ(engine_->StopSearch(), 0);
  EXPECT_EQ(engine_->RunningCount(), 0U);
  handled.set_value();
  ASSERT_TRUE(window->WaitUntilFinished(2));
}

// Whoever has read its page when it is stopped delivers what was on it; all others fail.
TEST_F(SearchEngineStopTest, StopAtEveryMessageEndsTheSearch) {
  for (std::int32_t site = 1; site <= 3; ++site) {
    shops_->Answer(site, Block("Soap", "/1", "2"));
  }
  for (std::size_t moment = 1; moment <= 7; ++moment) {
    std::atomic<std::size_t> messages = 0;
    const auto window = std::make_shared<RecordingWindow>([&](const Seen&) {
      if (++messages == moment) (void)engine_->StopSearch();
    });
    const std::int32_t count = Start(ScriptedShops::Agents(3), window);
    EXPECT_EQ(count, moment <= 3 ? 3 - static_cast<std::int32_t>(moment) : 3) << moment;
    ASSERT_TRUE(shops_->WaitForThreads());
    const std::size_t ended =
        window->Count(WM_SEARCH_AGENT_RESULTS) + window->Count(WM_SEARCH_AGENT_FAILED);
    EXPECT_EQ(ended, 3U) << moment;
    EXPECT_GE(window->Count(WM_SEARCH_FINISHED), 1U) << moment;
    EXPECT_EQ(window->seen().back().message, WM_SEARCH_FINISHED) << moment;
    EXPECT_EQ(engine_->RunningCount(), 0U) << moment;
  }
}

}  // namespace
}  // namespace brovanta
