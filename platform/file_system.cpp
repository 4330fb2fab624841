// Operations on whole files and folders. Declared in platform/file.h.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/file.h"

namespace brovanta::platform {
namespace {

std::string FolderOf(const std::string& native) {
  const std::size_t slash = native.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : native.substr(0, slash);
}

// Not every file system can sync a folder; the rename itself is whole with or without it.
void SyncFolder(const std::string& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

// Where symbolic links lead, or the path itself where nothing stands.
std::string ResolvedPath(const std::string& native) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(native.c_str(), nullptr),
                                                         &std::free);
  return real != nullptr ? std::string(real.get()) : native;
}

bool WriteAll(int descriptor, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return true;
}

bool TakeOver(int descriptor, const struct stat& old) {
  // Only the superuser may give a file away; for everybody else the owner is the same already.
  if (old.st_uid != geteuid() || old.st_gid != getegid()) {
    [[maybe_unused]] const int ignored = fchown(descriptor, old.st_uid, old.st_gid);
  }
  return fchmod(descriptor, old.st_mode & 07777) == 0;
}

// Writes and syncs a temporary beside `native`; its path, empty when that failed.
std::string WriteTemporary(const std::string& native, const struct stat* old,
                           std::span<const std::byte> bytes) {
  std::string temporary = native + ".XXXXXX";
  const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
  if (descriptor < 0) return "";
  const bool written = (old == nullptr || TakeOver(descriptor, *old)) &&
                       WriteAll(descriptor, bytes) && fsync(descriptor) == 0;
  if (close(descriptor) == 0 && written) return temporary;
  unlink(temporary.c_str());
  return "";
}

}  // namespace

bool ReplaceFile(const std::string& path, std::span<const std::byte> bytes) {
  const std::string native = ResolvedPath(NativePath(path));
  struct stat status {};
  const struct stat* old = nullptr;
  File held;  // until the new file stands
  if (lstat(native.c_str(), &status) == 0) {
    old = &status;
    if (!held.Open(native, File::Mode::kReadWrite)) return false;
  }
  const std::string temporary = WriteTemporary(native, old, bytes);
  if (temporary.empty()) return false;
  if (std::rename(temporary.c_str(), native.c_str()) != 0) {
    unlink(temporary.c_str());
    return false;
  }
  SyncFolder(FolderOf(native));
  return true;
}

bool RemoveFile(const std::string& path) {
  const std::string native = NativePath(path);
  if (unlink(native.c_str()) != 0) return errno == ENOENT || errno == ENOTDIR;
  SyncFolder(FolderOf(native));
  return true;
}

bool RenameFile(const std::string& from, const std::string& to) {
  const std::string native = NativePath(to);
  if (std::rename(NativePath(from).c_str(), native.c_str()) != 0) return false;
  SyncFolder(FolderOf(native));
  return true;
}

bool CreateFolder(const std::string& path) {
  std::string native = NativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  struct stat status {};
  if (stat(native.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return true;
    errno = ENOTDIR;
    return false;
  }
  const std::string above = FolderOf(native);
  if (native.empty() || (above != native && !CreateFolder(above))) return false;
  if (mkdir(native.c_str(), S_IRWXU) == 0) return true;
  // Somebody else may have been faster.
  return errno == EEXIST && stat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace brovanta::platform
