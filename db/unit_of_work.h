// The one place where bytes of the data files change: a set of changes that happens whole or not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "db/journal.h"
#include "platform/file.h"

namespace brovanta {

/// Collects changes to one or more files of a folder, those of its results folder included, and
/// carries them out in Commit. Until then no byte has changed; when Commit fails every file is put
/// back as it was, and when the program ends in the middle, RollBackJournal does that later. The
/// files that it was given stay open and locked until Commit returns or the object is destroyed, so
/// that what was read before is still true when it is written. Not reusable after Commit. One
/// thread.
class UnitOfWork {
 public:
  using FileIndex = std::size_t;

  /// `journal_path` is that of the journal in the folder of the files. What the journal holds from
  /// before must have been rolled back when the files are read: RollBackJournal comes first.
  explicit UnitOfWork(std::string journal_path) : journal_path_(std::move(journal_path)) {}
  UnitOfWork(const UnitOfWork&) = delete;
  UnitOfWork& operator=(const UnitOfWork&) = delete;
  ~UnitOfWork() = default;

  /// Takes the journal now instead of in Commit: what is read from here on is true until then, of
  /// files too that are replaced and so cannot be held open. 0 or ERR_OPEN.
  [[nodiscard]] int Begin();

  /// Takes over an open file; changes and reads name it by the index.
  FileIndex Adopt(platform::File file, std::string path);
  [[nodiscard]] platform::File& file(FileIndex index) { return files_[index].file; }

  /// Notes that a file, which must not be there yet, shall be made and hold the bytes. Later writes
  /// name it by the index; it cannot be read.
  [[nodiscard]] FileIndex Make(std::string path, std::span<const std::byte> bytes);

  /// Notes that `bytes` shall stand at `offset`, extending the file where they reach past its end.
  void Write(FileIndex index, std::int64_t offset, std::span<const std::byte> bytes);

  /// Notes that a whole new file shall stand at the documented path (temporary file and rename).
  void Replace(std::string path, std::span<const std::byte> bytes);

  /// Notes that the file at the documented path shall be gone.
  void Remove(std::string path);

  /// Carries the changes out in the order in which they were noted; after 0 they have reached the
  /// storage device. ERR_OPEN when someone else holds the journal or a file to replace, or has put
  /// another file in the place of one that was taken over or that was not there, or a file cannot
  /// be made or is none that the journal may name, or ERR_IO, also when the new file could not be
  /// written beside the one to replace; with an error everything is as before, or will be when the
  /// journal is rolled back. Only a device that takes neither the end of the change nor its records
  /// again may leave the change as it is, whole, with ERR_IO.
  [[nodiscard]] int Commit();

  /// After a Commit that failed: the file to replace or remove that it could not read, or could not
  /// put anything in the place of. Empty when it was something else that failed.
  [[nodiscard]] const std::string& refused_path() const { return refused_path_; }

 private:
  enum class Kind { kMake, kWrite, kReplace, kRemove };
  struct OpenFile {
    platform::File file;
    std::string path;
    bool is_new = false;  // not open before Commit makes it
  };
  struct Change {
    Kind kind = Kind::kWrite;
    FileIndex file = 0;
    std::int64_t offset = 0;
    std::string path;  // of a file that is replaced or removed
    std::vector<std::byte> bytes;
  };

  [[nodiscard]] static bool IsWhole(const Change& change);
  [[nodiscard]] const std::string& PathOf(const Change& change) const;
  [[nodiscard]] bool NeedsJournal() const;
  [[nodiscard]] int WriteJournal();
  [[nodiscard]] int NoteAfter();
  void NoteBytesAfter(const Change& change, UndoRecord& undo) const;
  [[nodiscard]] int NoteUndo(const Change& change);
  [[nodiscard]] int NoteOldFile(const std::string& path, UndoRecord& undo);
  [[nodiscard]] int CarryOutAll();
  [[nodiscard]] bool IsTakenMeanwhile(std::size_t index) const;
  [[nodiscard]] int CarryOut(std::size_t index);
  [[nodiscard]] int CarryOutWhole(const Change& change);
  [[nodiscard]] int CarryOutReplacement(const Change& change);
  [[nodiscard]] int Finish();
  [[nodiscard]] bool SyncFiles();
  [[nodiscard]] bool FilesStand() const;
  [[nodiscard]] bool PutBackChange(const Change& change, const UndoRecord& undo);
  void RollBack();

  std::string journal_path_;
  Journal journal_;
  bool is_begun_ = false;
  std::vector<OpenFile> files_;
  std::vector<Change> changes_;
  std::vector<UndoRecord> undos_;  // one for each change, filled before the first is carried out
  std::string refused_path_;
  std::size_t begun_ = 0;  // so many changes may have left a trace
};

}  // namespace brovanta
