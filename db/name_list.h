// A name list (stores, categories, units): entries by id, with their file.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "db/records.h"

namespace brovanta {

class UnitOfWork;

/// Ids from here on are given to names that the user adds; those below come from the server.
inline constexpr std::int32_t kFirstOwnId = 5000;

/// What a caller passes for a store, category or unit when it saves a record: an existing id, or 0
/// and a new name (cut to 49 bytes when stored). "No store" is a missing reference, never an empty
/// name: an empty name with id 0 becomes an entry like any other.
struct NameRef {
  std::int32_t Id = 0;
  std::string Name;  ///< Windows-1252
};

/// What is kept of a name, in one letter case: names for which it is the same mean one entry.
[[nodiscard]] std::string StoredForm(std::string_view name);

/// Entries in ascending id order. Pointers to entries stay valid until the entry is erased or the
/// list is cleared or loaded. One shared cursor: walks must not be nested.
class NameList {
 public:
  NameList() = default;

  /// Empties the list and reads the file at the documented path. 0, ERR_OPEN, ERR_FORMAT, or ERR_IO
  /// for a short entry or one with an id below 1; what was read before an error is kept.
  [[nodiscard]] int Load(const std::string& path);

  /// Whether every entry of the file is in the list: Load, EnsureLoaded or Save succeeded.
  [[nodiscard]] bool loaded() const { return loaded_; }

  /// Brings a list that was not loaded up to date with its file, so that a new id does not collide
  /// with one that is there: entries held here win, a missing file counts as empty, and of a
  /// damaged one what can be read is taken. 0, or ERR_OPEN when there is a file that does not open.
  [[nodiscard]] int EnsureLoaded(const std::string& path);

  /// Takes over what another program has written since, or a roll-back has undone: the file's
  /// entries win over those held here, and those that it does not have go. A list that was not
  /// loaded goes through EnsureLoaded instead. Whoever is about to add and write calls this in a
  /// unit of work that has begun; so no program overwrites what another one added. Of a file that
  /// is damaged since, what can be read is taken, nothing that is held goes, and the next save
  /// keeps its bytes. 0, ERR_OPEN when a file does not open, or ERR_IO when the system does not
  /// give its bytes. A list whose file is missing stays as it is.
  [[nodiscard]] int Refresh(const std::string& path);

  /// Rewrites the file whole. A list that was not loaded goes through EnsureLoaded first, and the
  /// bytes of a damaged file are kept in "<name>.bad" (a number behind it where that is taken). 0
  /// or an error code; with an error the old file stands as it was.
  [[nodiscard]] int Save(const std::string& path);

  /// Save as a part of a unit of work: notes what it would write, 0 or an error code. MarkSaved
  /// says that the unit has been committed.
  [[nodiscard]] int NoteSave(UnitOfWork& work, const std::string& path);
  void MarkSaved() { loaded_ = true; }

  /// The bytes of the list file.
  [[nodiscard]] std::vector<std::byte> Encode() const;

  void Insert(const ListItem& item);  ///< replaces an entry of the same id; ids below 1 are ignored
  void Erase(std::int32_t id);
  void Clear();

  [[nodiscard]] const ListItem* Find(std::int32_t id) const;
  [[nodiscard]] ListItem* Find(std::int32_t id);
  [[nodiscard]] std::size_t size() const { return items_.size(); }
  [[nodiscard]] bool empty() const { return items_.empty(); }

  /// Highest id, 0 for an empty list.
  [[nodiscard]] std::int32_t LargestId() const;

  /// The id for a new own name: kFirstOwnId, or the largest id + 1 when that is at least 4999.
  /// Nothing when the ids are used up.
  [[nodiscard]] std::optional<std::int32_t> NextOwnId() const;

  [[nodiscard]] const ListItem* First();
  [[nodiscard]] const ListItem* Next();

  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

 private:
  enum class Winner { kHeld, kFile };
  struct FileContents {
    int code = 0;
    bool unknown = false;        // not read: neither sound nor damaged
    std::set<std::int32_t> ids;  // of the entries
  };
  [[nodiscard]] FileContents Read(const std::string& path, Winner winner);

  std::map<std::int32_t, ListItem> items_;
  std::int32_t cursor_ = 0;  // id of the entry handed out last
  bool loaded_ = false;
};

}  // namespace brovanta
