// The discounts: the file "discount.dat" and those of its records that are shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "db/file_image.h"
#include "db/name_list.h"
#include "db/records.h"
#include "db/sorted_records.h"

namespace brovanta {

class NewNames;
class ShoppingDatabase;

/// What Load lets through; 0 or empty = no restriction. A record's own 0 (store, category, dates)
/// means that it applies everywhere and passes.
struct DiscountFilter {
  std::int32_t kind = 0;  ///< carried along, not tested
  std::uint32_t store_id = 0;
  std::uint32_t category_id = 0;
  DateStamp valid_on = 0;       ///< not expired before this date
  DateStamp started_since = 0;  ///< not started before this date
  std::string text{};           ///< words, all in the name or all in the product text
};

/// The values of a discount that a caller gives; texts are Windows-1252 and are cut to their field.
struct DiscountFields {
  std::string name;
  std::string product;
  std::string description;
  std::int16_t type = 0;
  std::uint16_t value_type = 0;
  double value = 0.0;
  DateStamp start_date = 0;
  DateStamp end_date = 0;
  std::optional<NameRef> store;     ///< missing = any store
  std::optional<NameRef> category;  ///< missing = any category
};

/// What Add takes, for AddAll.
struct NewDiscount {
  std::int32_t id = 0;
  std::int16_t source = 0;
  DiscountFields fields;
};

/// The largest discount ids per source, deleted records included.
struct MaxDiscountIds {
  std::int32_t source_1 = 0;
  std::int32_t source_2 = 0;
};

/// What is added to the type in a slot that the search filled.
inline constexpr std::int16_t kFoundByProduct = 100;

/// Actions of DiscountList::Mark.
inline constexpr int kMarkDeleted = 1;
inline constexpr int kMarkFlagged = 2;

/// The list runs from the newest `Stamp` to the oldest; equal stamps keep their order of arrival.
/// Records handed out by pointer stay valid until the list changes. One shared cursor.
class DiscountList {
 public:
  explicit DiscountList(ShoppingDatabase& database) : database_(database) {}

  /// Empties the list, takes the filter over if one is given, and reads the file. 0 or an error
  /// code of error_codes.h; the records read before an error stay in the list.
  [[nodiscard]] int Load(const DiscountFilter* filter);

  /// False before the first discount: Load fails then as it does for a file that cannot be opened.
  [[nodiscard]] bool HasFile() const;

  /// Writes a new discount; an id of 0 is replaced by the file's next, any other is kept. Resolves
  /// new names first (their ids stand in `fields` afterwards). The new record, or nothing.
  [[nodiscard]] std::optional<DiscountRecord> Add(std::int32_t id, std::int16_t source,
                                                  DiscountFields& fields);

  /// Add for all of them, with the same result record for record, but as one unit of work: a
  /// discount whose names cannot be resolved is passed over, and when the file cannot be written
  /// none is added. The number of those added; 0 after any failure but that of a name list, which
  /// is tried twice before the others are added alone.
  std::size_t AddAll(std::span<NewDiscount> discounts);

  /// Writes the discount anew over its record, both flags cleared. The new record, or nothing when
  /// it is not in the file (before any name is resolved) or cannot be written. Of several records
  /// with the key the first that is not deleted is meant, else the first.
  [[nodiscard]] std::optional<DiscountRecord> Update(std::int32_t id, std::int16_t source,
                                                     DiscountFields& fields);

  /// Sets a flag in the record (chosen as by Update), every other byte staying as it is, then takes
  /// it out of the list or flags it there. The id or an error code; an action that is neither
  /// changes nothing.
  [[nodiscard]] int Mark(std::int32_t id, std::int16_t source, int action);

  /// One record straight from the file, deleted ones included; nothing when absent or unreadable.
  [[nodiscard]] std::optional<DiscountRecord> Read(std::int32_t id, std::int16_t source) const;

  /// The discount that a product's slot links, straight from the file: the live record with the
  /// slot's `Id` and `Source`, else, for a slot that the search filled (`Source` 0, `Type` above
  /// kFoundByProduct), the first live one with its `Id` and the `Type` that was found. Nothing when
  /// it is gone or cannot be read, and for a `Type` below 1, which is an empty slot.
  [[nodiscard]] std::optional<DiscountRecord> ReadLinked(const AppliedDiscount& slot) const;

  /// The record with this key in the list, or nullptr.
  [[nodiscard]] const DiscountRecord* Find(std::int32_t id, std::int16_t source) const;

  /// The record that Update and Mark would change, as a form should show it: of several with this
  /// key the first live one of the file. That of the list when the file cannot be read now.
  [[nodiscard]] std::optional<DiscountRecord> FindToChange(std::int32_t id,
                                                           std::int16_t source) const;

  [[nodiscard]] const DiscountRecord* First() { return records_.First(); }
  [[nodiscard]] const DiscountRecord* Next() { return records_.Next(); }
  [[nodiscard]] std::size_t size() const { return records_.size(); }
  [[nodiscard]] const DiscountFilter& filter() const { return filter_; }

  /// The stores of the records in the list that the store list knows; `Count` is the number of
  /// those records. The categories likewise.
  [[nodiscard]] NameList StoresWithDiscounts() const;
  [[nodiscard]] NameList CategoriesWithDiscounts() const;

  /// Scans the whole file; zeros where it cannot be read from the start.
  [[nodiscard]] MaxDiscountIds MaxIds() const;

  /// Puts the discounts of the file that fit the product (not deleted, not expired today, store and
  /// category not contradicting, all words of its name in the discount's name or product text) into
  /// its free slots, in file order: `Id`, and `Type` plus 100; `Source` is left alone. The number
  /// of slots filled or an error code, which leaves those filled before it.
  [[nodiscard]] int FindForProduct(ProductRecord& product) const;

 private:
  [[nodiscard]] int ResolveNames(DiscountFields& fields);
  [[nodiscard]] std::optional<std::size_t> TryAddAll(std::span<NewDiscount> discounts,
                                                     NewNames& stores, NewNames& categories);
  void ShowIfItPasses(const DiscountRecord& record);
  [[nodiscard]] DiscountRecord* Shown(const DiscountRecord& stored) const;
  void Remove(const DiscountRecord* shown);

  ShoppingDatabase& database_;
  DiscountFilter filter_;
  SortedRecords<DiscountRecord> records_;
  FileImage image_;
};

}  // namespace brovanta
