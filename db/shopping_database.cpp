#include "db/shopping_database.h"

#include <string_view>

#include "db/error_codes.h"
#include "db/file_names.h"
#include "db/journal.h"
#include "db/new_names.h"
#include "db/unit_of_work.h"

namespace brovanta {
namespace {

constexpr std::size_t kMaxPathLength = 249;
constexpr std::size_t kMinFolderLength = 2;

std::string FolderPrefix(std::string folder) {
  if (folder.back() != '\\' && folder.back() != '/') folder += '\\';
  return folder.substr(0, kMaxPathLength);
}

void AppendName(std::string& path, std::string_view name) {
  path = (path.append(name)).substr(0, kMaxPathLength);
}

int Resolve(NameList& list, const std::string& path, const std::string& journal_path,
            NameRef* reference) {
  if (reference == nullptr || reference->Id != 0) return 0;
  UnitOfWork work(journal_path);
  NewNames names(list, path);
  int code = work.Begin();
  if (code == 0) code = names.Resolve(*reference);
  if (code == 0) code = names.NoteSave(work);
  if (code == 0) code = work.Commit();
  if (code == 0) names.Keep();
  return code;
}

}  // namespace

ShoppingDatabase::ShoppingDatabase() : products_(*this), discounts_(*this) {}

int ShoppingDatabase::Open(const std::optional<std::string>& folder) {
  if (folder && folder->size() >= kMinFolderLength) {
    const std::string prefix = FolderPrefix(*folder);
    paths_ = {prefix, prefix, prefix, prefix, prefix, prefix, prefix};
  }
  AppendName(paths_.product, kProductFile);
  AppendName(paths_.purchase, kPurchaseFile);
  AppendName(paths_.discount, kDiscountFile);
  AppendName(paths_.backup, kJournalFile);
  AppendName(paths_.store, kStoreFile);
  AppendName(paths_.category, kCategoryFile);
  AppendName(paths_.unit, kUnitFile);

  stores_.Clear();
  categories_.Clear();
  units_.Clear();
  const int rolled_back = RollBackJournal(paths_.backup);
  may_hold_undone_names_ = rolled_back != 0;
  int code = stores_.Load(paths_.store);
  if (code == 0) code = categories_.Load(paths_.category);
  if (code == 0) code = units_.Load(paths_.unit);
  return code != 0 ? code : rolled_back;
}

int ShoppingDatabase::RollBack() {
  const int code = RollBackJournal(paths_.backup);
  if (code == 0 && may_hold_undone_names_) may_hold_undone_names_ = !ReadNamesAgain();
  return code;
}

void ShoppingDatabase::FinishOpening() {
  // What fails, reading the list will report, or the next save.
  if (may_hold_undone_names_) (void)RollBack();
  (void)stores_.EnsureLoaded(paths_.store);
  (void)categories_.EnsureLoaded(paths_.category);
  (void)units_.EnsureLoaded(paths_.unit);
}

// False when a list is in use: to be tried again.
bool ShoppingDatabase::ReadNamesAgain() {
  const auto read = [](NameList& names, const std::string& path) {
    const bool is_there = platform::FileExists(path);
    const int code = names.loaded() && is_there ? names.Refresh(path) : names.Load(path);
    return code != ERR_OPEN || !is_there;
  };
  const bool stores = read(stores_, paths_.store);
  const bool categories = read(categories_, paths_.category);
  const bool units = read(units_, paths_.unit);
  return stores && categories && units;
}

int ShoppingDatabase::ResolveNames(NameRef* store, NameRef* category, NameRef* unit) {
  int code = RollBack();
  if (code == 0) code = Resolve(stores_, paths_.store, paths_.backup, store);
  if (code == 0) code = Resolve(categories_, paths_.category, paths_.backup, category);
  if (code == 0) code = Resolve(units_, paths_.unit, paths_.backup, unit);
  return code;
}

}  // namespace brovanta
