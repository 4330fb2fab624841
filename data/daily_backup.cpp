#include "data/daily_backup.h"

#include "data/backup_names.h"

namespace brovanta {

std::optional<DataSnapshot> DailyBackup::Read() const {
  if (backups_.Has(TodaysCopyName()) || !backups_.Obstacle().empty()) return std::nullopt;
  DataSnapshot snapshot;
  if (TakeDataSnapshot(data_folder_, snapshot) != SnapshotResult::kTaken) return std::nullopt;
  if (HoldsNothing(snapshot)) return std::nullopt;
  return snapshot;
}

bool DailyBackup::Keep(const DataSnapshot& snapshot, const std::stop_token& stop) const {
  if (!backups_.Keep(TodaysCopyName(), snapshot, stop)) return false;
  backups_.ClearAway();
  return true;
}

}  // namespace brovanta
