// Names that get their ids while records are prepared, before anything is written.
#pragma once

#include <string>
#include <vector>

#include "db/name_list.h"
#include "db/unit_of_work.h"

namespace brovanta {

/// Puts new names into a list and gives their references the ids. Unless Keep is called, the
/// destructor takes the names out again and gives the references id 0 back: a name that the file
/// does not take is not kept in memory either. List and references are borrowed. The unit of work
/// that saves the names has begun before the first Resolve: the ids are free in the file then, and
/// stay so.
class NewNames {
 public:
  /// `may_add` false refuses every new name.
  NewNames(NameList& list, std::string path, bool may_add = true)
      : list_(list), path_(std::move(path)), may_add_(may_add) {}
  NewNames(const NewNames&) = delete;
  NewNames& operator=(const NewNames&) = delete;
  ~NewNames();

  /// A reference with an id is left alone; another one gets the next own id, an empty name as well.
  /// Where the list had not been loaded, so that nobody could choose from it, a name that turns out
  /// to be there in any letter case gives its id instead. 0, ERR_IO when there is no id left or no
  /// name may be added, or the code of NameList::Refresh.
  [[nodiscard]] int Resolve(NameRef& reference);

  /// Whether a Resolve failed because the list's file could not be read.
  [[nodiscard]] bool unreadable() const { return unreadable_; }

  [[nodiscard]] bool empty() const { return resolved_.empty(); }

  /// Notes that the list shall be written, if it has a new name. 0 or an error code.
  [[nodiscard]] int NoteSave(UnitOfWork& work);

  /// The unit of work has been committed: the names stay.
  void Keep();

 private:
  [[nodiscard]] int Refresh();
  [[nodiscard]] std::int32_t UnseenId(const std::string& name) const;

  NameList& list_;
  std::string path_;
  bool may_add_;
  bool refreshed_ = false;
  std::int32_t last_unseen_ = 0;  // largest id that came with the refresh of an unloaded list
  bool unreadable_ = false;
  std::vector<NameRef*> resolved_;
};

}  // namespace brovanta
