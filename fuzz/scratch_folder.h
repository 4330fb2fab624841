// A folder for the files of a fuzz target that is nowhere but in memory: the system calls of the
// file layer end here, so that an execution takes microseconds.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "fuzz/require.h"
#include "platform/system_calls.h"

namespace brovanta::fuzz {

/// One at a time. Everything that the file layer opens while it lives is looked for in it.
class ScratchFolder : private platform::SystemCalls {
 public:
  ScratchFolder() = default;
  ~ScratchFolder() override = default;

  [[nodiscard]] const std::string& path() const { return path_; }

  void Write(const std::string& name, const std::string& bytes) {
    std::shared_ptr<Node>& node = nodes_[path_ + "/" + name];
    if (node == nullptr) node = NewNode();
    node->bytes = bytes;
  }
  [[nodiscard]] std::optional<std::string> Read(const std::string& name) const {
    const auto found = nodes_.find(path_ + "/" + name);
    return found == nodes_.end() ? std::nullopt : std::optional(found->second->bytes);
  }
  void Drop(const std::string& name) { nodes_.erase(path_ + "/" + name); }
  void AddFolder(const std::string& name) { folders_.insert(path_ + "/" + name); }

  /// Every file by its name in the folder.
  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    for (const auto& [name, node] : nodes_) files[name.substr(path_.size() + 1)] = node->bytes;
    return files;
  }
  /// Nothing stands in it any more, and nothing may be open.
  void Clear() {
    Require(open_.empty(), "every file is closed");
    nodes_.clear();
    folders_ = {path_};
  }

 private:
  struct Node {
    ino_t number = 0;
    std::string bytes;
    int holder = -1;  // the descriptor that has locked it
  };
  struct OpenFile {
    std::shared_ptr<Node> node;  // nullptr: a folder
    std::size_t position = 0;
  };

  static int Fail(int error) {
    errno = error;
    return -1;
  }
  std::shared_ptr<Node> NewNode() {
    auto node = std::make_shared<Node>();
    node->number = ++numbers_;
    return node;
  }
  int Opened(std::shared_ptr<Node> node) {
    int descriptor = kFirstDescriptor;
    while (open_.contains(descriptor)) ++descriptor;
    open_[descriptor].node = std::move(node);
    return descriptor;
  }
  static int Fill(const Node* node, struct stat* status) {
    *status = {};
    status->st_mode = node == nullptr ? S_IFDIR | 0700 : S_IFREG | 0600;
    status->st_uid = geteuid();
    status->st_gid = getegid();
    status->st_ctim.tv_sec = kChanged;
    if (node == nullptr) return 0;
    status->st_ino = node->number;
    status->st_size = static_cast<off_t>(node->bytes.size());
    return 0;
  }

  int Open(const char* path, int flags, mode_t /*mode*/) override {
    if (folders_.contains(path)) {
      return (flags & O_ACCMODE) == O_RDONLY ? Opened(nullptr) : Fail(EISDIR);
    }
    const auto found = nodes_.find(path);
    if (found != nodes_.end()) {
      return (flags & O_EXCL) != 0 ? Fail(EEXIST) : Opened(found->second);
    }
    const std::string name(path);
    if ((flags & O_CREAT) == 0 || !folders_.contains(name.substr(0, name.rfind('/')))) {
      return Fail(ENOENT);
    }
    return Opened(nodes_[name] = NewNode());
  }
  int MakeTemporary(char* pattern) override {
    std::string suffix = std::to_string(++numbers_);
    suffix.insert(0, 6 - std::min<std::size_t>(suffix.size(), 6), '0');
    std::memcpy(pattern + std::strlen(pattern) - 6, suffix.data() + suffix.size() - 6, 6);
    return Open(pattern, O_RDWR | O_CREAT | O_EXCL, 0600);
  }
  int Close(int descriptor) override {
    const auto& node = open_.at(descriptor).node;
    if (node != nullptr && node->holder == descriptor) node->holder = -1;
    open_.erase(descriptor);
    return 0;
  }
  int Lock(int descriptor) override {
    Node* const node = open_.at(descriptor).node.get();
    if (node == nullptr) return 0;
    if (node->holder >= 0) return Fail(EWOULDBLOCK);
    node->holder = descriptor;
    return 0;
  }
  ssize_t ReadAt(int descriptor, void* buffer, std::size_t size, off_t offset) override {
    const std::string& bytes = open_.at(descriptor).node->bytes;
    const auto from = std::min(bytes.size(), static_cast<std::size_t>(offset));
    const std::size_t count = std::min(size, bytes.size() - from);
    std::memcpy(buffer, bytes.data() + from, count);
    return static_cast<ssize_t>(count);
  }
  ssize_t Read(int descriptor, void* buffer, std::size_t size) override {
    OpenFile& open = open_.at(descriptor);
    const ssize_t count = ReadAt(descriptor, buffer, size, static_cast<off_t>(open.position));
    open.position += static_cast<std::size_t>(count);
    return count;
  }
  ssize_t WriteAt(int descriptor, const void* from, std::size_t size, off_t offset) override {
    std::string& bytes = open_.at(descriptor).node->bytes;
    const auto to = static_cast<std::size_t>(offset);
    if (to > kLargestFile || size > kLargestFile - to) return Fail(EFBIG);
    bytes.resize(std::max(bytes.size(), to + size));
    std::memcpy(bytes.data() + to, from, size);
    return static_cast<ssize_t>(size);
  }
  int Truncate(int descriptor, off_t size) override {
    open_.at(descriptor).node->bytes.resize(static_cast<std::size_t>(size));
    return 0;
  }
  int Sync(int /*descriptor*/) override { return 0; }
  int SetMode(int /*descriptor*/, mode_t /*mode*/) override { return 0; }
  int SetOwner(int /*descriptor*/, uid_t /*user*/, gid_t /*group*/) override { return 0; }
  int Status(const char* path, struct stat* status) override {
    if (folders_.contains(path)) return Fill(nullptr, status);
    const auto found = nodes_.find(path);
    return found == nodes_.end() ? Fail(ENOENT) : Fill(found->second.get(), status);
  }
  int LinkStatus(const char* path, struct stat* status) override { return Status(path, status); }
  int StatusOf(int descriptor, struct stat* status) override {
    return Fill(open_.at(descriptor).node.get(), status);
  }
  int Rename(const char* from, const char* to) override {
    const auto found = nodes_.find(from);
    if (found == nodes_.end()) return Fail(ENOENT);
    const std::shared_ptr<Node> node = found->second;
    nodes_.erase(found);
    nodes_[to] = node;
    return 0;
  }
  int Remove(const char* path) override {
    if (folders_.contains(path)) return Fail(EISDIR);
    return nodes_.erase(path) != 0 ? 0 : Fail(ENOENT);
  }
  int MakeFolder(const char* path, mode_t /*mode*/) override {
    return folders_.insert(path).second ? 0 : Fail(EEXIST);
  }

  static constexpr int kFirstDescriptor = 1'000'000;  // none of the system's
  static constexpr std::size_t kLargestFile = std::size_t{64} << 20;
  static constexpr time_t kChanged = 4'102'444'800;  // always just now

  const std::string path_ = "/brovanta-fuzz";
  ino_t numbers_ = 0;
  std::map<std::string, std::shared_ptr<Node>> nodes_;
  std::set<std::string, std::less<>> folders_ = {path_};
  std::map<int, OpenFile> open_;
  const platform::SystemCallsInUse in_use_{*this};
};

}  // namespace brovanta::fuzz
