// "backup.dat", the roll-back journal: what the data files held before the change under way.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "db/journal_format.h"
#include "platform/file.h"

namespace brovanta {

/// The documented path of the journal in the folder of a data file.
[[nodiscard]] std::string JournalBeside(std::string_view path);

/// Finishes what a program that ended in the middle left behind: puts every file back as the
/// journal says and empties the journal. One that was not written to its end, is none of ours or
/// does not fit the files beside it is not followed, but renamed ("backup.dat.bad"). Without a
/// journal this asks the system one question. 0; ERR_OPEN when someone else holds the journal or
/// one of its files, or a file of it cannot be opened or renamed; ERR_IO when a file could not be
/// put back. After an error the journal stands, to be rolled back another time.
[[nodiscard]] int RollBackJournal(const std::string& path);

/// Whether the journal may have something to roll back; asks the system for its size only. While
/// this says no, a record file that the asker holds open is no half of a change: whoever changes it
/// holds it from before the records are written until they are gone.
[[nodiscard]] bool MayHoldRecords(const std::string& path);

/// Whether what stands in the place of the journal says nothing about the files beside it, decided
/// as RollBackJournal does, by every byte: another file or none of ours, not written to its end, or
/// emptied. False when someone else holds it or it cannot be read. Changes nothing.
[[nodiscard]] bool HasNothingToFollow(const std::string& path);

/// Puts the file back as the record says, for a record that overwrites. Does not sync. False when
/// the file could not be written.
[[nodiscard]] bool PutBack(platform::File& file, const UndoRecord& record);

/// Removes a file that was made at the path and written to, its bytes first: the next file that is
/// made might show them. Another one that stands there stays. False when it could not be removed.
[[nodiscard]] bool RemoveMade(platform::File& file, const std::string& path);

/// The same for a file that was replaced or made by a rename; synced. 0, ERR_OPEN when someone else
/// holds it, or ERR_IO.
[[nodiscard]] int PutBackWhole(const std::string& path, const UndoRecord& record);

/// The journal of one unit of work.
class Journal {
 public:
  /// Takes the journal at the documented path for this writer alone; a missing one is made, empty.
  /// 0, or ERR_OPEN when someone else has it, when it cannot be made or when it is not empty.
  [[nodiscard]] int Hold(const std::string& path);

  /// Writes the records. When the result is 0 they have reached the storage device, and the files
  /// may change; with ERR_IO the journal is as empty as before, with ERR_OPEN it is gone: another
  /// file stands in its place.
  [[nodiscard]] int Write(std::span<const UndoRecord> records);

  /// Writes once more what Write wrote, after an Empty that failed: whether it did empty the
  /// journal is not known then.
  [[nodiscard]] bool WriteAgain();

  /// Empties the journal: the change has happened. 0, or ERR_IO when that may not have reached the
  /// storage device.
  [[nodiscard]] int Empty();

  [[nodiscard]] bool is_active() const { return !written_.empty(); }

  /// Lets others have the journal, whatever stands in it.
  void Release() { file_.Close(); }

 private:
  platform::File file_;
  std::string path_;
  bool is_new_ = false;
  std::vector<std::byte> written_;  // nothing: nothing to roll back
};

}  // namespace brovanta
