#include "db/unit_of_work.h"

#include <algorithm>
#include <utility>

#include "db/error_codes.h"
#include "db/journal_fit.h"
#include "platform/text_file.h"
#include "util/crc32.h"

namespace brovanta {
namespace {

// The name of a file as seen from the folder of the journal. That of a file outside it is its whole
// path, which no record may have: a roll-back would look for it beside the journal.
std::string NameOf(const std::string& path, const std::string& journal_path) {
  const std::string native = platform::NativePath(path);
  const std::string journal = platform::NativePath(journal_path);
  const std::string folder = journal.substr(0, journal.rfind('/') + 1);
  return native.starts_with(folder) ? native.substr(folder.size()) : native;
}

// What could not be made and opened may be there nevertheless, and empty. A file that has bytes, or
// that somebody holds, is somebody else's. False when it is not known.
bool RemoveUnopened(const std::string& path) {
  if (!platform::FileExists(path)) return true;
  platform::File file;
  if (!file.Open(path, platform::File::Mode::kReadWrite)) return platform::SizeOfFile(path) > 0;
  const std::int64_t size = file.Size();
  return size > 0 || (size == 0 && platform::RemoveFile(path));
}

}  // namespace

UnitOfWork::FileIndex UnitOfWork::Adopt(platform::File file, std::string path) {
  files_.push_back({std::move(file), std::move(path)});
  return files_.size() - 1;
}

UnitOfWork::FileIndex UnitOfWork::Make(std::string path, std::span<const std::byte> bytes) {
  files_.push_back({platform::File(), std::move(path), true});
  const FileIndex index = files_.size() - 1;
  changes_.push_back({Kind::kMake, index, 0, {}, {bytes.begin(), bytes.end()}});
  return index;
}

void UnitOfWork::Write(FileIndex index, std::int64_t offset, std::span<const std::byte> bytes) {
  changes_.push_back({Kind::kWrite, index, offset, {}, {bytes.begin(), bytes.end()}});
}

void UnitOfWork::Replace(std::string path, std::span<const std::byte> bytes) {
  changes_.push_back({Kind::kReplace, 0, 0, std::move(path), {bytes.begin(), bytes.end()}});
}

void UnitOfWork::Remove(std::string path) {
  changes_.push_back({Kind::kRemove, 0, 0, std::move(path), {}});
}

bool UnitOfWork::IsWhole(const Change& change) {
  return change.kind == Kind::kReplace || change.kind == Kind::kRemove;
}

const std::string& UnitOfWork::PathOf(const Change& change) const {
  return IsWhole(change) ? change.path : files_[change.file].path;
}

int UnitOfWork::Begin() {
  if (is_begun_) return 0;
  const int code = journal_.Hold(journal_path_);
  is_begun_ = code == 0;
  return code;
}

int UnitOfWork::Commit() {
  if (changes_.empty()) return 0;
  // Held even where nothing is written into it, so that no roll-back comes between.
  int code = Begin();
  if (code == 0 && !FilesStand()) code = ERR_OPEN;
  for (std::size_t i = 0; i < changes_.size() && code == 0; ++i) code = NoteUndo(changes_[i]);
  if (code == 0 && NeedsJournal()) code = WriteJournal();
  if (code == 0) {
    code = CarryOutAll();
    if (code == 0) {
      code = Finish();
    } else {
      RollBack();
    }
  }
  files_.clear();
  journal_.Release();
  return code;
}

// A single file that is replaced or removed is so whole, or not, by itself.
bool UnitOfWork::NeedsJournal() const { return changes_.size() > 1 || !IsWhole(changes_.front()); }

int UnitOfWork::WriteJournal() {
  if (const int code = NoteAfter(); code != 0) return code;
  return journal_.Write(undos_);
}

// What whoever finds the journal knows the files by.
int UnitOfWork::NoteAfter() {
  for (std::size_t i = 0; i < changes_.size(); ++i) NoteBytesAfter(changes_[i], undos_[i]);
  for (FileIndex index = 0; index < files_.size(); ++index) {
    RecordsOfFile records;
    std::vector<AfterChange*> afters;
    AfterChange common;
    for (std::size_t i = 0; i < changes_.size(); ++i) {
      if (IsWhole(changes_[i]) || changes_[i].file != index) continue;
      records.push_back(&undos_[i]);
      afters.push_back(&*undos_[i].after);
      common.size = std::max(common.size, afters.back()->size);
    }
    if (records.empty()) continue;
    platform::File& file = files_[index].file;
    const PresentFile present{records.front()->old_size,
                              [&file](std::int64_t offset, std::span<std::byte> bytes) {
                                return file.ReadAt(offset, bytes);
                              }};
    if (!files_[index].is_new && !SumOfUntouched(records, present, common.sum)) return ERR_IO;
    for (AfterChange* after : afters) {
      after->size = common.size;
      after->sum = common.sum;
    }
  }
  return 0;
}

void UnitOfWork::NoteBytesAfter(const Change& change, UndoRecord& undo) const {
  AfterChange& after = undo.after.emplace();
  const std::int64_t end = change.offset + static_cast<std::int64_t>(change.bytes.size());
  after.size = std::max(undo.old_size, end);
  if (IsWhole(change)) {
    after.size = end;
    after.sum = Crc32(change.bytes);
    if (undo.kind == UndoKind::kReplaced) return;
  }
  const std::size_t count = std::min(change.bytes.size(), kMostNewBytes);
  after.bytes.assign(change.bytes.begin(),
                     change.bytes.begin() + static_cast<std::ptrdiff_t>(count));
}

int UnitOfWork::NoteUndo(const Change& change) {
  UndoRecord& undo = undos_.emplace_back();
  undo.name = NameOf(PathOf(change), journal_path_);
  if (!IsUndoName(undo.name)) return ERR_OPEN;  // nobody would put it back
  if (IsWhole(change)) return NoteOldFile(change.path, undo);
  if (files_[change.file].is_new) {
    undo.kind = UndoKind::kMade;
    undo.offset = change.offset;
    return change.kind == Kind::kMake && platform::FileExists(PathOf(change)) ? ERR_OPEN : 0;
  }
  platform::File& file = files_[change.file].file;
  undo.old_size = file.Size();
  if (undo.old_size < 0) return ERR_IO;
  undo.offset = change.offset;
  const std::int64_t end =
      std::min(undo.old_size, change.offset + static_cast<std::int64_t>(change.bytes.size()));
  undo.old_bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(0, end - change.offset)));
  const std::int64_t count = file.ReadAt(change.offset, undo.old_bytes);
  return count == static_cast<std::int64_t>(undo.old_bytes.size()) ? 0 : ERR_IO;
}

int UnitOfWork::NoteOldFile(const std::string& path, UndoRecord& undo) {
  undo.kind = UndoKind::kMade;
  if (!platform::FileExists(path)) return 0;
  undo.kind = UndoKind::kReplaced;
  std::string text;
  if (const int code = platform::ReadWholeFile(path, text); code != 0) {
    refused_path_ = path;
    return code;
  }
  const std::span<const std::byte> bytes = std::as_bytes(std::span(text));
  undo.old_size = static_cast<std::int64_t>(bytes.size());
  undo.old_bytes.assign(bytes.begin(), bytes.end());
  return 0;
}

int UnitOfWork::CarryOutAll() {
  for (std::size_t i = 0; i < changes_.size(); ++i) {
    if (const int code = CarryOut(i); code != 0) return code;
  }
  if (!SyncFiles()) return ERR_IO;
  if (!FilesStand()) return ERR_OPEN;  // nobody would find what was written
  const auto is_new = [](const OpenFile& open) { return open.is_new; };
  const bool has_new = std::any_of(files_.begin(), files_.end(), is_new);
  return !has_new || platform::SyncFolderOf(journal_path_) ? 0 : ERR_IO;
}

int UnitOfWork::CarryOutReplacement(const Change& change) {
  const platform::Replacement result = platform::TryReplaceFile(change.path, change.bytes);
  switch (result) {
    case platform::Replacement::kDone:
    case platform::Replacement::kNotSynced:
      ++begun_;
      break;
    case platform::Replacement::kHeld:
    case platform::Replacement::kRefused:
      refused_path_ = change.path;
      break;
  }
  if (result == platform::Replacement::kDone) return 0;
  return result == platform::Replacement::kHeld ? ERR_OPEN : ERR_IO;
}

int UnitOfWork::CarryOutWhole(const Change& change) {
  if (change.kind == Kind::kReplace) return CarryOutReplacement(change);
  platform::File held;  // nobody else has it
  if (platform::FileExists(change.path) &&
      !held.Open(change.path, platform::File::Mode::kReadWrite)) {
    refused_path_ = change.path;
    return ERR_OPEN;
  }
  ++begun_;  // it may be gone although the folder could not be synced
  return platform::RemoveFile(change.path) ? 0 : ERR_IO;
}

// Whether the path of a file that was not there, and that none of the changes before has made, is
// taken by now: by somebody whose file nobody could put back.
bool UnitOfWork::IsTakenMeanwhile(std::size_t index) const {
  const std::string& path = changes_[index].path;
  const auto is_ours = [&path](const Change& change) { return change.path == path; };
  return undos_[index].kind == UndoKind::kMade &&
         std::none_of(changes_.begin(), changes_.begin() + static_cast<std::ptrdiff_t>(index),
                      is_ours) &&
         platform::FileExists(path);
}

int UnitOfWork::CarryOut(std::size_t index) {
  const Change& change = changes_[index];
  if (IsWhole(change)) {
    if (!IsTakenMeanwhile(index)) return CarryOutWhole(change);
    refused_path_ = change.path;
    return ERR_OPEN;
  }
  OpenFile& open = files_[change.file];
  const bool makes = change.kind == Kind::kMake;
  if (makes && platform::FileExists(open.path)) return ERR_OPEN;  // somebody's, since a moment ago
  ++begun_;  // a file that is made may be there although it does not open
  if (makes && !open.file.Open(open.path, platform::File::Mode::kCreateNew)) return ERR_OPEN;
  return open.file.WriteAt(change.offset, change.bytes) ? 0 : ERR_IO;
}

// The journal is emptied last: that is the moment at which the change has happened. Without its
// records nothing is put back any more, half of which would stay for good.
int UnitOfWork::Finish() {
  if (!journal_.is_active() || journal_.Empty() == 0) return 0;
  if (journal_.WriteAgain()) RollBack();
  return ERR_IO;
}

bool UnitOfWork::SyncFiles() {
  return std::all_of(files_.begin(), files_.end(),
                     [](OpenFile& open) { return !open.file.is_open() || open.file.Sync(); });
}

bool UnitOfWork::FilesStand() const {
  return std::all_of(files_.begin(), files_.end(), [](const OpenFile& open) {
    return !open.file.is_open() || open.file.PlaceAt(open.path) == platform::File::Place::kThere;
  });
}

bool UnitOfWork::PutBackChange(const Change& change, const UndoRecord& undo) {
  if (IsWhole(change)) return PutBackWhole(change.path, undo) == 0;
  OpenFile& open = files_[change.file];
  if (!open.is_new) return PutBack(open.file, undo);
  if (change.kind != Kind::kMake) return true;  // it goes with the file
  return open.file.is_open() ? RemoveMade(open.file, open.path) : RemoveUnopened(open.path);
}

// Putting overwritten bytes back needs no new space, so that a full disk does not stand in its
// way. The old bytes were all noted before the first change: the order does not matter. What could
// not be put back stays in the journal.
void UnitOfWork::RollBack() {
  bool done = true;
  for (std::size_t i = 0; i < begun_; ++i) done = PutBackChange(changes_[i], undos_[i]) && done;
  done = SyncFiles() && done;
  if (done && journal_.is_active() && journal_.Empty() != 0) (void)journal_.WriteAgain();
}

}  // namespace brovanta
