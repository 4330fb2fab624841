// Operations on whole files and folders. Declared in platform/file.h.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>  // geteuid

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/file.h"
#include "platform/system_calls.h"

namespace brovanta::platform {
namespace {

std::string FolderOf(const std::string& native) {
  const std::size_t slash = native.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : native.substr(0, slash);
}

// Where symbolic links lead, or the path itself where nothing stands.
std::string ResolvedPath(const std::string& native) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(native.c_str(), nullptr),
                                                         &std::free);
  return real != nullptr ? std::string(real.get()) : native;
}

bool WriteAll(int descriptor, std::span<const std::byte> bytes) {
  off_t offset = 0;
  while (!bytes.empty()) {
    const ssize_t count = Calls().WriteAt(descriptor, bytes.data(), bytes.size(), offset);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
    offset += count;
  }
  return true;
}

bool SyncAll(int descriptor) {
  int result = Calls().Sync(descriptor);
  while (result != 0 && errno == EINTR) result = Calls().Sync(descriptor);
  return result == 0;
}

bool TakeOver(int descriptor, const struct stat& old) {
  // Only the superuser may give a file away; for everybody else the owner is the same already.
  if (old.st_uid != geteuid() || old.st_gid != getegid()) {
    [[maybe_unused]] const int ignored = Calls().SetOwner(descriptor, old.st_uid, old.st_gid);
  }
  return Calls().SetMode(descriptor, old.st_mode & 07777) == 0;
}

// Writes and syncs a temporary beside `native`; its path, empty when that failed.
std::string WriteTemporary(const std::string& native, const struct stat* old,
                           std::span<const std::byte> bytes) {
  std::string temporary = native + ".XXXXXX";
  const int descriptor = Calls().MakeTemporary(temporary.data());
  if (descriptor < 0) return "";
  const bool written = (old == nullptr || TakeOver(descriptor, *old)) &&
                       WriteAll(descriptor, bytes) && SyncAll(descriptor);
  if (Calls().Close(descriptor) == 0 && written) return temporary;
  Calls().Remove(temporary.c_str());
  return "";
}

// Some file systems cannot sync a folder; there the rename is all that can be had.
bool SyncNativeFolder(const std::string& folder) {
  const int descriptor = Calls().Open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (descriptor < 0) return errno == EACCES;  // it may be written, not looked into
  const bool synced = SyncAll(descriptor) || errno == EINVAL || errno == ENOTSUP;
  Calls().Close(descriptor);
  return synced;
}

}  // namespace

bool SyncFolderOf(const std::string& path) { return SyncNativeFolder(FolderOf(NativePath(path))); }

Replacement TryReplaceFile(const std::string& path, std::span<const std::byte> bytes) {
  const std::string native = ResolvedPath(NativePath(path));
  struct stat status {};
  const struct stat* old = nullptr;
  File held;  // until the new file stands
  if (Calls().LinkStatus(native.c_str(), &status) == 0) {
    old = &status;
    if (!held.Open(native, File::Mode::kReadWrite)) return Replacement::kHeld;
  } else if (errno != ENOENT) {
    return Replacement::kRefused;
  }
  const std::string temporary = WriteTemporary(native, old, bytes);
  if (temporary.empty()) return Replacement::kRefused;
  if (Calls().Rename(temporary.c_str(), native.c_str()) != 0) {
    Calls().Remove(temporary.c_str());
    return Replacement::kRefused;
  }
  return SyncNativeFolder(FolderOf(native)) ? Replacement::kDone : Replacement::kNotSynced;
}

bool ReplaceFile(const std::string& path, std::span<const std::byte> bytes) {
  return TryReplaceFile(path, bytes) == Replacement::kDone;
}

bool RemoveFile(const std::string& path) {
  const std::string native = NativePath(path);
  const bool removed = Calls().Remove(native.c_str()) == 0;
  if (!removed && errno != ENOENT && errno != ENOTDIR) return false;
  // Where nothing stood, an earlier removal may still wait; a folder that is gone has no names.
  if (SyncNativeFolder(FolderOf(native))) return true;
  return !removed && (errno == ENOENT || errno == ENOTDIR);
}

bool RenameFile(const std::string& from, const std::string& to) {
  const std::string native = NativePath(to);
  if (Calls().Rename(NativePath(from).c_str(), native.c_str()) != 0) return false;
  return SyncNativeFolder(FolderOf(native));
}

std::optional<std::string> FreePathAside(const std::string& path) {
  constexpr int kMostFilesAside = 1000;
  std::string aside = path + ".bad";
  for (int number = 2; FileExists(aside); ++number) {
    if (number > kMostFilesAside) return std::nullopt;
    aside = path + ".bad" + std::to_string(number);
  }
  return aside;
}

bool CreateFolder(const std::string& path) {
  std::string native = NativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  struct stat status {};
  if (Calls().Status(native.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return true;
    errno = ENOTDIR;
    return false;
  }
  const std::string above = FolderOf(native);
  if (native.empty() || (above != native && !CreateFolder(above))) return false;
  if (Calls().MakeFolder(native.c_str(), S_IRWXU) == 0) return SyncNativeFolder(above);
  // Somebody else may have been faster.
  return errno == EEXIST && Calls().Status(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace brovanta::platform
