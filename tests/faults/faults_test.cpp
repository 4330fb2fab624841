// Every operation that writes, with a fault at every system call of the file layer. BROVANTA_FAULTS
// set to "nightly" runs many times as many. The first start's set-up and the update server are
// struck in their own folders.
#include <gtest/gtest.h>

#include <iostream>

#include "tests/faults/scenario.h"
#include "tests/faults/strikes.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {

constexpr std::int64_t kNoon = 1714996800;  // Monday 2024-05-06
constexpr int kLeastPoints = 5000;
constexpr int kLeastNightlyPoints = 40000;
constexpr int kLeastCopyPoints = 400;
constexpr int kLeastRestorePoints = 1000;
constexpr int kLeastDeletionPoints = 150;

class FaultsTest : public testing::Test {
 protected:
  FixedClock clock_{kNoon};
  TempFolder folder_;
};

TEST_F(FaultsTest, AtEveryCallOfEveryOperationTheOldOrTheNewStateStands) {
  int points = 0;
  for (const Scenario& scenario : Scenarios()) {
    points += Striker(scenario, folder_).Strike();
    ASSERT_FALSE(HasFailure());
  }
  std::cout << points << " points in all\n";
  EXPECT_GE(points, IsNightly() ? kLeastNightlyPoints : kLeastPoints);
}

TEST_F(FaultsTest, ADailyCopyIsWholeOrNotThere) {
  EXPECT_GE(Striker(DailyCopyScenario(), folder_).Strike(), kLeastCopyPoints);
}

TEST_F(FaultsTest, ARestoreBringsAllBackAndLosesNothing) {
  EXPECT_GE(Striker(RestoredCopyScenario(), folder_).Strike(), kLeastRestorePoints);
}

TEST_F(FaultsTest, ResultsGoAfterTheirSearch) {
  EXPECT_GE(Striker(DeletedResultsScenario(), folder_).Strike(), kLeastDeletionPoints);
}

TEST_F(FaultsTest, AWrongStateIsNoticed) {
  // The judge itself: without the journal the torn files stand as they are.
  const Scenario& scenario = Scenarios().back();
  const Trial trial(scenario, folder_);
  trial.Begin();
  ASSERT_TRUE(folder_.Read("backup.dat"));
  folder_.Write("backup.dat", Bytes());
  EXPECT_NE(trial.Judge(Trial::Outcome::kUnknown), "");
}

}  // namespace
}  // namespace brovanta::test
