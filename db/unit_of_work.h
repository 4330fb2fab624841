// The one place where bytes of the data files change: a set of changes that happens whole or not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file.h"

namespace brovanta {

/// Collects changes to one or more files and carries them out in Commit. Until then no byte has
/// changed; when Commit fails every file is put back as it was. The files that it was given stay
/// open and locked until Commit returns or the object is destroyed, so that what was read before
/// is still true when it is written. Not reusable after Commit. One thread.
class UnitOfWork {
 public:
  using FileIndex = std::size_t;

  UnitOfWork() = default;
  UnitOfWork(const UnitOfWork&) = delete;
  UnitOfWork& operator=(const UnitOfWork&) = delete;
  ~UnitOfWork();

  /// Takes over an open file; changes and reads name it by the index.
  FileIndex Adopt(platform::File file, std::string path);
  [[nodiscard]] platform::File& file(FileIndex index) { return files_[index].file; }

  /// Makes a file that does not exist yet, whole and at once, so that it can be opened and added
  /// to. It is removed again unless Commit succeeds. 0 or ERR_OPEN.
  [[nodiscard]] int Create(const std::string& path, std::span<const std::byte> bytes);

  /// Notes that `bytes` shall stand at `offset`, extending the file where they reach past its end.
  void Write(FileIndex index, std::int64_t offset, std::span<const std::byte> bytes);

  /// Notes that a whole new file shall stand at the documented path (temporary file and rename).
  void Replace(std::string path, std::span<const std::byte> bytes);

  /// Carries the changes out in the order in which they were noted and syncs them. 0, ERR_OPEN when
  /// a file to replace is held by someone else or cannot be created, or ERR_IO; with an error
  /// everything is as before.
  [[nodiscard]] int Commit();

 private:
  struct OpenFile {
    platform::File file;
    std::string path;
  };
  struct Change {
    bool replaces = false;
    FileIndex file = 0;
    std::int64_t offset = 0;
    std::string path;  // of a replacement
    std::vector<std::byte> bytes;
  };
  // All that is needed to put a change back.
  struct Undo {
    std::optional<std::int64_t> old_size;  // nothing: the file was not there
    std::vector<std::byte> old_bytes;      // what stood where the change goes, or the whole file
  };

  [[nodiscard]] int SaveOldBytes(const Change& change, Undo& undo);
  [[nodiscard]] int SaveOldFile(const std::string& path, Undo& undo) const;
  [[nodiscard]] int CarryOut(const Change& change);
  [[nodiscard]] bool SyncFiles();
  void PutBack(const Change& change, const Undo& undo);
  void RollBack(std::size_t changes_begun);
  void RemoveCreated();

  std::vector<OpenFile> files_;
  std::vector<std::string> created_;
  std::vector<Change> changes_;
  std::vector<Undo> undos_;  // one for each change, filled before the first is carried out
};

}  // namespace brovanta
