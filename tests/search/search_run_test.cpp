#include "search/search_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <new>
#include <utility>

#include "search/agent_status.h"
#include "tests/search/agents.h"
#include "tests/search/recording_window.h"
#include "tests/search/scripted_shops.h"

namespace brovanta {
namespace {

using test::Block;
using test::Delivered;
using test::Failed;
using test::Finished;
using test::RecordingWindow;
using test::ScriptedShops;
using test::Started;
using testing::ElementsAre;

class SearchRunTest : public testing::Test {
 protected:
  ~SearchRunTest() override {
    shops_->Release();
    run_->Abandon();
    run_->JoinUntil(std::chrono::steady_clock::now() + std::chrono::seconds(30));
  }
  bool StartAgent(std::int32_t site) {
    return run_->StartAgent(ScriptedShops::Share(ScriptedShops::Agent(site)));
  }

  const std::shared_ptr<ScriptedShops> shops_ = std::make_shared<ScriptedShops>();
  const std::shared_ptr<RecordingWindow> window_ = std::make_shared<RecordingWindow>();
  const std::shared_ptr<SearchRun> run_ =
      std::make_shared<SearchRun>(shops_->Services(), "soap", window_, 7);
};

TEST_F(SearchRunTest, AgentIsRegisteredWhenItsStartIsReported) {
  EXPECT_TRUE(StartAgent(1));
  EXPECT_EQ(run_->RunningCount(), 1U);
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1)));
}

TEST_F(SearchRunTest, AgentWithoutThreadIsNotRegistered) {
  shops_->RefuseThread(0);
  EXPECT_FALSE(StartAgent(1));
  EXPECT_EQ(run_->RunningCount(), 0U);
  EXPECT_TRUE(run_->JoinIfEnded());
}

TEST_F(SearchRunTest, AgentWithoutMemoryForItsThreadLeavesTheOthersAlone) {
  SearchServices services = shops_->Services();
  int started = 0;
  services.start_thread = [&, start = services.start_thread](std::function<void()> procedure) {
    if (++started == 2) throw std::bad_alloc();
    return start(std::move(procedure));
  };
  const auto run = std::make_shared<SearchRun>(services, "soap", window_, 7);
  for (std::int32_t site = 1; site <= 3; ++site) {
    EXPECT_EQ(run->StartAgent(ScriptedShops::Share(ScriptedShops::Agent(site))), site != 2);
  }
  EXPECT_EQ(run->RunningCount(), 2U);
  run->OpenGate();
  ASSERT_TRUE(window_->WaitUntilFinished());
  run->JoinUntil(std::chrono::steady_clock::now() + std::chrono::seconds(30));
  EXPECT_THAT(window_->seen(),
              testing::UnorderedElementsAre(Started(1), Started(3), Failed(1, AGENT_NO_PAGE),
                                            Failed(3, AGENT_NO_PAGE), Finished(0)));
}

// As when memory runs out on the way to the screen.
TEST_F(SearchRunTest, ReportThatIsLostEndsItsAgentAllTheSame) {
  for (const std::uint32_t lost :
       {WM_SEARCH_AGENT_STARTED, WM_SEARCH_AGENT_RESULTS, WM_SEARCH_AGENT_FAILED}) {
    shops_->Answer(1, Block("Soap", "/1", "5"));
    const auto window = std::make_shared<RecordingWindow>([lost](const test::Seen& seen) {
      if (seen.message == lost) throw std::bad_alloc();
    });
    const auto run = std::make_shared<SearchRun>(shops_->Services(), "soap", window, 7);
    for (std::int32_t site = 1; site <= 2; ++site) {
      EXPECT_TRUE(run->StartAgent(ScriptedShops::Share(ScriptedShops::Agent(site))));
    }
    run->OpenGate();
    run->JoinUntil(std::chrono::steady_clock::now() + std::chrono::seconds(30));
    EXPECT_THAT(window->seen(),
                testing::UnorderedElementsAre(Started(1), Started(2), Delivered(1, 1),
                                              Failed(2, AGENT_NO_PAGE), Finished(1)))
        << lost;
    EXPECT_EQ(run->RunningCount(), 0U) << lost;
  }
}

TEST_F(SearchRunTest, AgentsWaitBehindTheGate) {
  ASSERT_TRUE(StartAgent(1));
  EXPECT_FALSE(shops_->WaitForDownloads(1, std::chrono::milliseconds(200)));
  run_->OpenGate();
  EXPECT_TRUE(shops_->WaitForDownloads(1));
}

TEST_F(SearchRunTest, AbandoningOpensTheGateToo) {
  ASSERT_TRUE(StartAgent(1));
  run_->Abandon();
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
}

TEST_F(SearchRunTest, ResultsCollectInTheOrderOfDelivery) {
  shops_->Answer(1, Block("Soap", "/1", "5"));
  shops_->Answer(2, Block("Soap dish", "/2", "1"));
  shops_->Hold(2);
  ASSERT_TRUE(StartAgent(2));
  ASSERT_TRUE(StartAgent(1));
  run_->OpenGate();
  ASSERT_TRUE(window_->WaitFor(WM_SEARCH_AGENT_RESULTS));
  EXPECT_EQ(run_->ResultCount(), 1U);
  shops_->Release();
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(),
              ElementsAre(Started(2), Started(1), Delivered(1, 1), Delivered(2, 1), Finished(2)));
  EXPECT_EQ(run_->Results().items().at(1).Title, "Soap dish");
}

TEST_F(SearchRunTest, CountReachesTheDownloadAsItsContext) {
  ASSERT_TRUE(StartAgent(1));
  run_->OpenGate();
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  EXPECT_THAT(shops_->contexts(), ElementsAre(7U));
}

TEST_F(SearchRunTest, IsNotJoinedWhileAThreadRuns) {
  shops_->Hold(1);
  ASSERT_TRUE(StartAgent(1));
  run_->OpenGate();
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  EXPECT_FALSE(run_->JoinIfEnded());
  run_->Stop();
  run_->JoinUntil(std::chrono::steady_clock::now() + std::chrono::seconds(30));
  EXPECT_TRUE(shops_->WaitForThreads());
}

TEST_F(SearchRunTest, ThreadLeftBehindKeepsTheRunUntilItEnds) {
  shops_->Hold(1, true);
  auto run = std::make_shared<SearchRun>(shops_->Services(), "soap", window_, 8);
  const std::weak_ptr<SearchRun> watched = run;
  ASSERT_TRUE(run->StartAgent(ScriptedShops::Share(ScriptedShops::Agent(1))));
  run->OpenGate();
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  run->Abandon();
  run->JoinUntil(std::chrono::steady_clock::now());
  run.reset();
  EXPECT_FALSE(watched.expired());
  shops_->Release();
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace brovanta
