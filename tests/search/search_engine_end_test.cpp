// The program ends while a search runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

#include "tests/search/search_engine_fixture.h"

namespace brovanta {
namespace {

using test::Block;
using test::ScriptedShops;
using SearchEngineEndTest = test::SearchEngineTest;

TEST_F(SearchEngineEndTest, EndOfTheProgramEndsTheSearch) {
  for (std::int32_t site = 1; site <= 10; ++site) shops_->Hold(site);
  ASSERT_EQ(Start(10), 10);
  ASSERT_TRUE(shops_->WaitForDownloads(10));
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 0);
  EXPECT_EQ(window_->Count(WM_SEARCH_AGENT_FAILED), 10U);
}

TEST_F(SearchEngineEndTest, EndOfTheProgramWithinTheDelayEndsTheSearch) {
  shops_->HoldDelay();
  ASSERT_EQ(Start(10), 10);
  ASSERT_TRUE(shops_->WaitForDelays(10));
  // The end waits for threads that have seen nothing of it yet; each finds its flag set.
  std::thread clock([this] { shops_->EndDelay(); });
  engine_.reset();
  clock.join();
  EXPECT_EQ(shops_->threads(), 0);
}

TEST_F(SearchEngineEndTest, EndOfTheProgramDoesNotWaitForAStuckDownload) {
  SearchServices services = shops_->Services();
  services.end_wait = std::chrono::milliseconds(0);
  engine_ = std::make_unique<SearchEngine>(services);
  shops_->Hold(1, true);
  shops_->Hold(2);
  ASSERT_EQ(Start(2), 2);
  ASSERT_TRUE(shops_->WaitForDownloads(2));
  EXPECT_EQ(engine_->StopSearch(), 0);
  ASSERT_TRUE(shops_->WaitForThreads(1));
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 1);
  shops_->Release();
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_EQ(window_->Count(WM_SEARCH_AGENT_FAILED), 2U);
}

// Its threads are stuck on their way to a screen that has not let go of them.
TEST_F(SearchEngineEndTest, EndOfTheProgramDoesNotWaitForAMessageForEver) {
  std::promise<void> handled;
  const auto wait = handled.get_future().share();
  const auto window = std::make_shared<test::RecordingWindow>([wait](const test::Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_FAILED) wait.wait();
  });
  SearchServices services = shops_->Services();
  services.end_wait = std::chrono::milliseconds(0);
  engine_ = std::make_unique<SearchEngine>(services);
  ASSERT_EQ(Start(ScriptedShops::Agents(2), window), 2);
  ASSERT_TRUE(window->WaitFor(WM_SEARCH_AGENT_FAILED));
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 2);
  handled.set_value();
  ASSERT_TRUE(window->WaitUntilFinished());
}

TEST_F(SearchEngineEndTest, ThreadsAreWaitedForForASecond) {
  EXPECT_EQ(SearchServices::Real().end_wait, std::chrono::seconds(1));
}

// The agents are what can be seen of a search from outside.
TEST_F(SearchEngineEndTest, StopLetsGoOfEarlierSearchesThatHaveEnded) {
  shops_->Hold(1, true);
  auto agents = ScriptedShops::Agents(1);
  const std::weak_ptr<const WebAgent> earlier = agents.front();
  ASSERT_EQ(Start(agents, window_), 1);
  agents.clear();
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  shops_->Answer(2, Block("Soap", "/1", "2"));
  const auto last = std::make_shared<test::RecordingWindow>();
  ASSERT_EQ(Start({ScriptedShops::Share(ScriptedShops::Agent(2))}, last), 1);
  ASSERT_TRUE(last->WaitUntilFinished());
  EXPECT_EQ(engine_->StopSearch(), 0);
  EXPECT_FALSE(earlier.expired()) << "its thread still runs";
  shops_->Release();
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_EQ(engine_->StopSearch(), 0);
  EXPECT_TRUE(earlier.expired());
  EXPECT_THAT(Titles(), testing::ElementsAre("Soap")) << "the last search's results stay";
  EXPECT_EQ(engine_->StopSearch(), 0);  // its thread has been joined already
}

TEST_F(SearchEngineEndTest, EndOfTheProgramEndsWhatEarlierSearchesLeft) {
  shops_->Hold(1);
  for (int i = 0; i < 5; ++i) ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(shops_->WaitForDownloads(5));
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 0);
}

}  // namespace
}  // namespace brovanta
