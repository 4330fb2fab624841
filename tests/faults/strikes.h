// An operation struck at each of its system calls, one after the other.
#pragma once

#include <string>

#include "tests/faults/scenario.h"
#include "tests/support/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// Whether the long run was asked for: BROVANTA_FAULTS set to "nightly".
[[nodiscard]] bool IsNightly();

/// What can happen to an operation.
enum class Strikes {
  kCalls,          ///< the process ends before a call, or a call fails
  kCallsAndPower,  ///< and the power goes after each change
};

/// Strikes one scenario in one folder. What is wrong is an expectation that fails; then it stops.
class Striker {
 public:
  Striker(const Scenario& scenario, const TempFolder& folder)
      : scenario_(scenario), folder_(folder), trial_(scenario, folder) {}

  /// Returns the number of points, which it prints as well.
  int Strike(Strikes strikes = Strikes::kCallsAndPower);

 private:
  void FailCalls(Fault fault, bool lasting);
  void StopAtCalls();
  void LosePower(int draws);
  void Expect(Trial::Outcome outcome, const std::string& where);

  const Scenario& scenario_;
  const TempFolder& folder_;
  const Trial trial_;
  int points_ = 0;
};

}  // namespace brovanta::test
