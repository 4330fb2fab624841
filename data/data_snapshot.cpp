#include "data/data_snapshot.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "data/check_searches.h"
#include "data/data_files.h"
#include "db/journal_format.h"
#include "db/record_format.h"
#include "platform/file.h"
#include "platform/folder.h"
#include "platform/text_file.h"
#include "util/error_codes.h"

namespace brovanta {
namespace {

using platform::File;

/// The journal, held while this lives. A missing one cannot be held: it must still be missing when
/// everything has been read.
class HeldJournal {
 public:
  explicit HeldJournal(std::string path) : path_(std::move(path)) {}

  SnapshotResult Hold() {
    if (!platform::FileExists(path_)) return SnapshotResult::kTaken;
    if (!file_.Open(path_, File::Mode::kRead)) return SnapshotResult::kBusy;
    const std::int64_t size = file_.Size();
    if (size == 0) return SnapshotResult::kTaken;
    // What is longer than an empty journal is to be rolled back or set aside.
    if (size != static_cast<std::int64_t>(journal_layout::kEmptySize)) {
      return size < 0 ? SnapshotResult::kFailed : SnapshotResult::kUnfinished;
    }
    std::vector<std::byte> bytes(journal_layout::kEmptySize);
    if (file_.ReadAt(0, bytes) != size) return SnapshotResult::kFailed;
    return DecodeJournal(bytes) ? SnapshotResult::kTaken : SnapshotResult::kUnfinished;
  }

  [[nodiscard]] bool HeldAllTheTime() const {
    return file_.is_open() || !platform::FileExists(path_);
  }

 private:
  std::string path_;
  File file_;
};

SnapshotResult ReadInto(const std::string& folder, const std::string& name,
                        DataSnapshot& snapshot) {
  const std::string path = folder + "/" + name;
  if (!platform::FileExists(path)) return SnapshotResult::kTaken;
  std::string bytes;
  const int code = platform::ReadWholeFile(path, bytes);
  if (code == ERR_OPEN) return SnapshotResult::kBusy;
  if (code != 0) return SnapshotResult::kFailed;
  snapshot.emplace(name, std::move(bytes));
  return SnapshotResult::kTaken;
}

// The names of all data files that there may be; nothing when the results cannot be looked into.
std::optional<std::vector<std::string>> NamesOfData(const std::string& folder) {
  std::vector<std::string> names(data_tool::kDataFiles.begin(), data_tool::kDataFiles.end());
  const std::string results = folder + "/" + kResultsFolder;
  const auto files = platform::NamesIn(results);
  if (!files) return errno == ENOENT ? std::optional(names) : std::nullopt;
  for (const std::string& file : *files) {
    if (data_tool::SearchNumber(file)) names.push_back(std::string(kResultsFolder) + "/" + file);
  }
  return names;
}

}  // namespace

SnapshotResult TakeDataSnapshotInChange(const std::string& folder, DataSnapshot& snapshot,
                                        std::string& refused) {
  snapshot.clear();
  refused = std::string(kResultsFolder);
  const auto names = NamesOfData(folder);
  SnapshotResult result = names ? SnapshotResult::kTaken : SnapshotResult::kFailed;
  for (std::size_t i = 0; result == SnapshotResult::kTaken && i < names->size(); ++i) {
    refused = (*names)[i];
    result = ReadInto(folder, refused, snapshot);
  }
  if (result == SnapshotResult::kTaken) {
    refused.clear();
  } else {
    snapshot.clear();
  }
  return result;
}

SnapshotResult TakeDataSnapshot(const std::string& folder, DataSnapshot& snapshot,
                                std::string& refused) {
  snapshot.clear();
  refused = std::string(".");
  if (!platform::IsFolder(folder)) return SnapshotResult::kFailed;
  refused = std::string(kJournalFile);
  HeldJournal journal(folder + "/" + kJournalFile);
  SnapshotResult result = journal.Hold();
  if (result == SnapshotResult::kTaken) {
    result = TakeDataSnapshotInChange(folder, snapshot, refused);
  }
  if (result == SnapshotResult::kTaken && !journal.HeldAllTheTime()) {
    snapshot.clear();
    result = SnapshotResult::kBusy;
  }
  return result;
}

SnapshotResult TakeDataSnapshot(const std::string& folder, DataSnapshot& snapshot) {
  std::string refused;
  return TakeDataSnapshot(folder, snapshot, refused);
}

std::string WhyNoSnapshot(SnapshotResult result, const std::string& refused) {
  const std::string file = refused.empty() || refused == "." ? "a file" : refused;
  switch (result) {
    case SnapshotResult::kTaken:
      break;
    case SnapshotResult::kBusy:
      return "someone else has " + file + " open, or it may not be read";
    case SnapshotResult::kUnfinished:
      return "a change was left in the middle: start the program once, it undoes it";
    case SnapshotResult::kFailed:
      return file + " cannot be read";
  }
  return {};
}

bool HoldsNothing(const DataSnapshot& snapshot) {
  return std::all_of(snapshot.begin(), snapshot.end(), [](const auto& file) {
    const bool is_list =
        file.first == kStoreFile || file.first == kCategoryFile || file.first == kUnitFile;
    return is_list && file.second.size() <= kEmptyListFile;
  });
}

}  // namespace brovanta
