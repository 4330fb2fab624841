#include "db/new_names.h"

#include "db/error_codes.h"

namespace brovanta {

NewNames::~NewNames() {
  for (NameRef* reference : resolved_) {
    list_.Erase(reference->Id);
    reference->Id = 0;
  }
}

int NewNames::Resolve(NameRef& reference) {
  if (reference.Id != 0) return 0;
  if (!may_add_) return ERR_IO;
  if (!refreshed_) {
    if (const int code = list_.Refresh(path_); code != 0) {
      unreadable_ = true;
      return code;
    }
    refreshed_ = true;
  }
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
