#include "search/search_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>

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
