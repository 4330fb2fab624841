#include "tests/faults/strikes.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <string_view>

#include "tests/faults/power_loss.h"

namespace brovanta::test {

using Outcome = Trial::Outcome;
using platform::SystemCallsInUse;

bool IsNightly() {
  const char* const mode = std::getenv("BROVANTA_FAULTS");
  return mode != nullptr && std::string_view(mode) == "nightly";
}

int Striker::Strike(Strikes strikes) {
  EXPECT_EQ(trial_.what_is_wrong(), "") << scenario_.name;
  StopAtCalls();
  FailCalls(Fault::kIo, false);
  FailCalls(Fault::kShort, false);
  FailCalls(Fault::kNoSpace, false);
  FailCalls(Fault::kFull, false);
  if (IsNightly()) {
    FailCalls(Fault::kInterrupted, false);
    FailCalls(Fault::kIo, true);
    FailCalls(Fault::kNoSpace, true);
  }
  if (strikes == Strikes::kCallsAndPower) LosePower(IsNightly() ? 150 : 2);
  std::cout << scenario_.name << ": " << points_ << " points\n";
  return points_;
}

void Striker::Expect(Outcome outcome, const std::string& where) {
  ++points_;
  EXPECT_EQ(trial_.Judge(outcome), "") << scenario_.name << ", " << where;
}

void Striker::FailCalls(Fault fault, bool lasting) {
  for (int k = 1; !testing::Test::HasFailure(); ++k) {
    trial_.Begin();
    FaultyCalls calls(fault, k, lasting);
    bool succeeded = false;
    {
      const SystemCallsInUse in_use(calls);
      succeeded = trial_.Run();
    }
    if (k > calls.count()) {
      EXPECT_TRUE(succeeded) << scenario_.name;
      return;
    }
    if (!calls.has_struck()) continue;  // a short transfer applies to few calls
    // With a device that fails for good nothing can be put back: the new state may stand then,
    // although nobody was told that it does.
    const Outcome failed = lasting ? Outcome::kFailedForGood : Outcome::kFailed;
    Expect(succeeded ? Outcome::kSucceeded : failed,
           "fault " + std::to_string(static_cast<int>(fault)) +
               (lasting ? " from call " : " at call ") + std::to_string(k));
  }
}

void Striker::StopAtCalls() {
  for (int k = 1; !testing::Test::HasFailure(); ++k) {
    trial_.Begin();
    FaultyCalls calls(Fault::kStop, k);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const SystemCallsInUse in_use(calls);
      _exit(trial_.Run() ? 1 : 2);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << scenario_.name << " at call " << k;
    if (WEXITSTATUS(status) != 0) {
      EXPECT_EQ(WEXITSTATUS(status), 1) << scenario_.name;
      return;
    }
    Expect(Outcome::kUnknown, "ended at call " + std::to_string(k));
  }
}

void Striker::LosePower(int draws) {
  trial_.Begin();
  const Snapshot before = AllFiles(folder_.path());
  RecordingCalls recording(folder_.path());
  {
    const SystemCallsInUse in_use(recording);
    ASSERT_TRUE(trial_.Run()) << scenario_.name;
  }
  std::mt19937 random(1);
  const std::size_t events = recording.events().size();
  for (std::size_t count = 0; count <= events && !testing::Test::HasFailure(); ++count) {
    const Outcome outcome = count == events ? Outcome::kSucceeded : Outcome::kUnknown;
    const auto lose = [&](Survivors survivors, int draw) {
      Restore(folder_.path(), DiskAfter(before, recording, count, survivors, random));
      Expect(outcome, "power lost after event " + std::to_string(count) + " of " +
                          std::to_string(events) + ", survivors " +
                          std::to_string(static_cast<int>(survivors)) + ", draw " +
                          std::to_string(draw));
    };
    for (const Survivors survivors : kWholeSurvivors) lose(survivors, 0);
    for (int draw = 0; draw < draws; ++draw) lose(Survivors::kSome, draw);
  }
}

}  // namespace brovanta::test
