// The data files of a folder as they are at one moment.
#pragma once

#include <map>
#include <string>

namespace brovanta {

/// Bytes by name in the folder, "WebSearch/2.dat" for a results file. The journal, the settings and
/// what else lies in the folder are no data.
using DataSnapshot = std::map<std::string, std::string>;

enum class SnapshotResult {
  kTaken,
  kBusy,        ///< someone holds a file, or a change is under way
  kUnfinished,  ///< a change was left in the middle: the journal has to be rolled back first
  kFailed,      ///< a file or the folder cannot be read
};

/// Reads all data files while it holds the journal, without which nobody changes more than one
/// file. Changes nothing and never waits; `snapshot` is empty unless it is taken. A folder without
/// data files gives an empty one. `refused` is the name of the file that was not read, "." for the
/// folder itself; empty when there is none to blame.
[[nodiscard]] SnapshotResult TakeDataSnapshot(const std::string& folder, DataSnapshot& snapshot,
                                              std::string& refused);
[[nodiscard]] SnapshotResult TakeDataSnapshot(const std::string& folder, DataSnapshot& snapshot);

/// The same for one who holds the journal already, which is empty.
[[nodiscard]] SnapshotResult TakeDataSnapshotInChange(const std::string& folder,
                                                      DataSnapshot& snapshot, std::string& refused);

/// Why there is no snapshot, for a person; `refused` as above.
[[nodiscard]] std::string WhyNoSnapshot(SnapshotResult result, const std::string& refused);

/// Whether there is nothing in it that a user has entered or that an update has brought: no file at
/// all, or empty name lists alone.
[[nodiscard]] bool HoldsNothing(const DataSnapshot& snapshot);

}  // namespace brovanta
