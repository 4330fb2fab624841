// The program ends while a search runs.
#include <gtest/gtest.h>

#include "tests/search/search_engine_fixture.h"

namespace brovanta {
namespace {

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
  ASSERT_EQ(Start(10), 10);
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 0);
}

TEST_F(SearchEngineEndTest, EndOfTheProgramDoesNotWaitForAStuckDownload) {
  shops_->Hold(1, true);
  shops_->Hold(2);
  ASSERT_EQ(Start(2), 2);
  ASSERT_TRUE(shops_->WaitForDownloads(2));
  engine_.reset();
  EXPECT_EQ(shops_->threads(), 1);
  shops_->Release();
  ASSERT_TRUE(shops_->WaitForThreads());
  EXPECT_EQ(window_->Count(WM_SEARCH_AGENT_FAILED), 2U);
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
