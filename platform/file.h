// Files opened without sharing: whoever has one open keeps everybody else out until it is closed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brovanta::platform {

/// The path that the operating system is given for a documented path: "\\" becomes "/".
[[nodiscard]] std::string NativePath(std::string_view path);

/// Tells one state of a file from another: whoever writes to a file or puts another in its place
/// changes it. Times are the system's own, which no program can set, but they advance in steps: two
/// changes within one step look the same.
struct FileState {
  std::uint64_t device = 0;
  std::uint64_t number = 0;  ///< of the file on its device
  std::int64_t size = 0;
  std::int64_t changed = 0;  ///< seconds since 1970 of the last change
  std::int64_t changed_nanoseconds = 0;

  friend bool operator==(const FileState&, const FileState&) = default;
};

/// An open file with an exclusive lock (close-on-exec). A file that anyone else holds, another
/// thread of this process included, does not open. Movable; closing is the destructor's work.
/// One thread at a time.
class File {
 public:
  enum class Mode {
    kRead,       ///< existing file, reading only
    kReadWrite,  ///< existing file, reading and writing
    kCreateNew,  ///< a file that must not exist yet, reading and writing, 0600
  };

  File() = default;
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File();

  /// Opens a documented path ("\\" between folder and name). False when it is missing, not
  /// permitted, no regular file, or held by someone else; it never waits. A file without any
  /// permission to write does not open for writing, whoever runs the program. Never changes a byte.
  [[nodiscard]] bool Open(const std::string& path, Mode mode);
  void Close();
  [[nodiscard]] bool is_open() const { return descriptor_ >= 0; }

  /// Reads from the current position up to the size of `buffer`. Returns the bytes read, fewer only
  /// at the end of the file, or -1.
  [[nodiscard]] std::int64_t Read(std::span<std::byte> buffer);

  /// Reads at `offset` without moving the position; result as Read.
  [[nodiscard]] std::int64_t ReadAt(std::int64_t offset, std::span<std::byte> buffer);

  /// Writes all bytes at `offset`, extending the file where needed. False when any byte could not
  /// be written; then an unknown part of them has been.
  [[nodiscard]] bool WriteAt(std::int64_t offset, std::span<const std::byte> bytes);

  /// The size in bytes, or -1.
  [[nodiscard]] std::int64_t Size() const;

  /// The state of the file, nothing where the system does not tell.
  [[nodiscard]] std::optional<FileState> State() const;

  enum class Place {
    kThere,
    kElsewhere,  ///< another file stands at the path, or none
    kUnknown,    ///< the system does not tell
  };

  /// Whether this file is the one that stands at the documented path: a lock keeps nobody from
  /// renaming another one over it, or it away.
  [[nodiscard]] Place PlaceAt(const std::string& path) const;

  /// Cuts the file, or extends it by zeros, to the size in bytes.
  [[nodiscard]] bool Truncate(std::int64_t size);

  /// Returns when the bytes have reached the storage device; false when they may not have.
  [[nodiscard]] bool Sync();

 private:
  int descriptor_ = -1;
};

/// Whether something stands at the documented path, or may stand there: false only when it does
/// not.
[[nodiscard]] bool FileExists(const std::string& path);

/// The size in bytes of the file at the documented path: 0 when nothing stands there, -1 when the
/// system does not tell.
[[nodiscard]] std::int64_t SizeOfFile(const std::string& path);

/// Whether something that is no regular file, such as a folder, is seen at the documented path.
[[nodiscard]] bool IsOtherThanFile(const std::string& path);

/// Whether a file is seen at the documented path that File::Open opens for reading only: nobody may
/// write to it, or not this program.
[[nodiscard]] bool IsReadOnlyFile(const std::string& path);

/// What became of putting a file in the place of another.
enum class Replacement {
  kHeld,       ///< the old file stands untouched: someone else holds it, or it may not be written
  kRefused,    ///< the old file stands untouched: the new one could not be written
  kDone,       ///< the new file stands and has reached the storage device
  kNotSynced,  ///< the new file stands, but the next power loss may bring the old one back
};

/// Puts a whole new file in the place of whatever stands at the documented path: a temporary file
/// beside it is written, synced and renamed, and the folder is synced. The old file stays untouched
/// until the rename; when it is refused, no temporary is left either. The new file has the
/// permissions of the old one, 0600 when there was none. A file held open by someone else, or one
/// that may not be written, is not replaced. Where a symbolic link stands, the file that it leads
/// to is replaced.
[[nodiscard]] Replacement TryReplaceFile(const std::string& path, std::span<const std::byte> bytes);

/// The same; true when it is done.
[[nodiscard]] bool ReplaceFile(const std::string& path, std::span<const std::byte> bytes);

/// Removes the file at the documented path and syncs the folder; true when nothing stands there
/// any more.
[[nodiscard]] bool RemoveFile(const std::string& path);

/// Renames within a folder, documented paths, and syncs the folder; what stood at `to` is gone
/// then.
[[nodiscard]] bool RenameFile(const std::string& from, const std::string& to);

/// Returns when the names in the folder of the file have reached the storage device; false when
/// they may not have. True where the file system knows no such thing.
[[nodiscard]] bool SyncFolderOf(const std::string& path);

/// The path under which a file that is none of ours, or damaged, is kept: "<path>.bad", or with a
/// number behind it where that is taken. Nothing when a thousand are.
[[nodiscard]] std::optional<std::string> FreePathAside(const std::string& path);

/// Makes the folder at the documented path and those above it that are missing, for their owner
/// alone (0700). True when the folder stands, new or not; otherwise errno says why.
[[nodiscard]] bool CreateFolder(const std::string& path);

}  // namespace brovanta::platform
