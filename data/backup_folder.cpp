#include "data/backup_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>
#include <span>
#include <system_error>

#include "data/backup_names.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace brovanta {
namespace {

using platform::File;

constexpr char kNoRoom[] = "there is hardly any room left on the device";

// Where the data folder is or was, without a slash at its end.
std::string AbsoluteFolder(const std::string& folder) {
  std::string absolute = platform::CanonicalFolder(folder);
  if (absolute.empty()) {
    std::error_code error;
    absolute = std::filesystem::absolute(folder, error).lexically_normal().string();
    if (error) absolute = folder;
  }
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return absolute;
}

bool WriteWhole(const std::string& path, const std::string& text) {
  File file;
  return file.Open(path, File::Mode::kCreateNew) &&
         file.WriteAt(0, std::as_bytes(std::span(text))) && file.Sync();
}

// What the copy takes on the device: whole blocks for each file, and one for each folder.
std::uint64_t RoomFor(const DataSnapshot& snapshot) {
  constexpr std::uint64_t kBlock = 4096;
  std::uint64_t room = 3 * kBlock;
  for (const auto& [name, bytes] : snapshot) room += (bytes.size() / kBlock + 1) * kBlock;
  return room;
}

// True as well where the system does not tell: then a full device shows when it is written to.
bool HasRoom(const std::string& folder, std::uint64_t bytes) {
  const auto free = platform::FreeSpaceAt(folder);
  return !free || *free >= bytes;
}

bool WriteAll(const std::string& folder, const DataSnapshot& snapshot,
              const std::stop_token& stop) {
  std::set<std::string> folders{folder};
  if (!platform::CreateFolder(folder)) return false;
  if (!HasRoom(folder, RoomFor(snapshot) + BackupFolder::kRoomToLeave)) return false;
  for (const auto& [name, bytes] : snapshot) {
    if (stop.stop_requested()) return false;
    const std::string path = std::string(folder).append("/").append(name);
    const std::string above = path.substr(0, path.rfind('/'));
    const bool has_folder = !folders.insert(above).second || platform::CreateFolder(above);
    if (!has_folder || !WriteWhole(path, bytes)) return false;
  }
  return std::all_of(folders.begin(), folders.end(), [](const std::string& one) {
    return platform::SyncFolderOf(one + "/.");  // the names in it
  });
}

BackupCopy Described(const std::string& path, const std::string& name) {
  BackupCopy copy{name, DayOfCopy(name).has_value()};
  std::error_code error;
  const auto end = std::filesystem::recursive_directory_iterator();
  for (auto at = std::filesystem::recursive_directory_iterator(path, error); !error && at != end;
       at.increment(error)) {
    if (!at->is_regular_file(error)) continue;
    ++copy.files;
    const auto size = at->file_size(error);
    if (!error) copy.bytes += static_cast<std::int64_t>(size);
  }
  return copy;
}

}  // namespace

BackupFolder::BackupFolder(const std::string& data_folder)
    : path_(AbsoluteFolder(data_folder) + ".backups") {}

std::vector<BackupCopy> BackupFolder::Copies() const {
  std::vector<BackupCopy> copies;
  const auto names = platform::NamesIn(path_);
  if (!names) return copies;
  for (const std::string& name : *names) {
    if (Has(name)) copies.push_back(Described(PathOf(name), name));
  }
  return copies;
}

bool BackupFolder::Has(const std::string& name) const {
  return IsCopyName(name) && platform::IsFolder(PathOf(name));
}

std::string BackupFolder::Obstacle() const {
  if (platform::FileExists(path_)) {
    if (!platform::IsFolder(path_)) return "something else than a folder stands there";
    if (!platform::IsWritableFolder(path_)) return "the folder may not be written";
    return HasRoom(path_, kRoomToLeave) ? "" : kNoRoom;
  }
  const std::string above = path_.substr(0, path_.rfind('/') + 1);
  if (!platform::IsWritableFolder(above)) return "the folder cannot be made";
  return HasRoom(above, kRoomToLeave) ? "" : kNoRoom;
}

bool BackupFolder::Keep(const std::string& name, const DataSnapshot& snapshot,
                        const std::stop_token& stop) const {
  const std::string part = PathOf(name) + std::string(kPartSuffix);
  if (platform::FileExists(PathOf(name)) || !platform::RemoveWholeFolder(part)) return false;
  if (WriteAll(part, snapshot, stop) && platform::RenameFile(part, PathOf(name))) return true;
  (void)platform::RemoveWholeFolder(part);
  return false;
}

void BackupFolder::ClearAway() const {
  const auto names = platform::NamesIn(path_);
  if (!names) return;
  for (const std::string& name : CopiesToRemove(*names)) {
    // A copy that is half removed must not look like one.
    const std::string part = PathOf(name) + std::string(kPartSuffix);
    if (!platform::RemoveWholeFolder(part) || !platform::RenameFile(PathOf(name), part)) continue;
    (void)platform::RemoveWholeFolder(part);
  }
  for (const std::string& name : *names) {
    if (!name.ends_with(kPartSuffix)) continue;
    if (!IsCopyName(std::string_view(name).substr(0, name.size() - kPartSuffix.size()))) continue;
    (void)platform::RemoveWholeFolder(PathOf(name));
  }
}

}  // namespace brovanta
