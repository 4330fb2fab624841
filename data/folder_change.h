// Putting other data files in the place of those of a folder.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/backup_folder.h"
#include "data/data_snapshot.h"
#include "db/unit_of_work.h"
#include "platform/folder.h"

namespace brovanta {

/// What became of it.
struct FolderChangeEnd {
  enum class Outcome {
    kDone,
    kSame,       ///< the folder holds the very same files already: nothing was done
    kNoCopy,     ///< there is no copy to restore, or none of that name
    kNoFolder,   ///< neither the folder nor a copy of it is there
    kHasData,    ///< there are data files, and nobody has said that they may be replaced
    kInUse,      ///< the program works in the folder, or someone holds a file
    kFailed,     ///< nothing has changed
    kUndecided,  ///< the device failed on the way back too: the next start, or the next change of
                 ///< this kind, undoes what has been done
  };
  Outcome outcome = Outcome::kFailed;
  std::string kept_as;      ///< the name of the copy of what was replaced; empty: there was nothing
  std::size_t written = 0;  ///< files
  std::size_t removed = 0;
  std::string words;  ///< what went wrong
};

/// One change, in steps. Each returns whether to go on; when not, end() tells why. The folder is
/// locked from the first step on, as long as this lives.
class FolderChange {
 public:
  using Outcome = FolderChangeEnd::Outcome;

  /// The folder need not be there.
  explicit FolderChange(const std::string& folder);

  [[nodiscard]] const std::string& folder() const { return folder_; }
  [[nodiscard]] const BackupFolder& backups() const { return backups_; }
  [[nodiscard]] const FolderChangeEnd& end() const { return end_; }

  /// Makes the folder if it is missing, locks it, and undoes what was left in the middle.
  [[nodiscard]] bool TakeFolder();
  /// Reads the data files of a folder; `what` names it for the user.
  [[nodiscard]] bool Read(const std::string& from, DataSnapshot& snapshot, const std::string& what);
  /// Reads those that stand there; the same ones as wanted end the change. From here on the journal
  /// is held, without which nobody changes any of them: what is kept is what is replaced.
  [[nodiscard]] bool ReadCurrent(const DataSnapshot& wanted);
  [[nodiscard]] const DataSnapshot& current() const { return current_; }
  /// Keeps them as a copy, if there are any.
  [[nodiscard]] bool KeepCurrent();
  /// Makes the data files those of the snapshot, as one unit of work: an interruption at any point
  /// leaves the old ones or the new ones, or the old ones after the roll-back with which every
  /// start of the program begins.
  [[nodiscard]] bool Replace(const DataSnapshot& wanted);

  /// Ends the change and lets the journal go; always false.
  bool Stop(Outcome outcome, std::string words);

 private:
  [[nodiscard]] bool Accept(SnapshotResult result, const std::string& refused,
                            const std::string& what);

  std::string folder_;
  std::string journal_;
  BackupFolder backups_;
  platform::FolderLock lock_;
  std::optional<UnitOfWork> work_;
  DataSnapshot current_;
  FolderChangeEnd end_;
};

}  // namespace brovanta
