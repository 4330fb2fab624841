#include "db/new_names.h"

#include "db/error_codes.h"

namespace brovanta {

NewNames::~NewNames() {
  for (NameRef* reference : resolved_) {
    list_.Erase(reference->Id);
    reference->Id = 0;
  }
}

int NewNames::Refresh() {
  if (refreshed_) return 0;
  const bool was_loaded = list_.loaded();
  const int code = list_.Refresh(path_);
  refreshed_ = code == 0;
  if (refreshed_ && !was_loaded) last_unseen_ = list_.LargestId();
  unreadable_ = unreadable_ || code != 0;
  return code;
}

// The id of the entry that whoever chose the name could not see, or 0.
std::int32_t NewNames::UnseenId(const std::string& name) const {
  if (name.empty()) return 0;
  const std::string stored = StoredForm(name);
  for (const auto& [id, item] : list_) {
    if (id > last_unseen_) break;  // added here, and gone again unless it is kept
    if (StoredForm(item.Name.view()) == stored) return id;
  }
  return 0;
}

int NewNames::Resolve(NameRef& reference) {
  if (reference.Id != 0) return 0;
  if (!may_add_) return ERR_IO;
  if (const int code = Refresh(); code != 0) return code;
  reference.Id = UnseenId(reference.Name);
  if (reference.Id != 0) return 0;
  const std::optional<std::int32_t> id = list_.NextOwnId();
  if (!id) return ERR_IO;
  ListItem item;
  item.Id = *id;
  item.Name.Assign(reference.Name);
  list_.Insert(item);
  reference.Id = *id;
  resolved_.push_back(&reference);
  return 0;
}

int NewNames::NoteSave(UnitOfWork& work) {
  return resolved_.empty() ? 0 : list_.NoteSave(work, path_);
}

void NewNames::Keep() {
  if (!resolved_.empty()) list_.MarkSaved();
  resolved_.clear();
}

}  // namespace brovanta
