#include "platform/folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "platform/system_calls.h"

namespace brovanta::platform {
namespace {

constexpr int kDeepest = 16;  // far deeper than anything of ours

bool RemoveTree(const std::string& path, int depth) {
  const auto names = NamesIn(path);
  if (!names || depth > kDeepest) return false;
  bool done = true;
  for (const std::string& name : *names) {
    const std::string inner = std::string(path).append("/").append(name);
    struct stat status {};
    if (Calls().LinkStatus(inner.c_str(), &status) != 0) {
      done = false;
    } else if (S_ISDIR(status.st_mode)) {
      done = RemoveTree(inner, depth + 1) && done;
    } else {
      done = Calls().Remove(inner.c_str()) == 0 && done;
    }
  }
  return done && Calls().RemoveFolder(path.c_str()) == 0;
}

}  // namespace

std::optional<std::vector<std::string>> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  if (Calls().ListFolder(folder.c_str(), names) != 0) return std::nullopt;
  std::sort(names.begin(), names.end());
  return names;
}

bool IsFolder(const std::string& path) {
  struct stat status {};
  return Calls().Status(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsWritableFolder(const std::string& path) {
  // By the rights that count, also where they are not those of who started the program.
  return IsFolder(path) && faccessat(AT_FDCWD, path.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::optional<std::uint64_t> FreeSpaceAt(const std::string& folder) {
  std::uint64_t bytes = 0;
  if (Calls().FreeSpace(folder.c_str(), bytes) != 0) return std::nullopt;
  return bytes;
}

std::string CanonicalFolder(const std::string& path) {
  if (!IsFolder(path)) return {};
  const std::unique_ptr<char, decltype(&std::free)> name(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return name != nullptr ? std::string(name.get()) : std::string();
}

std::string CanonicalName(const std::string& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  if (path.empty() || error) return {};
  std::string name = std::filesystem::weakly_canonical(absolute, error).string();
  if (error) return {};
  while (name.size() > 1 && name.back() == '/') name.pop_back();
  return name;
}

bool RemoveWholeFolder(const std::string& path) {
  struct stat status {};
  if (Calls().LinkStatus(path.c_str(), &status) != 0) return errno == ENOENT;
  return S_ISDIR(status.st_mode) && RemoveTree(path, 0);
}

FolderLock::FolderLock(FolderLock&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
  if (this != &other) {
    Release();
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

FolderLock::~FolderLock() { Release(); }

FolderLock::Outcome FolderLock::Take(const std::string& folder) {
  Release();
  const int descriptor = Calls().Open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (descriptor < 0) return Outcome::kNotPossible;
  if (Calls().Lock(descriptor) == 0) {
    descriptor_ = descriptor;
    return Outcome::kTaken;
  }
  const bool held = errno == EWOULDBLOCK;
  Calls().Close(descriptor);
  return held ? Outcome::kHeld : Outcome::kNotPossible;
}

void FolderLock::Release() {
  if (descriptor_ >= 0) Calls().Close(std::exchange(descriptor_, -1));
}

}  // namespace brovanta::platform
