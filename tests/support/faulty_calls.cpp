#include "tests/support/faulty_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace brovanta::test {
namespace {

int ErrnoOf(Fault fault) {
  switch (fault) {
    case Fault::kNoSpace:
    case Fault::kFull:
      return ENOSPC;
    case Fault::kInterrupted:
      return EINTR;
    case Fault::kNone:
    case Fault::kIo:
    case Fault::kShort:
    case Fault::kStop:
      return EIO;
  }
  return EIO;
}

}  // namespace

bool FaultyCalls::IsHit(bool needs_space) {
  const bool is_full = fault_ == Fault::kFull;
  if (is_full && !needs_space) return false;
  ++count_;
  const bool lasts = lasting_ || is_full;
  if (fault_ == Fault::kNone || (lasts ? count_ < at_ : count_ != at_)) return false;
  if (fault_ == Fault::kStop) _exit(0);
  return true;
}

template <typename Call>
int FaultyCalls::Unless(Call call, bool needs_space) {
  if (!IsHit(needs_space) || fault_ == Fault::kShort) return call();
  has_struck_ = true;
  errno = ErrnoOf(fault_);
  return -1;
}

template <typename Call>
ssize_t FaultyCalls::Transfer(std::size_t size, Call call, bool needs_space) {
  if (!IsHit(needs_space)) return call(size);
  if (fault_ == Fault::kShort) {
    has_struck_ = has_struck_ || size > 1;
    return call(size > 1 ? size / 2 : size);
  }
  has_struck_ = true;
  errno = ErrnoOf(fault_);
  return -1;
}

int FaultyCalls::Open(const char* path, int flags, mode_t mode) {
  const bool makes = (flags & O_CREAT) != 0;
  return Unless([&] { return SystemCalls::Open(path, flags, mode); }, makes);
}

int FaultyCalls::MakeTemporary(char* pattern) {
  return Unless([&] { return SystemCalls::MakeTemporary(pattern); }, true);
}

int FaultyCalls::Close(int descriptor) {
  const bool hit = IsHit() && fault_ != Fault::kShort;
  const int result = SystemCalls::Close(descriptor);
  if (!hit) return result;
  has_struck_ = true;
  errno = ErrnoOf(fault_);
  return -1;
}

int FaultyCalls::Lock(int descriptor) {
  return Unless([&] { return SystemCalls::Lock(descriptor); });
}

ssize_t FaultyCalls::Read(int descriptor, void* buffer, std::size_t size) {
  return Transfer(size, [&](std::size_t n) { return SystemCalls::Read(descriptor, buffer, n); });
}

ssize_t FaultyCalls::ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) {
  return Transfer(
      size, [&](std::size_t n) { return SystemCalls::ReadAt(descriptor, buffer, n, offset); });
}

ssize_t FaultyCalls::WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) {
  return Transfer(
      size, [&](std::size_t n) { return SystemCalls::WriteAt(descriptor, bytes, n, offset); },
      true);
}

int FaultyCalls::Truncate(int descriptor, off_t size) {
  return Unless([&] { return SystemCalls::Truncate(descriptor, size); });
}

int FaultyCalls::Sync(int /*descriptor*/) {
  return Unless([] { return 0; });
}

int FaultyCalls::SetMode(int descriptor, mode_t mode) {
  return Unless([&] { return SystemCalls::SetMode(descriptor, mode); });
}

int FaultyCalls::SetOwner(int descriptor, uid_t user, gid_t group) {
  return Unless([&] { return SystemCalls::SetOwner(descriptor, user, group); });
}

int FaultyCalls::Status(const char* path, struct stat* status) {
  return Unless([&] { return SystemCalls::Status(path, status); });
}

int FaultyCalls::LinkStatus(const char* path, struct stat* status) {
  return Unless([&] { return SystemCalls::LinkStatus(path, status); });
}

int FaultyCalls::StatusOf(int descriptor, struct stat* status) {
  return Unless([&] { return SystemCalls::StatusOf(descriptor, status); });
}

int FaultyCalls::Rename(const char* from, const char* to) {
  return Unless([&] { return SystemCalls::Rename(from, to); });
}

int FaultyCalls::Remove(const char* path) {
  return Unless([&] { return SystemCalls::Remove(path); });
}

int FaultyCalls::MakeFolder(const char* path, mode_t mode) {
  return Unless([&] { return SystemCalls::MakeFolder(path, mode); }, true);
}

int FaultyCalls::RemoveFolder(const char* path) {
  return Unless([&] { return SystemCalls::RemoveFolder(path); });
}

int FaultyCalls::ListFolder(const char* path, std::vector<std::string>& names) {
  return Unless([&] { return SystemCalls::ListFolder(path, names); });
}

int FaultyCalls::FreeSpace(const char* path, std::uint64_t& bytes) {
  return Unless([&] { return SystemCalls::FreeSpace(path, bytes); });
}

}  // namespace brovanta::test
