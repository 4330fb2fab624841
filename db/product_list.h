// Products to buy and purchases made: two files of one record, shown through one list.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "db/file_image.h"
#include "db/name_list.h"
#include "db/records.h"
#include "db/sorted_records.h"

namespace brovanta {

class ShoppingDatabase;

/// Record kinds: which file is meant.
inline constexpr int kProductKind = 1;   ///< "product.dat"
inline constexpr int kPurchaseKind = 2;  ///< "purchase.dat"

/// Actions of ProductList::Mark.
inline constexpr int kProductDelete = 1;
inline constexpr int kProductPassOver = 2;   ///< today becomes the last purchase date
inline constexpr int kProductPurchased = 3;  ///< the same, and a purchase is appended

/// What Load lets through; 0 or empty = no restriction, except that a `to` of 0 lets no product
/// with a due date pass that is not overdue. Unlike discounts, a record without a store or category
/// fails a store or category filter.
struct ProductFilter {
  std::int32_t kind = kProductKind;
  std::uint32_t store_id = 0;
  std::uint32_t category_id = 0;
  DateStamp from = 0;
  DateStamp to = 0;  ///< inclusive
  std::string text;  ///< words, all in the name
};

/// The values of a product that a caller gives; texts are Windows-1252 and are cut to their field.
struct ProductFields {
  std::string name;
  std::string short_text;
  std::string notes;
  std::optional<NameRef> store;  ///< missing = none, likewise category and unit
  std::optional<NameRef> category;
  std::optional<NameRef> unit;
  double unit_price = 0.0;
  double quantity = 0.0;
  std::uint16_t purchase_kind = 0;
  std::uint16_t every = 0;
  std::uint16_t day_value = 0;
  DateStamp start_date = 0;
  double tax_percent = 0.0;
  DiscountSlots discounts;
};

/// The list runs from the latest `NextDate` to the earliest; equal dates keep their order of
/// arrival, and purchases (whose `NextDate` is 0) that of their file. It holds one kind at a time,
/// that of its filter. Records handed out by pointer stay valid until the list changes. One shared
/// cursor.
class ProductList {
 public:
  explicit ProductList(ShoppingDatabase& database) : database_(database) {}

  /// Empties the list, takes the filter over if one is given, and reads the file of the filter's
  /// kind, computing due dates. 0 or an error code of error_codes.h; the records read before an
  /// error stay in the list. A kind other than 1 or 2 reads nothing and returns 0.
  [[nodiscard]] int Load(const ProductFilter* filter);

  /// Appends a record behind the file's next id. Resolves new names first (their ids stand in
  /// `fields` afterwards). The new record, or nothing; also for another kind. The list takes the
  /// record up if it is one of this kind and its filter lets it pass, and then the due date
  /// computed for it stands in the result too; in the file it is 0.
  [[nodiscard]] std::optional<ProductRecord> Add(int kind, ProductFields& fields);

  /// Writes the record anew: last purchase and computed fields become 0, so that editing a product
  /// forgets when it was last bought. The new record, or nothing when the id is not in the file
  /// (before any name is resolved) or it cannot be written. Of several records with the id the
  /// first that is not deleted is meant, else the first. The list as with Add.
  [[nodiscard]] std::optional<ProductRecord> Update(int kind, std::int32_t id,
                                                    ProductFields& fields);

  /// Carries an action out on a record (chosen as by Update) and takes it out of a list of its
  /// kind. The id, or an error code; -1 for another kind. kProductPurchased also appends a purchase
  /// made now, and does both or neither: with an error neither file has changed. Any other action
  /// changes nothing, on disk and in the list.
  [[nodiscard]] int Mark(int kind, std::int32_t id, int action);

  /// The record with this id in the list, or nullptr.
  [[nodiscard]] const ProductRecord* Find(std::int32_t id) const;

  [[nodiscard]] const ProductRecord* First() { return records_.First(); }
  [[nodiscard]] const ProductRecord* Next() { return records_.Next(); }
  [[nodiscard]] std::size_t size() const { return records_.size(); }
  [[nodiscard]] const ProductFilter& filter() const { return filter_; }

  /// The stores (categories) of the records in the list that the name list knows; `Count` is the
  /// number of those records.
  [[nodiscard]] NameList StoresInUse() const;
  [[nodiscard]] NameList CategoriesInUse() const;

 private:
  /// Inserts a record that has been written if the list is one of its kind and its filter lets it
  /// pass, computing its due date.
  void Show(int kind, ProductRecord& record);
  /// Takes the element of a record, given as it stood in its file, out of a list of its kind.
  void Hide(int kind, const ProductRecord& stored);

  ShoppingDatabase& database_;
  ProductFilter filter_;
  SortedRecords<ProductRecord> records_;
  FileImage image_;
};

}  // namespace brovanta
