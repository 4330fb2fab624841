// The copies of a data folder, in a folder of their own beside it.
#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "data/data_snapshot.h"

namespace brovanta {

/// A copy that is whole: a data folder like any other.
struct BackupCopy {
  std::string name;
  bool is_daily = false;  ///< else what a restore replaced
  std::size_t files = 0;
  std::int64_t bytes = 0;
};

/// "<data folder>.backups". A copy is made and removed under another name, so that what has the
/// name of a copy is whole whenever the program or the power ends. Whoever changes anything in here
/// holds the lock of the data folder (platform::FolderLock).
class BackupFolder {
 public:
  /// The data folder need not be there any more. Links are followed: the copies lie beside the
  /// folder itself.
  explicit BackupFolder(const std::string& data_folder);

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] std::string PathOf(const std::string& name) const { return path_ + "/" + name; }

  /// From the oldest to the newest.
  [[nodiscard]] std::vector<BackupCopy> Copies() const;
  [[nodiscard]] bool Has(const std::string& name) const;

  /// So much room a copy leaves on the device, for the data files themselves.
  static constexpr std::uint64_t kRoomToLeave = std::uint64_t{16} << 20;

  /// Why no copy can be made here, in words; empty when one can.
  [[nodiscard]] std::string Obstacle() const;

  /// Keeps the snapshot as a copy of this name, which must be free, unless that would leave less
  /// than kRoomToLeave on the device. When the result is true it has
  /// reached the storage device; otherwise it stands whole, but the next power loss may take it
  /// away, or only something under another name, which ClearAway removes. Ends early, with false,
  /// when it is asked to stop.
  [[nodiscard]] bool Keep(const std::string& name, const DataSnapshot& snapshot,
                          const std::stop_token& stop = {}) const;

  /// Removes the daily copies that are not kept any longer (CopiesToRemove), and what a program
  /// that ended in the middle has left. What is not ours stays.
  void ClearAway() const;

 private:
  std::string path_;
};

}  // namespace brovanta
