// The object through which the whole program reaches its data.
#pragma once

#include <optional>
#include <string>

#include "db/discount_list.h"
#include "db/name_list.h"
#include "db/product_list.h"

namespace brovanta {

/// Documented paths of the data files ("\\" between folder and name), each at most 249 bytes.
struct DatabasePaths {
  std::string product;
  std::string purchase;
  std::string discount;
  std::string backup;
  std::string store;
  std::string category;
  std::string unit;
};

/// Paths, name lists and record lists of one data folder. Holds no record that is not on disk:
/// every change is written first. Takes no lock: its users take turns, and a file that someone else
/// has open fails with ERR_OPEN. The lists keep references to this object, so it does not move.
class ShoppingDatabase {
 public:
  ShoppingDatabase();
  ShoppingDatabase(const ShoppingDatabase&) = delete;
  ShoppingDatabase& operator=(const ShoppingDatabase&) = delete;

  /// Builds the seven paths in the folder (UTF-8, native or with "\\"), rolls back what an earlier
  /// run left in the middle, and loads the store, category and unit lists. Returns 0 or the code of
  /// the first list that fails; the lists after it stay empty. When only the roll-back fails, its
  /// code; the lists are loaded all the same, and every change tries again before it begins.
  /// Without a folder, or with one shorter than 2 bytes, the file names are appended to whatever
  /// the paths hold: kept, so that a fresh object works in the current folder.
  [[nodiscard]] int Open(const std::optional<std::string>& folder);

  /// Gives every reference that is present and has id 0 the next own id of its list, in the order
  /// store, category, unit, and rewrites the list. nullptr = missing. 0 or an error code; a name
  /// whose list could not be written is taken out again and its reference keeps id 0.
  [[nodiscard]] int ResolveNames(NameRef* store, NameRef* category, NameRef* unit);

  /// RollBackJournal with this folder's journal: what every change begins with, before it reads.
  /// Where Open could not do it, the name lists are read again once it has been done: they may hold
  /// names of a change that is undone now.
  [[nodiscard]] int RollBack();

  /// Does what Open could not do, if there is any such thing, and reads the name lists that it did
  /// not load, so that no screen takes a sound list for an empty one; what every list that is
  /// loaded begins with, and every dialog that offers names.
  void FinishOpening();

  [[nodiscard]] ProductList& products() { return products_; }
  [[nodiscard]] DiscountList& discounts() { return discounts_; }
  [[nodiscard]] NameList& stores() { return stores_; }
  [[nodiscard]] NameList& categories() { return categories_; }
  [[nodiscard]] NameList& units() { return units_; }
  [[nodiscard]] const DatabasePaths& paths() const { return paths_; }

 private:
  [[nodiscard]] bool ReadNamesAgain();

  DatabasePaths paths_;
  bool may_hold_undone_names_ = false;
  NameList stores_;
  NameList categories_;
  NameList units_;
  ProductList products_;
  DiscountList discounts_;
};

}  // namespace brovanta
