// Every system call of the file layer, in one place that tests can put themselves behind.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace brovanta::platform {

/// The calls themselves: arguments, results and errno are those of the system. Another object can
/// stand in for it, to let a call fail or to write down what was asked.
class SystemCalls {
 public:
  SystemCalls() = default;
  SystemCalls(const SystemCalls&) = delete;
  SystemCalls& operator=(const SystemCalls&) = delete;
  virtual ~SystemCalls() = default;

  virtual int Open(const char* path, int flags, mode_t mode);
  virtual int MakeTemporary(char* pattern);  ///< mkostemp, close-on-exec
  virtual int Close(int descriptor);
  virtual int Lock(int descriptor);  ///< flock, exclusive, without waiting
  virtual ssize_t Read(int descriptor, void* buffer, std::size_t size);
  virtual ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset);
  virtual ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset);
  virtual int Truncate(int descriptor, off_t size);
  virtual int Sync(int descriptor);
  virtual int SetMode(int descriptor, mode_t mode);
  virtual int SetOwner(int descriptor, uid_t user, gid_t group);
  virtual int Status(const char* path, struct stat* status);
  virtual int LinkStatus(const char* path, struct stat* status);  ///< lstat
  virtual int StatusOf(int descriptor, struct stat* status);
  virtual int Rename(const char* from, const char* to);
  virtual int Remove(const char* path);  ///< unlink
  virtual int MakeFolder(const char* path, mode_t mode);
  virtual int RemoveFolder(const char* path);  ///< rmdir
  /// Adds the names in the folder, but for "." and "..", in no order. 0 or -1.
  virtual int ListFolder(const char* path, std::vector<std::string>& names);
  /// The bytes that a program without special rights may still write there. 0 or -1.
  virtual int FreeSpace(const char* path, std::uint64_t& bytes);  ///< statvfs
};

/// The calls in use.
[[nodiscard]] SystemCalls& Calls();

/// Puts other calls in use while it lives. One at a time, before the threads concerned start.
class SystemCallsInUse {
 public:
  explicit SystemCallsInUse(SystemCalls& calls);
  SystemCallsInUse(const SystemCallsInUse&) = delete;
  SystemCallsInUse& operator=(const SystemCallsInUse&) = delete;
  ~SystemCallsInUse();
};

}  // namespace brovanta::platform
