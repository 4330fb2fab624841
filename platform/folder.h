// Whole folders: what is in them, who has them, how they go. Paths are native.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brovanta::platform {

/// The names in the folder in ascending order; nothing when it cannot be looked into, errno then
/// says why.
[[nodiscard]] std::optional<std::vector<std::string>> NamesIn(const std::string& folder);

/// Whether a folder stands there, or a link leads to one.
[[nodiscard]] bool IsFolder(const std::string& path);

/// Whether files can be made in the folder.
[[nodiscard]] bool IsWritableFolder(const std::string& path);

/// The bytes that can still be written on the device of the folder; nothing when the system does
/// not tell.
[[nodiscard]] std::optional<std::uint64_t> FreeSpaceAt(const std::string& folder);

/// The folder's one absolute name, without links and dots; empty when there is no such folder.
[[nodiscard]] std::string CanonicalFolder(const std::string& path);

/// The name that CanonicalFolder gives the folder once it is made there: what stands of it already
/// without links and dots, and the rest as it is given. Empty when that cannot be told.
[[nodiscard]] std::string CanonicalName(const std::string& path);

/// Removes a folder with everything in it; links in it are not followed. Does not sync. True when
/// nothing stands there any more.
[[nodiscard]] bool RemoveWholeFolder(const std::string& path);

/// A lock on the folder itself: no file in it, and nothing left when its holder ends, however that
/// happens. Keeps out only who asks for it too. Asks through SystemCalls, as every file does.
/// Movable.
class FolderLock {
 public:
  enum class Outcome {
    kTaken,
    kHeld,         ///< someone else has it, another lock of this process included
    kNotPossible,  ///< there is no such folder, or it cannot be locked
  };

  FolderLock() = default;
  FolderLock(FolderLock&& other) noexcept;
  FolderLock& operator=(FolderLock&& other) noexcept;
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock();

  /// Never waits. What is held already is let go first.
  [[nodiscard]] Outcome Take(const std::string& folder);
  void Release();
  [[nodiscard]] bool held() const { return descriptor_ != -1; }

 private:
  int descriptor_ = -1;
};

}  // namespace brovanta::platform
