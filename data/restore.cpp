#include "data/restore.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "data/folder_change.h"
#include "platform/folder.h"

namespace brovanta {
namespace {

using Outcome = RestoreEnd::Outcome;

// The name of the copy; nothing after the change has been ended.
std::optional<std::string> ChooseCopy(FolderChange& change,
                                      const std::optional<std::string>& name) {
  const std::vector<BackupCopy> copies = change.backups().Copies();
  if (copies.empty() && !platform::IsFolder(change.folder())) {
    change.Stop(Outcome::kNoFolder, "there is no such folder, nor a copy of one");
    return std::nullopt;
  }
  const auto found = std::find_if(copies.rbegin(), copies.rend(), [&](const BackupCopy& copy) {
    return name ? copy.name == *name : copy.is_daily;
  });
  if (found != copies.rend()) return found->name;
  change.Stop(Outcome::kNoCopy, "there is no copy" + (name ? " " + *name : std::string()) + " in " +
                                    change.backups().path());
  return std::nullopt;
}

bool BringBack(FolderChange& change, const std::string& name) {
  DataSnapshot copy;
  if (!change.TakeFolder() || !change.Read(change.backups().PathOf(name), copy, "the copy")) {
    return false;
  }
  if (copy.empty()) return change.Stop(Outcome::kFailed, "there is nothing in the copy");
  return change.ReadCurrent(copy) && change.KeepCurrent() && change.Replace(copy);
}

}  // namespace

RestoreEnd RestoreCopy(const std::string& data_folder,
                       const std::optional<std::string>& copy_name) {
  FolderChange change(data_folder);
  const auto name = ChooseCopy(change, copy_name);
  if (name) (void)BringBack(change, *name);
  return {change.end(), name.value_or("")};
}

}  // namespace brovanta
