// System calls of which one fails, comes back early, or ends the process.
#pragma once

#include "platform/system_calls.h"

namespace brovanta::test {

enum class Fault {
  kNone,
  kNoSpace,      ///< ENOSPC
  kIo,           ///< EIO
  kInterrupted,  ///< EINTR, after which a call is to be repeated
  kShort,        ///< half of the bytes are read or written
  kStop,         ///< the process ends before the call, by _exit(0)
  kFull,         ///< a device without space that writes elsewhere: see FaultyCalls
};

/// Calls that count themselves. The k-th (from 1) meets with the fault; with `lasting` all behind
/// it meet with it too. Closing always closes. Nothing is synced really: who needs to know what
/// was synced derives from this class. With kFull only the calls that need space are counted - to
/// write, over old bytes too, and to make a file or a folder -, and from the k-th on all of them
/// fail; cutting, removing and syncing do not.
class FaultyCalls : public platform::SystemCalls {
 public:
  FaultyCalls() = default;
  FaultyCalls(Fault fault, int at, bool lasting = false)
      : fault_(fault), at_(at), lasting_(lasting) {}

  [[nodiscard]] int count() const { return count_; }
  /// Whether the fault has struck a call that it applies to.
  [[nodiscard]] bool has_struck() const { return has_struck_; }

  int Open(const char* path, int flags, mode_t mode) override;
  int MakeTemporary(char* pattern) override;
  int Close(int descriptor) override;
  int Lock(int descriptor) override;
  ssize_t Read(int descriptor, void* buffer, std::size_t size) override;
  ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override;
  ssize_t WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) override;
  int Truncate(int descriptor, off_t size) override;
  int Sync(int descriptor) override;
  int SetMode(int descriptor, mode_t mode) override;
  int SetOwner(int descriptor, uid_t user, gid_t group) override;
  int Status(const char* path, struct stat* status) override;
  int LinkStatus(const char* path, struct stat* status) override;
  int StatusOf(int descriptor, struct stat* status) override;
  int Rename(const char* from, const char* to) override;
  int Remove(const char* path) override;
  int MakeFolder(const char* path, mode_t mode) override;
  int RemoveFolder(const char* path) override;
  int ListFolder(const char* path, std::vector<std::string>& names) override;
  int FreeSpace(const char* path, std::uint64_t& bytes) override;

 private:
  /// Counts; whether this call meets with the fault.
  bool IsHit(bool needs_space = false);
  /// -1 with the fault's errno, or what the call gives.
  template <typename Call>
  int Unless(Call call, bool needs_space = false);
  template <typename Call>
  ssize_t Transfer(std::size_t size, Call call, bool needs_space = false);

  Fault fault_ = Fault::kNone;
  int at_ = 0;
  bool lasting_ = false;
  int count_ = 0;
  bool has_struck_ = false;
};

}  // namespace brovanta::test
