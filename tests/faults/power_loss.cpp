#include "tests/faults/power_loss.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

namespace brovanta::test {
namespace {

using Kind = DiskEvent::Kind;

/// Renames a file, or a folder with all that is known in it.
void RenameIn(std::map<std::string, int>& names, const std::string& from, const std::string& to) {
  std::map<std::string, int> renamed;
  for (const auto& [name, file] : names) {
    if (name == from || name.starts_with(from + "/")) renamed[to + name.substr(from.size())] = file;
  }
  for (const auto& [name, file] : renamed) names[name] = file;
  std::erase_if(names, [&from](const auto& entry) {
    return entry.first == from || entry.first.starts_with(from + "/");
  });
}

std::string FolderOf(const std::string& name) {
  const std::size_t slash = name.rfind('/');
  return slash == std::string::npos ? "." : name.substr(0, slash);
}

/// The smallest blocks that file systems are counted on to have, and the sectors that devices write
/// whole or not at all.
constexpr std::int64_t kBlock = 1024;
constexpr std::size_t kSector = 512;

/// What a file that has grown before its new bytes were written shows behind its old end.
enum class Fill { kZeros, kStale, kNoise };

/// A file on the device. Cutting it leaves its bytes where they are, behind its end, until
/// something is written over them; a program sees zeros there when the file grows again, unless the
/// power goes.
class StoredFile {
 public:
  StoredFile() = default;
  explicit StoredFile(const Bytes& bytes) : bytes_(bytes), size_(bytes.size()) {}

  void Resize(std::size_t size) {
    GrowTo(size, [](std::byte&) { return std::byte{0}; });
    size_ = size;
  }

  void Write(std::size_t offset, const Bytes& bytes) {
    if (bytes.empty()) return;
    if (offset + bytes.size() > size_) Resize(offset + bytes.size());
    std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
  }

  /// The size is there before the bytes are.
  void GrowUnwritten(std::size_t size, Fill fill, std::mt19937& random) {
    GrowTo(size, [&](const std::byte& stale) {
      if (fill == Fill::kNoise) return static_cast<std::byte>(random() % 256);
      return fill == Fill::kStale ? stale : std::byte{0};
    });
    size_ = std::max(size_, size);
  }

  /// A new file in the blocks of one that is gone.
  [[nodiscard]] StoredFile Reused() const {
    StoredFile file;
    file.bytes_ = bytes_;
    return file;
  }

  [[nodiscard]] Bytes Contents() const {
    return {bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(size_)};
  }

 private:
  template <typename Byte>
  void GrowTo(std::size_t size, Byte byte) {
    bytes_.resize(std::max(bytes_.size(), size));
    for (std::size_t i = size_; i < size; ++i) bytes_[i] = byte(bytes_[i]);
  }

  Bytes bytes_;  // those behind the end included
  std::size_t size_ = 0;
};

/// The device: what is on it for good, and what still waits.
class Disk {
 public:
  Disk(const Snapshot& before, const std::map<std::string, int>& first_names) {
    for (const auto& [name, file] : first_names) {
      names_[name] = file;
      if (const auto found = before.find(name); found != before.end()) {
        contents_[file] = StoredFile(found->second);
      }
    }
  }

  void Take(const DiskEvent& event) {
    switch (event.kind) {
      case Kind::kWrite:
      case Kind::kTruncate:
        waiting_bytes_[event.file].push_back(&event);
        return;
      case Kind::kMake:
      case Kind::kRename:
      case Kind::kRemove:
        waiting_names_[FolderOf(event.name)].push_back(&event);
        return;
      case Kind::kSyncFile:
        SyncBytes(waiting_bytes_[event.file]);
        waiting_bytes_.erase(event.file);
        return;
      case Kind::kSyncFolder:
        for (const DiskEvent* waiting : waiting_names_[event.name]) Change(*waiting);
        waiting_names_.erase(event.name);
        return;
    }
  }

  void LosePower(Survivors survivors, std::mt19937& random) {
    const bool bytes = survivors == Survivors::kAll || survivors == Survivors::kBytesOnly;
    const bool names = survivors == Survivors::kAll || survivors == Survivors::kNamesOnly;
    for (const auto& [folder, waiting] : waiting_names_) {
      std::size_t count = names ? waiting.size() : 0;
      if (survivors == Survivors::kSome) count = random() % (waiting.size() + 1);
      for (std::size_t i = 0; i < count; ++i) Change(*waiting[i]);
    }
    for (const auto& [file, waiting] : waiting_bytes_) {
      for (const DiskEvent* event : waiting) {
        if (bytes) Change(*event);
        if (survivors == Survivors::kNoTails) ChangeHead(*event);
        if (survivors == Survivors::kSizesOnly || survivors == Survivors::kNoTails) {
          GrowAlone(*event, Fill::kStale, random);
        }
        if (survivors != Survivors::kSome) continue;
        if (random() % 2 == 0) GrowAlone(*event, static_cast<Fill>(random() % 3), random);
        if (random() % 4 != 0) ChangePart(*event, random);
      }
    }
  }

  [[nodiscard]] Snapshot Files() const {
    Snapshot files;
    for (const auto& [name, file] : names_) {
      const auto found = contents_.find(file);
      files[name] = found == contents_.end() ? Bytes() : found->second.Contents();
    }
    return files;
  }

 private:
  void Change(const DiskEvent& event) {
    switch (event.kind) {
      case Kind::kMake:
        names_[event.name] = event.file;
        return;
      case Kind::kRename:
        Free(event.new_name);
        RenameIn(names_, event.name, event.new_name);
        return;
      case Kind::kRemove:
        Free(event.name);
        names_.erase(event.name);
        return;
      case Kind::kTruncate:
        ContentsOf(event.file).Resize(static_cast<std::size_t>(event.offset));
        return;
      case Kind::kWrite:
        ContentsOf(event.file).Write(static_cast<std::size_t>(event.offset), event.bytes);
        return;
      case Kind::kSyncFile:
      case Kind::kSyncFolder:
        return;
    }
  }

  /// The blocks of the file of that name, if there is one, are those of the next file that is made.
  void Free(const std::string& name) {
    const auto found = names_.find(name);
    if (found != names_.end()) free_ = ContentsOf(found->second).Reused();
  }

  StoredFile& ContentsOf(int file) {
    const auto [found, is_new] = contents_.try_emplace(file);
    if (is_new) found->second = std::exchange(free_, {});
    return found->second;
  }

  /// What is cut off before it was written is not written any more, but for the block of the end.
  void SyncBytes(const std::vector<const DiskEvent*>& waiting) {
    for (std::size_t i = 0; i < waiting.size(); ++i) {
      DiskEvent event = *waiting[i];
      for (std::size_t j = i + 1; j < waiting.size() && event.kind == Kind::kWrite; ++j) {
        if (waiting[j]->kind != Kind::kTruncate) continue;
        const std::int64_t blocks = (waiting[j]->offset + kBlock - 1) / kBlock;
        const std::int64_t left = std::max<std::int64_t>(0, blocks * kBlock - event.offset);
        event.bytes.resize(std::min(event.bytes.size(), static_cast<std::size_t>(left)));
      }
      Change(event);
    }
  }

  /// A write of which only the size has come through.
  void GrowAlone(const DiskEvent& event, Fill fill, std::mt19937& random) {
    if (event.kind != Kind::kWrite) return;
    const std::size_t end = static_cast<std::size_t>(event.offset) + event.bytes.size();
    ContentsOf(event.file).GrowUnwritten(end, fill, random);
  }

  /// What of a write stands in front of the file's old end.
  void ChangeHead(DiskEvent event) {
    const std::size_t size = ContentsOf(event.file).Contents().size();
    const auto offset = static_cast<std::size_t>(event.offset);
    const std::size_t head = size - std::min(size, offset);
    if (event.kind == Kind::kWrite) event.bytes.resize(std::min(event.bytes.size(), head));
    Change(event);
  }

  /// A write of which any sectors are there.
  void ChangePart(const DiskEvent& event, std::mt19937& random) {
    if (event.kind != Kind::kWrite) return Change(event);
    const auto offset = static_cast<std::size_t>(event.offset);
    for (std::size_t begin = 0; begin < event.bytes.size();) {
      const std::size_t rest_of_sector = kSector - (offset + begin) % kSector;
      const std::size_t end = std::min(begin + rest_of_sector, event.bytes.size());
      DiskEvent part = event;
      part.offset += static_cast<std::int64_t>(begin);
      part.bytes = {event.bytes.begin() + static_cast<std::ptrdiff_t>(begin),
                    event.bytes.begin() + static_cast<std::ptrdiff_t>(end)};
      if (random() % 2 == 0) Change(part);
      begin = end;
    }
  }

  std::map<std::string, int> names_;
  std::map<int, StoredFile> contents_;
  StoredFile free_;  // blocks of the file that was removed last
  std::map<std::string, std::vector<const DiskEvent*>> waiting_names_;
  std::map<int, std::vector<const DiskEvent*>> waiting_bytes_;
};

}  // namespace

RecordingCalls::RecordingCalls(std::string folder) : folder_(std::move(folder)) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
    if (entry.is_regular_file()) names.push_back(Relative(entry.path().string()));
  }
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) names_[name] = next_file_++;
  first_names_ = names_;
}

bool RecordingCalls::IsDead() {
  if (lives_ > 0 && --lives_ == 0) is_dead_ = true;
  if (is_dead_) errno = EIO;
  return is_dead_;
}

std::string RecordingCalls::Relative(const std::string& path) const {
  const auto normal = std::filesystem::path(path).lexically_normal();
  std::string relative = normal.lexically_relative(folder_).string();
  while (relative.ends_with('/')) relative.pop_back();
  return relative;
}

void RecordingCalls::Made(const std::string& name, int descriptor) {
  const int file = next_file_++;
  names_[name] = file;
  files_by_descriptor_[descriptor] = file;
  events_.push_back({Kind::kMake, file, name, {}, 0, {}});
}

int RecordingCalls::Open(const char* path, int flags, mode_t mode) {
  if (IsDead()) return -1;
  const int descriptor = SystemCalls::Open(path, flags, mode);
  if (descriptor < 0) return descriptor;
  const std::string name = Relative(path);
  if ((flags & O_DIRECTORY) != 0) {
    folders_by_descriptor_[descriptor] = name;
  } else if ((flags & O_CREAT) != 0) {
    Made(name, descriptor);
  } else {
    const auto file = names_.find(name);
    if (file != names_.end()) files_by_descriptor_[descriptor] = file->second;
  }
  return descriptor;
}

int RecordingCalls::MakeTemporary(char* pattern) {
  if (IsDead()) return -1;
  const int descriptor = SystemCalls::MakeTemporary(pattern);
  if (descriptor >= 0) Made(Relative(pattern), descriptor);
  return descriptor;
}

int RecordingCalls::Close(int descriptor) {
  files_by_descriptor_.erase(descriptor);
  folders_by_descriptor_.erase(descriptor);
  return SystemCalls::Close(descriptor);
}

ssize_t RecordingCalls::WriteAt(int descriptor, const void* bytes, std::size_t size, off_t offset) {
  if (IsDead()) return -1;
  const ssize_t count = SystemCalls::WriteAt(descriptor, bytes, size, offset);
  if (count > 0) {
    const auto* first = static_cast<const std::byte*>(bytes);
    events_.push_back({Kind::kWrite,
                       files_by_descriptor_.at(descriptor),
                       {},
                       {},
                       offset,
                       Bytes(first, first + count)});
  }
  return count;
}

int RecordingCalls::Truncate(int descriptor, off_t size) {
  if (IsDead()) return -1;
  const int result = SystemCalls::Truncate(descriptor, size);
  events_.push_back({Kind::kTruncate, files_by_descriptor_.at(descriptor), {}, {}, size, {}});
  return result;
}

int RecordingCalls::Sync(int descriptor) {
  if (IsDead()) return -1;
  const auto folder = folders_by_descriptor_.find(descriptor);
  if (folder != folders_by_descriptor_.end()) {
    events_.push_back({Kind::kSyncFolder, 0, folder->second, {}, 0, {}});
  } else {
    events_.push_back({Kind::kSyncFile, files_by_descriptor_.at(descriptor), {}, {}, 0, {}});
  }
  return 0;  // the disk is only thought of
}

int RecordingCalls::Rename(const char* from, const char* to) {
  if (IsDead()) return -1;
  const int result = SystemCalls::Rename(from, to);
  if (result != 0) return result;
  const std::string old_name = Relative(from);
  RenameIn(names_, old_name, Relative(to));
  events_.push_back({Kind::kRename, 0, old_name, Relative(to), 0, {}});
  return 0;
}

int RecordingCalls::Remove(const char* path) {
  if (IsDead()) return -1;
  const int result = SystemCalls::Remove(path);
  if (result != 0) return result;
  names_.erase(Relative(path));
  events_.push_back({Kind::kRemove, 0, Relative(path), {}, 0, {}});
  return 0;
}

Snapshot DiskAfter(const Snapshot& before, const RecordingCalls& recording, std::size_t count,
                   Survivors survivors, std::mt19937& random) {
  Disk disk(before, recording.first_names());
  for (std::size_t i = 0; i < count; ++i) disk.Take(recording.events()[i]);
  disk.LosePower(survivors, random);
  return disk.Files();
}

}  // namespace brovanta::test
