#include "platform/system_calls.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace brovanta::platform {
namespace {

std::atomic<SystemCalls*> calls_in_use{nullptr};

}  // namespace

int SystemCalls::Open(const char* path, int flags, mode_t mode) { return open(path, flags, mode); }

int SystemCalls::MakeTemporary(char* pattern) { return mkostemp(pattern, O_CLOEXEC); }

int SystemCalls::Close(int descriptor) { return close(descriptor); }

int SystemCalls::Lock(int descriptor) { return flock(descriptor, LOCK_EX | LOCK_NB); }

ssize_t SystemCalls::Read(int descriptor, void* buffer, std::size_t size) {
  return read(descriptor, buffer, size);
}

ssize_t SystemCalls::ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) {
  return pread(descriptor, buffer, size, offset);
}

ssize_t SystemCalls::WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) {
  return pwrite(descriptor, bytes, size, offset);
}

int SystemCalls::Truncate(int descriptor, off_t size) { return ftruncate(descriptor, size); }

int SystemCalls::Sync(int descriptor) { return fsync(descriptor); }

int SystemCalls::SetMode(int descriptor, mode_t mode) { return fchmod(descriptor, mode); }

int SystemCalls::SetOwner(int descriptor, uid_t user, gid_t group) {
  return fchown(descriptor, user, group);
}

int SystemCalls::Status(const char* path, struct stat* status) { return stat(path, status); }

int SystemCalls::LinkStatus(const char* path, struct stat* status) { return lstat(path, status); }

int SystemCalls::StatusOf(int descriptor, struct stat* status) { return fstat(descriptor, status); }

int SystemCalls::Rename(const char* from, const char* to) { return std::rename(from, to); }

int SystemCalls::Remove(const char* path) { return unlink(path); }

int SystemCalls::MakeFolder(const char* path, mode_t mode) { return mkdir(path, mode); }

int SystemCalls::RemoveFolder(const char* path) { return rmdir(path); }

int SystemCalls::ListFolder(const char* path, std::vector<std::string>& names) {
  DIR* const folder = opendir(path);
  if (folder == nullptr) return -1;
  errno = 0;
  while (const dirent* const entry = readdir(folder)) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  const int error = errno;
  closedir(folder);
  errno = error;
  return error == 0 ? 0 : -1;
}

int SystemCalls::FreeSpace(const char* path, std::uint64_t& bytes) {
  struct statvfs status {};
  if (statvfs(path, &status) != 0) return -1;
  bytes = static_cast<std::uint64_t>(status.f_bavail) * status.f_frsize;
  return 0;
}

SystemCalls& Calls() {
  static SystemCalls system;
  SystemCalls* const in_use = calls_in_use.load(std::memory_order_acquire);
  return in_use != nullptr ? *in_use : system;
}

SystemCallsInUse::SystemCallsInUse(SystemCalls& calls) {
  calls_in_use.store(&calls, std::memory_order_release);
}

SystemCallsInUse::~SystemCallsInUse() { calls_in_use.store(nullptr, std::memory_order_release); }

}  // namespace brovanta::platform
