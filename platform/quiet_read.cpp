#include "platform/quiet_read.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <exception>

#include "platform/file.h"
#include "platform/system_calls.h"
#include "platform/text_file.h"

namespace brovanta::platform {
namespace {

class Descriptor {
 public:
  explicit Descriptor(const std::string& native)
      : number_(Calls().Open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) Calls().Close(number_);
  }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_;
};

bool IsSameState(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino && one.st_size == other.st_size &&
         one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
         one.st_mtim.tv_nsec == other.st_mtim.tv_nsec &&
         one.st_ctim.tv_sec == other.st_ctim.tv_sec && one.st_ctim.tv_nsec == other.st_ctim.tv_nsec;
}

// A descriptor of its own, closed at once: the lock ends with it.
bool IsHeld(const std::string& native) {
  const Descriptor asking(native);
  return asking.number() >= 0 && Calls().Lock(asking.number()) != 0 && errno == EWOULDBLOCK;
}

// The bytes read, -1 when the device fails.
std::int64_t ReadAll(int descriptor, std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = Calls().ReadAt(descriptor, bytes.data() + done, bytes.size() - done,
                                         static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return -1;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return static_cast<std::int64_t>(done);
}

QuietResult ReadOnce(const std::string& native, std::string& bytes) {
  struct stat before {};
  // Looked at before it is opened: the opening of a device may already do something.
  if (Calls().Status(native.c_str(), &before) != 0) {
    return errno == ENOENT || errno == ENOTDIR ? QuietResult::kMissing : QuietResult::kRefused;
  }
  if (!S_ISREG(before.st_mode)) return QuietResult::kRefused;
  const Descriptor file(native);
  if (file.number() < 0) return QuietResult::kRefused;
  if (IsHeld(native)) return QuietResult::kHeld;
  if (Calls().StatusOf(file.number(), &before) != 0) return QuietResult::kFailed;
  if (before.st_size > kLargestWholeFile) return QuietResult::kTooLarge;
  bytes.resize(static_cast<std::size_t>(before.st_size));
  const std::int64_t count = ReadAll(file.number(), bytes);
  if (count < 0) return QuietResult::kFailed;
  struct stat after {};
  if (count < before.st_size || Calls().Status(native.c_str(), &after) != 0 ||
      !IsSameState(before, after) || IsHeld(native)) {
    return QuietResult::kChanging;
  }
  return QuietResult::kRead;
}

}  // namespace

QuietResult ReadQuietly(const std::string& path, std::string& bytes) {
  const std::string native = NativePath(path);
  constexpr int kAttempts = 5;
  QuietResult result = QuietResult::kChanging;
  try {
    for (int i = 0; i < kAttempts && result == QuietResult::kChanging; ++i) {
      result = ReadOnce(native, bytes);
    }
  } catch (const std::exception&) {  // from resize
    result = QuietResult::kFailed;
  }
  if (result != QuietResult::kRead) bytes.clear();
  return result;
}

}  // namespace brovanta::platform
