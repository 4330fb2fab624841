#include "search/search_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "search/agent_status.h"
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
using testing::IsEmpty;

using test::SearchEngineTest;

TEST_F(SearchEngineTest, AgentDeliversWhatIsOnItsPage) {
  shops_->Answer(1, Block("Soap", "/1", "2.50") + Block("Red soap", "/2", "1"));
  EXPECT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Delivered(1, 2), Finished(2)));
  EXPECT_THAT(Titles(), ElementsAre("Soap", "Red soap"));
  EXPECT_EQ(engine_->ResultCount(), 2U);
}

TEST_F(SearchEngineTest, MessagesHaveTheirNumbers) {
  EXPECT_EQ(WM_SEARCH_AGENT_STARTED, 1124U);
  EXPECT_EQ(WM_SEARCH_AGENT_RESULTS, 1126U);
  EXPECT_EQ(WM_SEARCH_AGENT_FAILED, 1127U);
  EXPECT_EQ(WM_SEARCH_FINISHED, 1128U);
}

TEST_F(SearchEngineTest, PageWithoutResultsIsDeliveredAsNone) {
  shops_->Answer(1, "sold out");
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Delivered(1, 0), Finished(0)));
}

TEST_F(SearchEngineTest, OnlyItemsWithAWordAndAPriceAreDelivered) {
  shops_->Answer(1, Block("Soap", "/1", "0") + Block("Soap", "/2", "ask") +
                        Block("Hat", "/3", "3") + Block("SOAP dish", "/4", "4"));
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(Titles(), ElementsAre("SOAP dish"));
}

TEST_F(SearchEngineTest, AddressHasTheWordsAndTheSearchANumber) {
  ASSERT_EQ(Start(ScriptedShops::Agents(2), window_, "red shoes"), 2);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(shops_->urls(), testing::UnorderedElementsAre("http://shop1.example/?q=red+shoes",
                                                            "http://shop2.example/?q=red+shoes"));
  EXPECT_EQ(shops_->contexts().size(), 1U);
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished(2));
  EXPECT_EQ(shops_->contexts().size(), 2U);
}

TEST_F(SearchEngineTest, EveryFailureHasItsStatus) {
  WebAgent no_keyword = ScriptedShops::Agent(1);
  no_keyword.FormatString = " KEYWORD http://shop1.example/";
  WebAgent no_format = ScriptedShops::Agent(2);
  no_format.FormatString.reset();
  const std::vector agents{ScriptedShops::Share(no_keyword), ScriptedShops::Share(no_format),
                           ScriptedShops::Share(ScriptedShops::Agent(3))};
  ASSERT_EQ(Start(agents, window_), 3);
  ASSERT_TRUE(window_->WaitUntilFinished());
  const auto seen = window_->seen();
  EXPECT_EQ(seen.back(), Finished(0));
  EXPECT_THAT(seen,
              testing::UnorderedElementsAre(Started(1), Started(2), Started(3), Failed(1, -63),
                                            Failed(2, -63), Failed(3, 0x10000010), Finished(0)));
}

TEST_F(SearchEngineTest, WithoutWordsEveryAgentFails) {
  shops_->Answer(1, Block("Soap", "/1", "2"));
  ASSERT_EQ(Start(ScriptedShops::Agents(1), window_, ""), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Failed(1, -62), Finished(0)));
  EXPECT_THAT(shops_->urls(), IsEmpty());
}

TEST_F(SearchEngineTest, WhatIsThrownWithinAnAgentIsItsFailure) {
  shops_->OnDownload([] { throw std::runtime_error("no memory"); });
  ASSERT_EQ(Start(2), 2);
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_EQ(window_->Count(WM_SEARCH_AGENT_FAILED), 2U);
  EXPECT_EQ(window_->seen().back(), Finished(0));
}

TEST_F(SearchEngineTest, NobodyNeedsToListen) {
  shops_->Answer(1, Block("Soap", "/1", "2"));
  ASSERT_EQ(Start(ScriptedShops::Agents(2), nullptr), 2);
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(Titles(), ElementsAre("Soap"));
  EXPECT_EQ(engine_->RunningCount(), 0U);
}

TEST_F(SearchEngineTest, OneMessageComesAtATime) {
  for (std::int32_t site = 1; site <= 20; ++site) {
    shops_->Answer(site, Block("Soap", "/1", "2"));
  }
  std::promise<void> handled;
  const auto wait = handled.get_future().share();
  std::atomic<bool> first = true;
  const auto window = std::make_shared<RecordingWindow>([&first, wait](const Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_RESULTS && first.exchange(false)) wait.wait();
  });
  ASSERT_EQ(Start(ScriptedShops::Agents(20), window), 20);
  ASSERT_TRUE(window->WaitFor(WM_SEARCH_AGENT_RESULTS));
  ASSERT_TRUE(shops_->WaitForDownloads(20));
  EXPECT_FALSE(window->WaitFor(WM_SEARCH_AGENT_RESULTS, 2, milliseconds(300)));
  handled.set_value();
  ASSERT_TRUE(window->WaitUntilFinished());
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_EQ(window->at_once(), 1);
}

TEST_F(SearchEngineTest, ResultsAndCountsCanBeReadWhileAMessageIsHandled) {
  std::vector<std::size_t> counts;
  shops_->Answer(1, Block("Soap", "/1", "2"));
  const auto window = std::make_shared<RecordingWindow>([&](const Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_RESULTS) {
      counts = {engine_->ResultCount(), engine_->RunningCount(), engine_->Results().size()};
    }
  });
  ASSERT_EQ(Start(ScriptedShops::Agents(1), window), 1);
  ASSERT_TRUE(window->WaitUntilFinished());
  EXPECT_THAT(counts, ElementsAre(1U, 1U, 1U));
}

TEST_F(SearchEngineTest, CategoryAndWordsAreThoseOfTheLastSearch) {
  EXPECT_EQ(engine_->category_id(), 0);
  EXPECT_EQ(engine_->words(), "");
  (void)engine_->StartSearch(ScriptedShops::Agents(1), 1, "soap", window_);
  (void)engine_->StartSearch(ScriptedShops::Agents(1), 7, "milk", window_);
  EXPECT_EQ(engine_->category_id(), 7);
  EXPECT_EQ(engine_->words(), "milk");
}

// An agent is in the list while its report is handled and has left it when the end is.
TEST_F(SearchEngineTest, AgentsLeaveTheListBetweenTheirReportAndTheEnd) {
  std::vector<std::size_t> reported;
  std::vector<std::size_t> finished;
  const auto window = std::make_shared<RecordingWindow>([&](const Seen& seen) {
    if (seen.message == WM_SEARCH_AGENT_FAILED) reported.push_back(engine_->RunningCount());
    if (seen.message == WM_SEARCH_FINISHED) finished.push_back(engine_->RunningCount());
  });
  ASSERT_EQ(Start(ScriptedShops::Agents(3), window), 3);
  ASSERT_TRUE(window->WaitUntilFinished());
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(reported, ElementsAre(3U, 2U, 1U));
  EXPECT_THAT(finished, ElementsAre(0U));
}

TEST_F(SearchEngineTest, NextSearchStartsWithoutTheResultsOfTheLast) {
  shops_->Answer(1, Block("Soap", "/1", "2"));
  ASSERT_EQ(Start(1), 1);
  ASSERT_TRUE(window_->WaitUntilFinished());
  ASSERT_EQ(engine_->ResultCount(), 1U);
  EXPECT_EQ(engine_->StartSearch({}, 1, "soap", window_), 0);
  EXPECT_EQ(engine_->ResultCount(), 0U);
}

// Agents of the search before are still at work; their results and reports stay their own.
TEST_F(SearchEngineTest, NextSearchHasNothingOfTheOneBefore) {
  shops_->Hold(1, true);
  shops_->Answer(1, Block("Soap", "/old", "2"));
  const auto first = std::make_shared<RecordingWindow>();
  ASSERT_EQ(Start(ScriptedShops::Agents(1), first), 1);
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  EXPECT_EQ(engine_->StopSearch(), 0);

  shops_->Answer(2, Block("Milk", "/new", "3"));
  shops_->Hold(2);
  const std::vector agents{ScriptedShops::Share(ScriptedShops::Agent(2))};
  ASSERT_EQ(Start(agents, window_, "milk"), 1);
  ASSERT_TRUE(shops_->WaitForDownloads(2));
  shops_->Release();
  ASSERT_TRUE(window_->WaitUntilFinished());
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(2), Delivered(2, 1), Finished(1)));
  EXPECT_THAT(first->seen(), ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
  EXPECT_THAT(Titles(), ElementsAre("Milk"));
}

TEST_F(SearchEngineTest, NextSearchStopsTheOneBefore) {
  shops_->Hold(1);
  const auto first = std::make_shared<RecordingWindow>();
  ASSERT_EQ(Start(ScriptedShops::Agents(1), first), 1);
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  ASSERT_EQ(engine_->StartSearch({}, 1, "soap", window_), 0);
  ASSERT_TRUE(first->WaitUntilFinished());
  EXPECT_THAT(first->seen(), ElementsAre(Started(1), Failed(1, AGENT_NO_PAGE), Finished(0)));
  EXPECT_THAT(window_->seen(), IsEmpty());
}

TEST_F(SearchEngineTest, AgentsOfARunningSearchOutliveTheirList) {
  shops_->Hold(1);
  shops_->Answer(1, Block("Soap", "/1", "2"));
  auto agents = ScriptedShops::Agents(1);
  ASSERT_EQ(Start(agents, window_), 1);
  agents.clear();
  ASSERT_TRUE(shops_->WaitForDownloads(1));
  shops_->Release();
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Delivered(1, 1), Finished(1)));
}

TEST_F(SearchEngineTest, TwoHundredAgentsRunAtOnce) {
  for (std::int32_t site = 1; site <= 200; ++site) {
    shops_->Hold(site);
    shops_->Answer(site, Block("Soap", "/1", "2"));
  }
  ASSERT_EQ(Start(200), 200);
  ASSERT_TRUE(shops_->WaitForDownloads(200));
  EXPECT_EQ(engine_->RunningCount(), 200U);
  shops_->Release();
  ASSERT_TRUE(window_->WaitUntilFinished());
  EXPECT_EQ(window_->seen().back(), Finished(200));
  EXPECT_EQ(window_->Count(WM_SEARCH_FINISHED), 1U);
  EXPECT_EQ(engine_->ResultCount(), 200U);
}

}  // namespace
}  // namespace brovanta
