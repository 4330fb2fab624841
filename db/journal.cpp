#include "db/journal.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

#include "db/error_codes.h"
#include "db/file_names.h"
#include "db/journal_fit.h"
#include "platform/text_file.h"

namespace brovanta {
namespace {

using platform::File;

std::size_t FolderLength(std::string_view path) {
  const std::size_t separator = path.find_last_of("\\/");
  return separator == std::string_view::npos ? 0 : separator + 1;
}

// What the open journal holds, no records for one that is emptied but not yet cut; nothing in
// `records` when it is not to be followed. 0 or ERR_IO.
int Read(File& file, std::optional<std::vector<UndoRecord>>& records) {
  const std::int64_t size = file.Size();
  if (size < 0) return ERR_IO;
  if (size == 0) records.emplace();
  if (size == 0 || size > platform::kLargestWholeFile) return 0;
  // A large file that is none of ours is not even read.
  std::array<std::byte, journal_layout::kFirstRecord> first;
  const std::int64_t count = file.ReadAt(0, first);
  if (count < 0) return ERR_IO;
  const auto start = std::span(first).first(static_cast<std::size_t>(count));
  if (IsEmptiedJournal(start)) records.emplace();
  if (records || !IsJournalStart(start, static_cast<std::uint64_t>(size))) return 0;
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  if (file.ReadAt(0, bytes) != size) return ERR_IO;
  records = DecodeJournal(bytes);
  return 0;
}

// The files that are written to while they are put back, open.
struct FilesToPutBack {
  std::map<std::string, File> files;  // by name
  std::vector<std::string> doubtful;  // names of some of them
  bool fit = true;                    // false: the files are not those that the journal speaks of
};

// Looks at a file of the journal, and keeps it open when it is written to. One that is put back
// whole is only looked at: holding it would keep ourselves out.
int OpenFile(const std::string& path, const RecordsOfFile& records, FilesToPutBack& to) {
  File file;
  PresentFile present;
  if (platform::FileExists(path)) {
    if (!file.Open(path, File::Mode::kReadWrite)) return ERR_OPEN;
    present.size = file.Size();
    if (present.size < 0) return ERR_IO;
  }
  present.read_at = [&file](std::int64_t offset, std::span<std::byte> bytes) {
    return file.ReadAt(offset, bytes);
  };
  const Fit fit = FitOf(records, present);
  if (fit == Fit::kNotRead) return ERR_IO;
  // What is too large to be kept stays as it is.
  const bool can_be_kept = present.size <= platform::kLargestWholeFile;
  to.fit = fit == Fit::kFits || (fit == Fit::kDoubtful && can_be_kept);
  const UndoRecord& first = *records.front();
  if (fit == Fit::kDoubtful && to.fit) to.doubtful.push_back(first.name);
  const bool is_written = first.kind == UndoKind::kOverwritten || IsMadeInPlace(records);
  if (to.fit && is_written && file.is_open()) to.files[first.name] = std::move(file);
  return 0;
}

// Whether a file stands where the folder of a file was that is to be put back.
bool HasLostItsFolder(const std::string& folder, const UndoRecord& record) {
  const std::size_t slash = record.name.find('/');
  if (record.kind != UndoKind::kReplaced || slash == std::string::npos) return false;
  File there;
  return there.Open(folder + record.name.substr(0, slash), File::Mode::kRead);
}

// Looks at every file before the first one changes.
int OpenFiles(const std::string& folder, std::span<const UndoRecord> records, FilesToPutBack& to) {
  for (const auto& [name, records_of_file] : ByFile(records)) {
    const std::string path = folder + name;
    if (platform::IsOtherThanFile(path) || HasLostItsFolder(folder, *records_of_file.front())) {
      to.fit = false;
    }
    if (!to.fit) return 0;
    if (const int code = OpenFile(path, records_of_file, to); code != 0) return code;
  }
  return 0;
}

// Whether a file that was put aside from the path has these bytes: a roll-back that was interrupted
// keeps them once only.
bool IsKept(const std::string& path, std::span<const std::byte> bytes) {
  std::string aside = path + ".bad";
  for (int number = 2; platform::SizeOfFile(aside) > 0; ++number) {
    std::string text;
    if (platform::ReadWholeFile(aside, text) == 0) {
      const auto kept = std::as_bytes(std::span(text));
      if (std::equal(kept.begin(), kept.end(), bytes.begin(), bytes.end())) return true;
    }
    aside = path + ".bad" + std::to_string(number);
  }
  return false;
}

bool KeepBytes(const std::string& path, File& file) {
  const std::int64_t size = file.Size();
  if (size < 0) return false;
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  if (file.ReadAt(0, bytes) != size) return false;
  if (IsKept(path, bytes)) return true;
  const auto aside = platform::FreePathAside(path);
  return aside && platform::ReplaceFile(*aside, bytes);
}

int PutBackOne(const std::string& folder, const UndoRecord& record, FilesToPutBack& from) {
  const std::string path = folder + record.name;
  const auto found = from.files.find(record.name);
  if (found == from.files.end()) return PutBackWhole(path, record);
  const bool is_made = record.kind == UndoKind::kMade;
  const bool done = is_made ? RemoveMade(found->second, path) : PutBack(found->second, record);
  return done ? 0 : ERR_IO;
}

// 0, ERR_OPEN or ERR_IO; `fit` false when the journal is not to be followed.
int Follow(const std::string& folder, std::span<const UndoRecord> records, bool& fit) {
  FilesToPutBack files;
  if (const int code = OpenFiles(folder, records, files); code != 0) return code;
  fit = files.fit;
  if (!fit) return 0;
  for (const std::string& name : files.doubtful) {
    if (!KeepBytes(folder + name, files.files[name])) return ERR_IO;
  }
  for (const UndoRecord& record : records) {
    if (const int code = PutBackOne(folder, record, files); code != 0) return code;
  }
  for (auto& [name, file] : files.files) {
    if (!file.Sync()) return ERR_IO;
  }
  return 0;
}

int SetAside(const std::string& path) {
  const auto aside = platform::FreePathAside(path);
  return aside && platform::RenameFile(path, *aside) ? 0 : ERR_OPEN;
}

// The journals whose emptiness is known to have reached the storage device, by their paths, in the
// states in which this program left them. One that a program left which was killed, or whose device
// failed, may look empty and come back full after a power loss; a change that needs no records
// would be undone by it then.
class Settled {
 public:
  // Whether this one is, or is from now on: asks the device once for each journal, and again when
  // another program has changed it since.
  bool Settle(const std::string& path, File& file) {
    const auto state = file.State();
    if (!state) return false;
    const std::lock_guard lock(mutex_);
    const auto found = states_.find(path);
    if (found != states_.end() && found->second == *state) return true;
    if (!file.Sync() || !platform::SyncFolderOf(path)) return false;
    states_[path] = *state;
    return true;
  }
  // It has been emptied by this program, and that has reached the device: its state is another one,
  // under whatever name it was settled.
  void Keep(const File& file) {
    const auto state = file.State();
    const std::lock_guard lock(mutex_);
    for (auto& [path, left] : states_) {
      if (state && IsOf(left, *state)) left = *state;
    }
  }
  // All of them when the file does not say which one it is.
  void Forget(const File& file) {
    const auto state = file.State();
    const std::lock_guard lock(mutex_);
    std::erase_if(states_, [&](const auto& entry) { return !state || IsOf(entry.second, *state); });
  }

 private:
  static bool IsOf(const platform::FileState& one, const platform::FileState& other) {
    return one.device == other.device && one.number == other.number;
  }

  std::mutex mutex_;
  std::map<std::string, platform::FileState> states_;
};

Settled& SettledJournals() {
  static Settled settled;
  return settled;
}

// Writes zeros over the end of the file from `offset` on. What is only cut off may stay on the
// device, and stand there again when the power goes after the file has got a new size and before it
// has got the bytes. False where no bytes can be written, which nobody need know of: there a new
// block would have been taken for the zeros.
bool Wipe(File& file, std::int64_t offset) {
  constexpr std::int64_t kPiece = std::int64_t{64} << 10;
  const std::int64_t size = file.Size();
  const std::vector<std::byte> zeros(
      static_cast<std::size_t>(std::clamp<std::int64_t>(size - offset, 0, kPiece)));
  for (std::int64_t at = offset; at < size; at += kPiece) {
    const auto count = static_cast<std::size_t>(std::min(kPiece, size - at));
    if (!file.WriteAt(at, std::span(zeros).first(count))) return false;
  }
  return size >= 0;
}

// The cut alone empties the journal; the zeros keep it from coming back in the place of the next
// one. The system throws away what is cut off before it was written, and only the zeros of the
// first block reach the device with the cut, those over count, length and checksum among them. A
// journal that is longer than the smallest of blocks has its zeros on the device before it is cut.
bool MakeEmpty(File& file, std::size_t size = journal_layout::kEmptySize) {
  constexpr std::int64_t kSmallestBlock = 1024;
  const bool is_long = file.Size() > kSmallestBlock;
  const bool wiped = Wipe(file, journal_layout::kEmptySize);
  const bool waited = !wiped || !is_long || file.Sync();
  const bool done = waited && file.Truncate(static_cast<std::int64_t>(size)) && file.Sync();
  if (done) {
    SettledJournals().Keep(file);
  } else {
    SettledJournals().Forget(file);
  }
  return done;
}

// Whether an empty journal ends where it should.
bool IsCut(const File& file) {
  const std::int64_t size = file.Size();
  return size >= 0 && size <= static_cast<std::int64_t>(journal_layout::kEmptySize);
}

}  // namespace

std::string JournalBeside(std::string_view path) {
  return std::string(path.substr(0, FolderLength(path))).append(kJournalFile);
}

int RollBackJournal(const std::string& path) {
  if (!platform::FileExists(path)) return 0;
  File journal;
  if (!journal.Open(path, File::Mode::kReadWrite)) return ERR_OPEN;
  std::optional<std::vector<UndoRecord>> records;
  if (const int code = Read(journal, records); code != 0) return code;
  if (!records) return SetAside(path);
  if (records->empty()) return IsCut(journal) || MakeEmpty(journal) ? 0 : ERR_IO;
  bool fit = true;
  const std::string folder = path.substr(0, FolderLength(path));
  if (const int code = Follow(folder, *records, fit); code != 0) return code;
  if (!fit) return SetAside(path);
  return MakeEmpty(journal) ? 0 : ERR_IO;
}

bool MayHoldRecords(const std::string& path) {
  const std::int64_t size = platform::SizeOfFile(path);
  return size < 0 || size > static_cast<std::int64_t>(journal_layout::kEmptySize);
}

bool HasNothingToFollow(const std::string& path) {
  if (platform::IsOtherThanFile(path)) return true;
  File file;
  std::optional<std::vector<UndoRecord>> records;
  if (!file.Open(path, File::Mode::kRead) || Read(file, records) != 0) return false;
  return !records || records->empty();
}

bool PutBack(File& file, const UndoRecord& record) {
  if (!file.WriteAt(record.offset, record.old_bytes)) return false;
  if (file.Size() == record.old_size) return true;
  // On the device before they are cut off: otherwise the system would throw the zeros away.
  return (!Wipe(file, record.old_size) || file.Sync()) && file.Truncate(record.old_size);
}

bool RemoveMade(File& file, const std::string& path) {
  if (file.PlaceAt(path) == File::Place::kElsewhere) return true;
  return (!Wipe(file, 0) || file.Sync()) && platform::RemoveFile(path);
}

int PutBackWhole(const std::string& path, const UndoRecord& record) {
  if (record.kind == UndoKind::kMade) return platform::RemoveFile(path) ? 0 : ERR_IO;
  // The folder of the results may be gone as a whole.
  const std::string folder = path.substr(0, FolderLength(path));
  if (!folder.empty() && !platform::CreateFolder(folder)) return ERR_IO;
  const platform::Replacement result = platform::TryReplaceFile(path, record.old_bytes);
  if (result == platform::Replacement::kHeld) return ERR_OPEN;
  return result == platform::Replacement::kDone ? 0 : ERR_IO;
}

int Journal::Hold(const std::string& path) {
  path_ = path;
  if (!file_.Open(path, File::Mode::kReadWrite)) {
    if (platform::FileExists(path) || !file_.Open(path, File::Mode::kCreateNew)) return ERR_OPEN;
  }
  std::optional<std::vector<UndoRecord>> records;
  if (Read(file_, records) != 0 || !records || !records->empty() || !IsCut(file_) ||
      !SettledJournals().Settle(path, file_)) {
    file_.Close();
    return ERR_OPEN;
  }
  is_new_ = file_.Size() == 0;
  return 0;
}

int Journal::Write(std::span<const UndoRecord> records) {
  std::vector<std::byte> bytes = EncodeJournal(records);
  if (bytes.size() > static_cast<std::size_t>(platform::kLargestWholeFile)) return ERR_IO;
  if (file_.PlaceAt(path_) != File::Place::kThere)
    return ERR_OPEN;  // nobody would find the records
  // An empty file may be one whose name has not reached the storage device yet; after a power loss
  // nobody would find it. From now on it has its first words.
  if (is_new_ && !platform::SyncFolderOf(path_)) return ERR_IO;
  if (file_.WriteAt(0, bytes) && file_.Sync()) {
    written_ = std::move(bytes);
    return 0;
  }
  (void)MakeEmpty(file_, is_new_ ? 0 : journal_layout::kEmptySize);
  return ERR_IO;
}

bool Journal::WriteAgain() { return file_.WriteAt(0, written_) && file_.Sync(); }

int Journal::Empty() {
  if (!MakeEmpty(file_)) return ERR_IO;
  written_.clear();
  return 0;
}

}  // namespace brovanta
