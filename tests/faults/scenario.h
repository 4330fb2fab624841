// The operations that write, each with the files it starts from.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

namespace brovanta::test {

/// The files of a folder by their path in it.
using Snapshot = std::map<std::string, Bytes>;

[[nodiscard]] Snapshot AllFiles(const std::string& folder);

/// The data files: neither the journal nor what is left of a temporary.
[[nodiscard]] Snapshot TakeSnapshot(const std::string& folder);

/// Makes the folder hold these files and nothing else.
void Restore(const std::string& folder, const Snapshot& files);

struct Scenario {
  std::string name;

  /// Writes the files that are there before.
  std::function<void(const TempFolder& folder)> prepare;

  /// Opens what is to be opened in the folder and carries the operation out. Whether it said that
  /// it succeeded.
  std::function<bool(const std::string& folder)> run;

  /// The files of each step, in order. A step happens whole or not, and no step without those
  /// before it.
  std::vector<std::set<std::string>> steps;

  /// With one step of a single file that is replaced: the new file may stand although its folder
  /// could not be synced, and the operation said that it failed.
  bool may_stand_unconfirmed = false;

  /// The files of the step that change nevertheless when a call fails which only the others need,
  /// and the operation says that it failed.
  std::set<std::string> left_when_refused = {};

  /// Instead of whole states: says what is wrong in the folder, nothing when all is well.
  std::function<std::string(const std::string& folder, bool succeeded)> judge = {};
};

/// What a download brings stands in this file; it is no data.
inline constexpr char kScratchName[] = "update.dat";

[[nodiscard]] const std::vector<Scenario>& Scenarios();

/// Those of copies and of results, each with a judge of its own.
[[nodiscard]] Scenario DailyCopyScenario();
[[nodiscard]] Scenario RestoredCopyScenario();
[[nodiscard]] Scenario DeletedResultsScenario();

/// One of them: an update from the server.
[[nodiscard]] Scenario UpdateScenario();

/// A scenario with its states. What stands in the folder is judged after it was opened again.
class Trial {
 public:
  /// Carries the operation out once, without faults. `what_is_wrong` is not empty when that fails.
  Trial(const Scenario& scenario, const TempFolder& folder);

  [[nodiscard]] const Snapshot& old_files() const { return old_files_; }
  [[nodiscard]] const std::string& what_is_wrong() const { return what_is_wrong_; }

  void Begin() const { Restore(folder_.path(), prepared_files_); }
  [[nodiscard]] bool Run() const { return scenario_.run(folder_.path()); }

  enum class Outcome {
    kSucceeded,
    kFailed,
    kFailedForGood,  ///< the device fails on: it is not known what could be put back
    kUnknown,        ///< the program ended
  };

  /// Opens the database and compares with the states. Empty when all is well.
  [[nodiscard]] std::string Judge(Outcome outcome) const;

 private:
  [[nodiscard]] std::string JudgeStates(Outcome outcome) const;

  const Scenario& scenario_;
  const TempFolder& folder_;
  Snapshot prepared_files_;
  Snapshot old_files_;
  std::vector<Snapshot> states_;  // old, after the first step, ...
  Snapshot refused_state_;
  std::string what_is_wrong_;
};

}  // namespace brovanta::test
