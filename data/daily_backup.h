// The copy that the program keeps at the first start of a day.
#pragma once

#include <optional>
#include <stop_token>
#include <string>

#include "data/backup_folder.h"
#include "data/data_snapshot.h"

namespace brovanta {

/// In two steps, because they belong to different moments. Reading takes the time of reading and
/// holds the files meanwhile; it is done where nobody can save. Keeping waits for the storage
/// device again and again, but touches no data file; it is done on a thread of its own.
class DailyBackup {
 public:
  /// The caller holds the lock of the data folder as long as this lives.
  explicit DailyBackup(const std::string& data_folder)
      : data_folder_(data_folder), backups_(data_folder) {}

  /// The snapshot to keep; nothing when there is a copy of today, when the folder holds nothing
  /// that a user would miss, when no copy can be kept, or when the files cannot be read just now.
  [[nodiscard]] std::optional<DataSnapshot> Read() const;

  /// Keeps it as the copy of today and clears away what is too old. False when it could not be
  /// kept; then nothing is cleared away either.
  [[nodiscard]] bool Keep(const DataSnapshot& snapshot, const std::stop_token& stop) const;

 private:
  std::string data_folder_;
  BackupFolder backups_;
};

}  // namespace brovanta
