#include "platform/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/system_calls.h"

namespace brovanta::platform {
namespace {

// Repeats a system call that a signal interrupted.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

int OpenFlags(File::Mode mode) {
  // Without O_NONBLOCK the opening of a pipe could wait for its other end.
  constexpr int kAlways = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  switch (mode) {
    case File::Mode::kRead:
      return kAlways | O_RDONLY;
    case File::Mode::kReadWrite:
      return kAlways | O_RDWR;
    case File::Mode::kCreateNew:
      return kAlways | O_RDWR | O_CREAT | O_EXCL;
  }
  return kAlways;
}

// Permission bits do not bind the superuser; a file that nobody may write is respected all the
// same.
bool MayOpen(const struct stat& status, File::Mode mode) {
  constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  if (!S_ISREG(status.st_mode)) return false;
  return mode != File::Mode::kReadWrite || (status.st_mode & kAnyWrite) != 0;
}

bool IsSameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

enum class Attempt { kOpened, kRefused, kReplacedMeanwhile };

Attempt TryOpen(const char* path, File::Mode mode, int& descriptor) {
  struct stat status {};
  // Looked at before it is opened: the opening of a device may already do something.
  if (mode != File::Mode::kCreateNew &&
      (Calls().Status(path, &status) != 0 || !MayOpen(status, mode))) {
    return Attempt::kRefused;
  }
  const int opened =
      Uninterrupted([&] { return Calls().Open(path, OpenFlags(mode), S_IRUSR | S_IWUSR); });
  if (opened < 0) return Attempt::kRefused;
  struct stat now {};
  if (Calls().StatusOf(opened, &status) == 0 && MayOpen(status, mode) &&
      Uninterrupted([&] { return Calls().Lock(opened); }) == 0) {
    // The former holder may have put another file here before it let go of this one.
    if (Calls().Status(path, &now) == 0 && IsSameFile(status, now)) {
      descriptor = opened;
      return Attempt::kOpened;
    }
    Calls().Close(opened);
    return Attempt::kReplacedMeanwhile;
  }
  // Somebody else may hold what was made here by now: it is not removed.
  Calls().Close(opened);
  return Attempt::kRefused;
}

// Calls transfer(bytes done) until all are done, the end of the file, or an error (-1).
template <typename Transfer>
std::int64_t Repeat(std::size_t size, Transfer transfer) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t count = Uninterrupted([&] { return transfer(done); });
    if (count < 0) return -1;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return static_cast<std::int64_t>(done);
}

}  // namespace

std::string NativePath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

File::File(File&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

File& File::operator=(File&& other) noexcept {
  if (this != &other) {
    Close();
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

File::~File() { Close(); }

bool File::Open(const std::string& path, Mode mode) {
  Close();
  const std::string native = NativePath(path);
  constexpr int kAttempts = 8;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const Attempt result = TryOpen(native.c_str(), mode, descriptor_);
    if (result != Attempt::kReplacedMeanwhile) return result == Attempt::kOpened;
  }
  return false;
}

void File::Close() {
  // Not repeated when interrupted: the descriptor is free by then.
  if (descriptor_ >= 0) Calls().Close(std::exchange(descriptor_, -1));
}

std::int64_t File::Read(std::span<std::byte> buffer) {
  return Repeat(buffer.size(), [&](std::size_t done) {
    return Calls().Read(descriptor_, buffer.data() + done, buffer.size() - done);
  });
}

std::int64_t File::ReadAt(std::int64_t offset, std::span<std::byte> buffer) {
  return Repeat(buffer.size(), [&](std::size_t done) {
    return Calls().ReadAt(descriptor_, buffer.data() + done, buffer.size() - done,
                          offset + static_cast<std::int64_t>(done));
  });
}

bool File::WriteAt(std::int64_t offset, std::span<const std::byte> bytes) {
  const std::int64_t written = Repeat(bytes.size(), [&](std::size_t done) {
    return Calls().WriteAt(descriptor_, bytes.data() + done, bytes.size() - done,
                           offset + static_cast<std::int64_t>(done));
  });
  return written == static_cast<std::int64_t>(bytes.size());
}

std::int64_t File::Size() const {
  struct stat status {};
  return Calls().StatusOf(descriptor_, &status) == 0 ? std::int64_t{status.st_size} : -1;
}

std::optional<FileState> File::State() const {
  struct stat status {};
  if (Calls().StatusOf(descriptor_, &status) != 0) return std::nullopt;
  return FileState{.device = status.st_dev,
                   .number = status.st_ino,
                   .size = status.st_size,
                   .changed = status.st_ctim.tv_sec,
                   .changed_nanoseconds = status.st_ctim.tv_nsec};
}

File::Place File::PlaceAt(const std::string& path) const {
  struct stat ours {};
  struct stat there {};
  if (Calls().StatusOf(descriptor_, &ours) != 0) return Place::kUnknown;
  if (Calls().Status(NativePath(path).c_str(), &there) != 0) {
    return errno == ENOENT || errno == ENOTDIR ? Place::kElsewhere : Place::kUnknown;
  }
  return IsSameFile(ours, there) ? Place::kThere : Place::kElsewhere;
}

bool File::Truncate(std::int64_t size) {
  return Uninterrupted([&] { return Calls().Truncate(descriptor_, size); }) == 0;
}

bool File::Sync() {
  return Uninterrupted([&] { return Calls().Sync(descriptor_); }) == 0;
}

bool FileExists(const std::string& path) {
  struct stat status {};
  if (Calls().LinkStatus(NativePath(path).c_str(), &status) == 0) return true;
  // A file that the device only fails to show must not be taken for a missing one and made anew.
  return errno != ENOENT && errno != ENOTDIR;
}

std::int64_t SizeOfFile(const std::string& path) {
  struct stat status {};
  if (Calls().Status(NativePath(path).c_str(), &status) == 0) return status.st_size;
  return errno == ENOENT || errno == ENOTDIR ? 0 : -1;
}

bool IsOtherThanFile(const std::string& path) {
  struct stat status {};
  return Calls().Status(NativePath(path).c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

bool IsReadOnlyFile(const std::string& path) {
  struct stat status {};
  const std::string native = NativePath(path);
  if (Calls().Status(native.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return !MayOpen(status, File::Mode::kReadWrite) ||
         (faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) != 0 &&
          (errno == EACCES || errno == EPERM || errno == EROFS));
}

}  // namespace brovanta::platform
