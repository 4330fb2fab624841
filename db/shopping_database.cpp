#include "db/shopping_database.h"

#include <string_view>

#include "db/error_codes.h"

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

// An entry that the file cannot take is not kept in memory either.
int Resolve(NameList& list, const std::string& path, NameRef* reference) {
  if (reference == nullptr || reference->Id != 0) return 0;
  if (const int code = list.EnsureLoaded(path); code != 0) return code;
  const std::optional<std::int32_t> id = list.NextOwnId();
  if (!id) return ERR_IO;
  ListItem item;
  item.Id = *id;
  item.Name.Assign(reference->Name);
  list.Insert(item);
  if (const int code = list.Save(path); code != 0) {
    list.Erase(*id);
    return code;
  }
  reference->Id = *id;
  return 0;
}

}  // namespace

ShoppingDatabase::ShoppingDatabase() : products_(*this), discounts_(*this) {}

int ShoppingDatabase::Open(const std::optional<std::string>& folder) {
  if (folder && folder->size() >= kMinFolderLength) {
    const std::string prefix = FolderPrefix(*folder);
    paths_ = {prefix, prefix, prefix, prefix, prefix, prefix, prefix};
  }
  AppendName(paths_.product, "product.dat");
  AppendName(paths_.purchase, "purchase.dat");
  AppendName(paths_.discount, "discount.dat");
  AppendName(paths_.backup, "backup.dat");
  AppendName(paths_.store, "store.lst");
  AppendName(paths_.category, "category.lst");
  AppendName(paths_.unit, "unit.lst");

  stores_.Clear();
  categories_.Clear();
  units_.Clear();
  int code = stores_.Load(paths_.store);
  if (code == 0) code = categories_.Load(paths_.category);
  if (code == 0) code = units_.Load(paths_.unit);
  return code;
}

int ShoppingDatabase::ResolveNames(NameRef* store, NameRef* category, NameRef* unit) {
  int code = Resolve(stores_, paths_.store, store);
  if (code == 0) code = Resolve(categories_, paths_.category, category);
  if (code == 0) code = Resolve(units_, paths_.unit, unit);
  return code;
}

}  // namespace brovanta
