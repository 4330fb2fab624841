// The start of a search: who is started, and what happens before anybody goes on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
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
using test::Failed;
using test::Finished;
using test::RecordingWindow;
using test::ScriptedShops;
using test::Seen;
using test::Started;
using testing::ElementsAre;
using testing::IsEmpty;

using SearchEngineStartTest = test::SearchEngineTest;

TEST_F(SearchEngineStartTest, CategoryServedByNobodyStartsNothingAndSaysNothing) {
  EXPECT_EQ(engine_->StartSearch(ScriptedShops::Agents(3), 2, "soap", window_), 0);
  engine_.reset();
  EXPECT_THAT(window_->seen(), IsEmpty());
  EXPECT_THAT(shops_->urls(), IsEmpty());
}

// By the membership rule with all its quirks: the first occurrence only, its first digit only.
TEST_F(SearchEngineStartTest, OnlyAgentsThatServeTheCategoryAreStarted) {
  const std::vector<std::string> site_types{"1,3", "21", "12", "11,1", "2, 3", "12 1", "9"};
  std::vector<std::shared_ptr<const WebAgent>> agents;
  for (const std::string& site_type : site_types) {
    WebAgent agent = ScriptedShops::Agent(static_cast<std::int32_t>(agents.size() + 1));
    agent.SiteType = site_type;
    agents.push_back(ScriptedShops::Share(agent));
  }
  const std::vector<std::pair<std::int32_t, std::vector<std::int32_t>>> expected{
      {1, {1, 2}}, {2, {3, 5, 6}}, {3, {1, 5}}, {4, {}}, {9, {7}}, {11, {}}, {12, {}}, {21, {}}};
  for (const auto& [category, sites] : expected) {
    const auto window = std::make_shared<RecordingWindow>();
    EXPECT_EQ(engine_->StartSearch(agents, category, "soap", window),
              static_cast<std::int32_t>(sites.size()))
        << category;
    std::vector<std::int32_t> started;
    for (const Seen& seen : window->seen()) {
      if (seen.message == WM_SEARCH_AGENT_STARTED) started.push_back(seen.site);
    }
    EXPECT_EQ(started, sites) << category;
  }
}

TEST_F(SearchEngineStartTest, AgentThatGetsNoThreadIsNeitherCountedNorReported) {
  shops_->RefuseThread(1);
  shops_->Answer(1, Block("Soap", "/1", "2"));
  shops_->Answer(3, Block("Soap", "/3", "2"));
  EXPECT_EQ(Start(3), 2);
  ASSERT_TRUE(window_->WaitUntilFinished());
  for (const Seen& seen : window_->seen()) EXPECT_NE(seen.site, 2);
  EXPECT_EQ(window_->seen().back(), Finished(2));
}

TEST_F(SearchEngineStartTest, NoThreadAtAllIsNoSearch) {
  shops_->RefuseThread(0);
  EXPECT_EQ(Start(1), 0);
  EXPECT_THAT(window_->seen(), IsEmpty());
}

// Also before it reports what it could know at once.
class SearchEngineDelayTest : public SearchEngineStartTest {
 protected:
  // Two agents, the second without a keyword. Nothing happens before all have come to their sleep.
  void StartAndWake(const std::string& words) {
    WebAgent no_keyword = ScriptedShops::Agent(2);
    no_keyword.FormatString = "http://shop2.example/";
    shops_->HoldDelay();
    ASSERT_EQ(
        Start({ScriptedShops::Share(ScriptedShops::Agent(1)), ScriptedShops::Share(no_keyword)},
              window_, words),
        2);
    ASSERT_TRUE(shops_->WaitForDelays(2));
    EXPECT_THAT(window_->seen(), ElementsAre(Started(1), Started(2)));
    EXPECT_THAT(shops_->urls(), IsEmpty());
    EXPECT_THAT(shops_->delays(), ElementsAre(milliseconds(100), milliseconds(100)));
    shops_->EndDelay();
    ASSERT_TRUE(window_->WaitUntilFinished());
    EXPECT_EQ(shops_->delays().size(), 2U);
  }
};

TEST_F(SearchEngineDelayTest, EveryThreadSleepsBeforeItAsksOrReportsItsMissingKeyword) {
  StartAndWake("soap");
  EXPECT_EQ(shops_->urls().size(), 1U);
  EXPECT_THAT(window_->seen(), testing::IsSupersetOf({Failed(1, AGENT_NO_PAGE), Failed(2, -63)}));
}

TEST_F(SearchEngineDelayTest, EveryThreadSleepsBeforeItReportsMissingWords) {
  StartAndWake("");
  EXPECT_THAT(shops_->urls(), IsEmpty());
  EXPECT_THAT(window_->seen(), testing::IsSupersetOf({Failed(1, -62), Failed(2, -62)}));
}

TEST_F(SearchEngineStartTest, RealSleepIsOne) {
  const auto start = std::chrono::steady_clock::now();
  SearchServices::Real().sleep(kAgentDelay);
  EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(100));
}

TEST_F(SearchEngineStartTest, AgentsAreStartedInTheirOrder) {
  ASSERT_EQ(Start(5), 5);
  ASSERT_TRUE(window_->WaitUntilFinished());
  auto seen = window_->seen();
  seen.resize(5);
  EXPECT_THAT(seen, ElementsAre(Started(1), Started(2), Started(3), Started(4), Started(5)));
}

// However long it takes to start them: a quick agent neither reports nor ends the search meanwhile.
TEST_F(SearchEngineStartTest, NobodyGoesOnBeforeAllAreStarted) {
  bool early = false;
  const auto window = std::make_shared<RecordingWindow>([&](const Seen& seen) {
    if (seen == Started(3)) early = shops_->WaitForDownloads(1, milliseconds(300));
  });
  EXPECT_EQ(Start(ScriptedShops::Agents(3), window), 3);
  EXPECT_FALSE(early);
  ASSERT_TRUE(window->WaitUntilFinished());
  EXPECT_EQ(window->Count(WM_SEARCH_FINISHED), 1U);
}

}  // namespace
}  // namespace brovanta
