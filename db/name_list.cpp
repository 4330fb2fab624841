#include "db/name_list.h"

#include <algorithm>
#include <limits>
#include <set>
#include <span>
#include <utility>

#include "db/error_codes.h"
#include "db/journal.h"
#include "db/marked_reader.h"
#include "db/record_format.h"
#include "db/unit_of_work.h"
#include "platform/file.h"
#include "platform/text_file.h"
#include "util/little_endian.h"
#include "util/word_search.h"

namespace brovanta {
namespace {

void AppendWord(std::vector<std::byte>& bytes, std::uint32_t word) {
  bytes.resize(bytes.size() + kWordSize);
  StoreLittle(bytes.data() + bytes.size() - kWordSize, word);
}

// Notes a copy of the file under the first free name.
int NoteCopy(UnitOfWork& work, const std::string& path) {
  std::string bytes;
  if (const int code = platform::ReadWholeFile(path, bytes); code != 0) return code;
  std::optional<std::string> copy = platform::FreePathAside(path);
  if (!copy) return ERR_OPEN;
  work.Replace(*std::move(copy), std::as_bytes(std::span(bytes)));
  return 0;
}

}  // namespace

std::string StoredForm(std::string_view name) {
  std::string stored(name.substr(0, kNameSize - 1));
  std::transform(stored.begin(), stored.end(), stored.begin(), [](char character) {
    return static_cast<char>(UpperCase(static_cast<unsigned char>(character)));
  });
  return stored;
}

int NameList::Load(const std::string& path) {
  Clear();
  const int code = Read(path, Winner::kFile).code;
  loaded_ = code == 0;
  return code;
}

// Adds the entries of the file; `winner` says which of two with one id stays.
NameList::FileContents NameList::Read(const std::string& path, Winner winner) {
  FileContents contents;
  MarkedReader reader(list_layout::kSize);
  contents.code = reader.Open(path, platform::File::Mode::kRead, kFirstListMark);
  contents.unknown = contents.code == ERR_OPEN || reader.read_failed();
  if (contents.code != 0) return contents;
  std::set<std::int32_t> held;
  if (winner == Winner::kHeld) {
    for (const auto& [id, item] : items_) held.insert(id);
  }
  while (reader.Next()) {
    const ListItem item = DecodeListItem(
        std::span<const std::byte, list_layout::kSize>(reader.record(), list_layout::kSize));
    if (item.Id < 1) {
      contents.code = ERR_IO;
      return contents;
    }
    contents.ids.insert(item.Id);
    if (!held.contains(item.Id)) Insert(item);
  }
  contents.code = reader.code();
  contents.unknown = reader.read_failed();
  return contents;
}

int NameList::EnsureLoaded(const std::string& path) {
  // A missing file is looked for again next time: its folder may only be out of reach.
  if (loaded_ || !platform::FileExists(path)) return 0;
  const int code = Read(path, Winner::kHeld).code;
  loaded_ = code == 0;
  return code == ERR_OPEN ? code : 0;
}

int NameList::Refresh(const std::string& path) {
  if (!loaded_ || !platform::FileExists(path)) return EnsureLoaded(path);
  const FileContents contents = Read(path, Winner::kFile);
  if (contents.unknown) return contents.code;  // what is held is right, to all appearances
  loaded_ = contents.code == 0;                // damaged since: to be kept aside
  if (loaded_) {
    std::erase_if(items_, [&](const auto& item) { return !contents.ids.contains(item.first); });
  }
  return 0;
}

int NameList::Save(const std::string& path) {
  const std::string journal = JournalBeside(path);
  if (const int code = RollBackJournal(journal); code != 0) return code;
  UnitOfWork work(journal);
  if (const int code = NoteSave(work, path); code != 0) return code;
  const int code = work.Commit();
  if (code == 0) MarkSaved();
  return code;
}

int NameList::NoteSave(UnitOfWork& work, const std::string& path) {
  if (const int code = EnsureLoaded(path); code != 0) return code;
  if (!loaded_ && platform::FileExists(path)) {
    if (const int code = NoteCopy(work, path); code != 0) return code;
  }
  work.Replace(path, Encode());
  return 0;
}

std::vector<std::byte> NameList::Encode() const {
  std::vector<std::byte> bytes;
  bytes.reserve(kEmptyListFile + items_.size() * (kWordSize + list_layout::kSize));
  AppendWord(bytes, FILE_MAGIC);
  for (const auto& [id, item] : items_) {
    AppendWord(bytes, RECORD_MARK);
    const ListItemBytes encoded = EncodeListItem(item);
    bytes.insert(bytes.end(), encoded.begin(), encoded.end());
  }
  AppendWord(bytes, END_MARK);
  return bytes;
}

void NameList::Insert(const ListItem& item) {
  if (item.Id >= 1) items_.insert_or_assign(item.Id, item);
}

void NameList::Erase(std::int32_t id) { items_.erase(id); }

void NameList::Clear() {
  items_.clear();
  cursor_ = 0;
  loaded_ = false;
}

const ListItem* NameList::Find(std::int32_t id) const {
  const auto found = items_.find(id);
  return found == items_.end() ? nullptr : &found->second;
}

ListItem* NameList::Find(std::int32_t id) {
  const auto found = items_.find(id);
  return found == items_.end() ? nullptr : &found->second;
}

std::int32_t NameList::LargestId() const { return items_.empty() ? 0 : items_.rbegin()->first; }

std::optional<std::int32_t> NameList::NextOwnId() const {
  const std::int32_t largest = LargestId();
  if (largest == std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  return largest < kFirstOwnId - 1 ? kFirstOwnId : largest + 1;
}

const ListItem* NameList::First() {
  cursor_ = 0;
  return Next();
}

const ListItem* NameList::Next() {
  const auto next = items_.upper_bound(cursor_);
  if (next == items_.end()) return nullptr;
  cursor_ = next->first;
  return &next->second;
}

}  // namespace brovanta
