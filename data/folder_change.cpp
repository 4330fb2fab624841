#include "data/folder_change.h"

#include <span>
#include <utility>

#include "data/backup_names.h"
#include "db/error_codes.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "db/unit_of_work.h"
#include "platform/file.h"

namespace brovanta {
namespace {

constexpr int kMostNames = 1000;
constexpr char kTheFolder[] = "the folder";

// Journal and files have one spelling of the folder.
std::string FolderToUse(const std::string& data_folder) {
  std::string folder = platform::CanonicalFolder(data_folder);
  if (folder.empty()) folder = data_folder;
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

}  // namespace

FolderChange::FolderChange(const std::string& folder)
    : folder_(FolderToUse(folder)), journal_(folder_ + "/" + kJournalFile), backups_(folder_) {}

bool FolderChange::Stop(Outcome outcome, std::string words) {
  end_.outcome = outcome;
  end_.words = std::move(words);
  work_.reset();
  return false;
}

bool FolderChange::TakeFolder() {
  if (!platform::CreateFolder(folder_)) {
    return Stop(Outcome::kFailed, "the folder cannot be made");
  }
  switch (lock_.Take(folder_)) {
    case platform::FolderLock::Outcome::kTaken:
      break;
    case platform::FolderLock::Outcome::kHeld:
      return Stop(Outcome::kInUse, "the program works in this folder: close it first");
    case platform::FolderLock::Outcome::kNotPossible:
      return Stop(Outcome::kFailed, "the folder cannot be locked");
  }
  const int code = RollBackJournal(journal_);
  if (code == ERR_OPEN) return Stop(Outcome::kInUse, "someone else has a file open");
  return code == 0 || Stop(Outcome::kFailed, "an unfinished change cannot be undone");
}

bool FolderChange::Read(const std::string& from, DataSnapshot& snapshot, const std::string& what) {
  std::string refused;
  return Accept(TakeDataSnapshot(from, snapshot, refused), refused, what);
}

bool FolderChange::Accept(SnapshotResult result, const std::string& refused,
                          const std::string& what) {
  const std::string file = refused.empty() || refused == "." ? "a file" : refused;
  switch (result) {
    case SnapshotResult::kTaken:
      return true;
    case SnapshotResult::kBusy:
      return Stop(Outcome::kInUse,
                  "someone else has " + file + " of " + what + " open, or it may not be read");
    case SnapshotResult::kUnfinished:
    case SnapshotResult::kFailed:
      break;
  }
  return Stop(Outcome::kFailed, file + " of " + what + " cannot be read");
}

bool FolderChange::ReadCurrent(const DataSnapshot& wanted) {
  work_.emplace(journal_);
  if (work_->Begin() != 0) return Accept(SnapshotResult::kBusy, kJournalFile, kTheFolder);
  std::string refused;
  const SnapshotResult result = TakeDataSnapshotInChange(folder_, current_, refused);
  if (!Accept(result, refused, kTheFolder)) return false;
  return wanted != current_ || Stop(Outcome::kSame, "");
}

bool FolderChange::KeepCurrent() {
  if (current_.empty()) return true;
  const std::string today = TodaysCopyName();
  int number = 1;
  while (number < kMostNames && backups_.Has(BeforeRestoreName(today, number))) ++number;
  end_.kept_as = BeforeRestoreName(today, number);
  if (backups_.Keep(end_.kept_as, current_)) return true;
  end_.kept_as.clear();
  const std::string obstacle = backups_.Obstacle();
  return Stop(Outcome::kFailed, "what stands there cannot be kept in " + backups_.path() +
                                    (obstacle.empty() ? "" : ": " + obstacle));
}

bool FolderChange::Replace(const DataSnapshot& wanted) {
  for (const auto& [name, bytes] : wanted) {
    const auto old = current_.find(name);
    if (old != current_.end() && old->second == bytes) continue;
    if (name.find('/') != std::string::npos &&
        !platform::CreateFolder(folder_ + "/" + kResultsFolder)) {
      return Stop(Outcome::kFailed, "the folder of the results cannot be made");
    }
    work_->Replace(folder_ + "/" + name, std::as_bytes(std::span(bytes)));
    ++end_.written;
  }
  for (const auto& [name, bytes] : current_) {
    if (wanted.count(name) > 0) continue;
    work_->Remove(folder_ + "/" + name);
    ++end_.removed;
  }
  const int code = work_->Commit();
  if (code == 0) {
    end_.outcome = Outcome::kDone;
    work_.reset();
    return true;
  }
  const std::string& refused = work_->refused_path();
  const std::string file = refused.empty() ? "a file" : refused.substr(folder_.size() + 1);
  // Whatever could not be put back is put back now, or stays in the journal.
  if (RollBackJournal(journal_) != 0) {
    return Stop(Outcome::kUndecided,
                "the files cannot be written; the next start of the program undoes what was done");
  }
  return code == ERR_OPEN
             ? Stop(Outcome::kInUse, "someone else has " + file + " open, or it may not be written")
             : Stop(Outcome::kFailed, "the files cannot be written");
}

}  // namespace brovanta
