#include "db/unit_of_work.h"

#include <algorithm>
#include <utility>

#include "db/error_codes.h"
#include "platform/text_file.h"

namespace brovanta {

UnitOfWork::~UnitOfWork() { RemoveCreated(); }

UnitOfWork::FileIndex UnitOfWork::Adopt(platform::File file, std::string path) {
  files_.push_back({std::move(file), std::move(path)});
  return files_.size() - 1;
}

int UnitOfWork::Create(const std::string& path, std::span<const std::byte> bytes) {
  if (platform::FileExists(path) || !platform::ReplaceFile(path, bytes)) return ERR_OPEN;
  created_.push_back(path);
  return 0;
}

void UnitOfWork::Write(FileIndex index, std::int64_t offset, std::span<const std::byte> bytes) {
  changes_.push_back({false, index, offset, {}, {bytes.begin(), bytes.end()}});
}

void UnitOfWork::Replace(std::string path, std::span<const std::byte> bytes) {
  changes_.push_back({true, 0, 0, std::move(path), {bytes.begin(), bytes.end()}});
}

int UnitOfWork::Commit() {
  undos_.resize(changes_.size());
  int code = 0;
  for (std::size_t i = 0; i < changes_.size() && code == 0; ++i) {
    code = SaveOldBytes(changes_[i], undos_[i]);
  }
  std::size_t begun = 0;
  for (; code == 0 && begun < changes_.size(); ++begun) {
    code = CarryOut(changes_[begun]);
    if (code != 0 && changes_[begun].replaces) break;  // the old file was not touched
  }
  if (code == 0 && !SyncFiles()) code = ERR_IO;
  if (code != 0) {
    RollBack(begun);
  } else {
    created_.clear();
  }
  files_.clear();
  return code;
}

int UnitOfWork::SaveOldBytes(const Change& change, Undo& undo) {
  if (change.replaces) return SaveOldFile(change.path, undo);
  platform::File& file = files_[change.file].file;
  const std::int64_t size = file.Size();
  if (size < 0) return ERR_IO;
  const std::int64_t end =
      std::min(size, change.offset + static_cast<std::int64_t>(change.bytes.size()));
  undo.old_size = size;
  undo.old_bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(0, end - change.offset)));
  const std::int64_t count = file.ReadAt(change.offset, undo.old_bytes);
  return count == static_cast<std::int64_t>(undo.old_bytes.size()) ? 0 : ERR_IO;
}

int UnitOfWork::SaveOldFile(const std::string& path, Undo& undo) const {
  if (!platform::FileExists(path)) return 0;
  std::string text;
  if (const int code = platform::ReadWholeFile(path, text); code != 0) return code;
  const std::span<const std::byte> bytes = std::as_bytes(std::span(text));
  undo.old_size = static_cast<std::int64_t>(bytes.size());
  undo.old_bytes.assign(bytes.begin(), bytes.end());
  return 0;
}

int UnitOfWork::CarryOut(const Change& change) {
  if (change.replaces) return platform::ReplaceFile(change.path, change.bytes) ? 0 : ERR_OPEN;
  return files_[change.file].file.WriteAt(change.offset, change.bytes) ? 0 : ERR_IO;
}

bool UnitOfWork::SyncFiles() {
  return std::all_of(files_.begin(), files_.end(), [](OpenFile& open) { return open.file.Sync(); });
}

// Putting back needs no new space, so that a full disk does not stand in its way. Nothing better
// can be done when it fails all the same.
void UnitOfWork::PutBack(const Change& change, const Undo& undo) {
  if (!change.replaces) {
    platform::File& file = files_[change.file].file;
    (void)file.WriteAt(change.offset, undo.old_bytes);
    if (undo.old_size) (void)file.Truncate(*undo.old_size);
  } else if (undo.old_size) {
    (void)platform::ReplaceFile(change.path, undo.old_bytes);
  } else {
    (void)platform::RemoveFile(change.path);
  }
}

// The old bytes were all saved before the first change, so that the order does not matter.
void UnitOfWork::RollBack(std::size_t changes_begun) {
  if (changes_begun > 0) {
    for (std::size_t i = 0; i < changes_begun; ++i) PutBack(changes_[i], undos_[i]);
    (void)SyncFiles();
  }
  RemoveCreated();
}

void UnitOfWork::RemoveCreated() {
  for (const std::string& path : created_) (void)platform::RemoveFile(path);
  created_.clear();
}

}  // namespace brovanta
