// Every operation that writes, with a fault at every system call of the file layer. BROVANTA_FAULTS
// set to "nightly" runs many times as many.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

#include "tests/faults/power_loss.h"
#include "tests/faults/scenario.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {
namespace {

using platform::SystemCallsInUse;
using Outcome = Trial::Outcome;

constexpr std::int64_t kNoon = 1714996800;  // Monday 2024-05-06
constexpr int kLeastPoints = 5000;
constexpr int kLeastNightlyPoints = 40000;

bool IsNightly() {
  const char* const mode = std::getenv("BROVANTA_FAULTS");
  return mode != nullptr && std::string_view(mode) == "nightly";
}

/// Counts the points at which an operation was struck.
class FaultsTest : public testing::Test {
 protected:
  void Expect(const Trial& trial, Outcome outcome, const std::string& where) {
    ++points_;
    const std::string wrong = trial.Judge(outcome);
    EXPECT_EQ(wrong, "") << where;
  }

  void FailCalls(const Scenario& scenario, const Trial& trial, Fault fault, bool lasting);
  void StopAtCalls(const Scenario& scenario, const Trial& trial);
  void LosePower(const Scenario& scenario, const Trial& trial, int draws);

  [[nodiscard]] int points() const { return points_; }

  FixedClock clock_{kNoon};
  TempFolder folder_;

 private:
  int points_ = 0;
};

void FaultsTest::FailCalls(const Scenario& scenario, const Trial& trial, Fault fault,
                           bool lasting) {
  for (int k = 1;; ++k) {
    trial.Begin();
    FaultyCalls calls(fault, k, lasting);
    bool succeeded = false;
    {
      const SystemCallsInUse in_use(calls);
      succeeded = trial.Run();
    }
    if (k > calls.count()) {
      EXPECT_TRUE(succeeded) << scenario.name;
      return;
    }
    if (!calls.has_struck()) continue;  // a short transfer applies to few calls
    // With a device that fails for good nothing can be put back: the new state may stand then,
    // although nobody was told that it does.
    const Outcome failed = lasting ? Outcome::kUnknown : Outcome::kFailed;
    Expect(trial, succeeded ? Outcome::kSucceeded : failed,
           scenario.name + ", fault " + std::to_string(static_cast<int>(fault)) +
               (lasting ? " from call " : " at call ") + std::to_string(k));
    if (HasFailure()) return;
  }
}

void FaultsTest::StopAtCalls(const Scenario& scenario, const Trial& trial) {
  for (int k = 1;; ++k) {
    trial.Begin();
    FaultyCalls calls(Fault::kStop, k);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const SystemCallsInUse in_use(calls);
      _exit(trial.Run() ? 1 : 2);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << scenario.name << " at call " << k;
    if (WEXITSTATUS(status) != 0) {
      EXPECT_EQ(WEXITSTATUS(status), 1) << scenario.name;
      return;
    }
    Expect(trial, Outcome::kUnknown, scenario.name + " ended at call " + std::to_string(k));
    if (HasFailure()) return;
  }
}

void FaultsTest::LosePower(const Scenario& scenario, const Trial& trial, int draws) {
  trial.Begin();
  const Snapshot before = AllFiles(folder_.path());
  RecordingCalls recording(folder_.path());
  {
    const SystemCallsInUse in_use(recording);
    ASSERT_TRUE(trial.Run()) << scenario.name;
  }
  std::mt19937 random(1);
  const std::size_t events = recording.events().size();
  for (std::size_t count = 0; count <= events; ++count) {
    const Outcome outcome = count == events ? Outcome::kSucceeded : Outcome::kUnknown;
    const auto lose = [&](Survivors survivors, int draw) {
      Restore(folder_.path(), DiskAfter(before, recording, count, survivors, random));
      Expect(trial, outcome,
             scenario.name + ", power lost after event " + std::to_string(count) + " of " +
                 std::to_string(events) + ", survivors " +
                 std::to_string(static_cast<int>(survivors)) + ", draw " + std::to_string(draw));
    };
    for (const Survivors survivors :
         {Survivors::kAll, Survivors::kNone, Survivors::kNamesOnly, Survivors::kBytesOnly}) {
      lose(survivors, 0);
    }
    for (int draw = 0; draw < draws; ++draw) lose(Survivors::kSome, draw);
    if (HasFailure()) return;
  }
}

TEST_F(FaultsTest, AtEveryCallOfEveryOperationTheOldOrTheNewStateStands) {
  const bool nightly = IsNightly();
  for (const Scenario& scenario : Scenarios()) {
    const Trial trial(scenario, folder_);
    ASSERT_EQ(trial.what_is_wrong(), "") << scenario.name;
    const int before = points();
    StopAtCalls(scenario, trial);
    FailCalls(scenario, trial, Fault::kIo, false);
    FailCalls(scenario, trial, Fault::kShort, false);
    FailCalls(scenario, trial, Fault::kNoSpace, false);
    if (nightly) {
      FailCalls(scenario, trial, Fault::kInterrupted, false);
      FailCalls(scenario, trial, Fault::kIo, true);
      FailCalls(scenario, trial, Fault::kNoSpace, true);
    }
    LosePower(scenario, trial, nightly ? 60 : 2);
    std::cout << scenario.name << ": " << points() - before << " points\n";
    ASSERT_FALSE(HasFailure());
  }
  std::cout << points() << " points in all\n";
  EXPECT_GE(points(), nightly ? kLeastNightlyPoints : kLeastPoints);
}

TEST_F(FaultsTest, AWrongStateIsNoticed) {
  // The judge itself: without the journal the torn files stand as they are.
  const Scenario& scenario = Scenarios().back();
  const Trial trial(scenario, folder_);
  trial.Begin();
  ASSERT_TRUE(folder_.Read("backup.dat"));
  folder_.Write("backup.dat", Bytes());
  EXPECT_NE(trial.Judge(Outcome::kUnknown), "");
}

}  // namespace
}  // namespace brovanta::test
