// A page as the engine has it read: what is wanted of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "search/page_scraper.h"
#include "tests/search/agents.h"

namespace brovanta {
namespace {

using test::Block;
using test::PlainAgent;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScrapePageTest, SetFlagLeavesNothing) {
  std::atomic<std::int32_t> flag{0};
  EXPECT_EQ(ScrapePage(Block("A", "/1", "2"), PlainAgent(), "a", &flag).size(), 1U);
  flag = 1;
  EXPECT_THAT(ScrapePage(Block("A", "/1", "2"), PlainAgent(), "a", &flag), IsEmpty());
}

TEST(ScrapePageTest, IsCutShortOnlyWhereSomethingIsLeftOut) {
  std::atomic<std::int32_t> flag{0};
  bool cut_short = true;
  EXPECT_EQ(ScrapePage(Block("A", "/1", "2"), PlainAgent(), "a", &flag, &cut_short).size(), 1U);
  EXPECT_FALSE(cut_short);
  flag = 1;
  (void)ScrapePage(Block("A", "/1", "2"), PlainAgent(), "a", &flag, &cut_short);
  EXPECT_TRUE(cut_short);
  WebAgent agent = PlainAgent();
  agent.EndHeader = "nowhere";
  (void)ScrapePage(Block("A", "/1", "2"), agent, "a", &flag, &cut_short);
  EXPECT_FALSE(cut_short);
}

TEST(ScrapePageTest, KeepsWhatHasASearchWordAndAPrice) {
  const std::string page = Block("Red Shoe", "/1", "2") + Block("Hat", "/2", "2") +
                           Block("Blue shoe", "/3", "0") + Block("Shoe", "/4", "ask") +
                           Block("SHOELACE", "/5", "0.01");
  std::vector<std::string> titles;
  for (const auto& item : ScrapePage(page, PlainAgent(), "shoe")) titles.push_back(*item.Title);
  EXPECT_THAT(titles, ElementsAre("Red Shoe", "SHOELACE"));
}

TEST(ScrapePageTest, PriceOfLessThanACentIsAPrice) {
  const auto items = ScrapePage(Block("Soap", "/1", "0.004"), PlainAgent(), "soap");
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].Price, 0.004);
}

TEST(ScrapePageTest, AnyOfTheWordsIsEnoughInAnyLetterCase) {
  const std::string page = Block("Red Shoe", "/1", "2");
  EXPECT_EQ(ScrapePage(page, PlainAgent(), "shoe").size(), 1U);
  EXPECT_EQ(ScrapePage(page, PlainAgent(), "blue SHOE").size(), 1U);
  EXPECT_EQ(ScrapePage(page, PlainAgent(), "shoes").size(), 0U);
}

TEST(ScrapePageTest, WordsOfBlanksKeepNothing) {
  EXPECT_THAT(ScrapePage(Block("A", "/1", "2"), PlainAgent(), "  "), IsEmpty());
}

TEST(ScrapePageTest, AgentWithoutNameOrBlockMarkersFindsNothing) {
  for (const auto text : {&WebAgent::SiteName, &WebAgent::StartResult, &WebAgent::EndResult}) {
    WebAgent agent = PlainAgent();
    (agent.*text).reset();
    EXPECT_THAT(ScrapePage(Block("A", "/1", "2"), agent, "a"), IsEmpty());
  }
}

TEST(ScrapePageTest, DroppedItemsDoNotEndThePage) {
  EXPECT_EQ(ScrapePage(Block("X", "/1", "0") + Block("A", "/2", "2"), PlainAgent(), "a").size(),
            1U);
}

}  // namespace
}  // namespace brovanta
