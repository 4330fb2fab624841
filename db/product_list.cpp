#include "db/product_list.h"

#include <array>
#include <string>
#include <utility>

#include "db/count_names.h"
#include "db/error_codes.h"
#include "db/product_filter.h"
#include "db/record_file.h"
#include "db/shopping_database.h"
#include "db/unit_of_work.h"

namespace brovanta {
namespace {

constexpr int kNoSuchKind = -1;

/// The path of a kind's file, nullptr for a number that is no kind.
const std::string* PathOf(const ShoppingDatabase& database, int kind) {
  if (kind == kProductKind) return &database.paths().product;
  if (kind == kPurchaseKind) return &database.paths().purchase;
  return nullptr;
}

LocatedRecord<ProductFormat> Locate(const std::string& path, std::int32_t id) {
  return LocateRecord<ProductFormat>(path, [id](RecordSpan<ProductFormat> bytes) {
    return NumberAt<std::int32_t>(bytes, product_layout::kId) == id;
  });
}

NameRef* Present(std::optional<NameRef>& reference) { return reference ? &*reference : nullptr; }

int ResolveNames(ShoppingDatabase& database, ProductFields& fields) {
  return database.ResolveNames(Present(fields.store), Present(fields.category),
                               Present(fields.unit));
}

std::uint32_t IdOf(const std::optional<NameRef>& reference) {
  return reference ? static_cast<std::uint32_t>(reference->Id) : 0;
}

/// A record as it is written first: never bought, nothing computed, not deleted.
ProductRecord FreshRecord(const ProductFields& fields) {
  ProductRecord record;
  record.Name.Assign(fields.name);
  record.ShortText.Assign(fields.short_text);
  record.Notes.Assign(fields.notes);
  record.StoreId = IdOf(fields.store);
  record.CategoryId = IdOf(fields.category);
  record.UnitId = IdOf(fields.unit);
  record.PurchaseKind = fields.purchase_kind;
  record.Every = fields.every;
  record.DayValue = fields.day_value;
  record.StartDate = fields.start_date;
  record.UnitPrice = fields.unit_price;
  record.Quantity = fields.quantity;
  record.Discounts = fields.discounts;
  record.TaxPercent = fields.tax_percent;
  return record;
}

/// The purchase of a product, made now.
ProductRecord PurchaseOf(const ProductRecord& product) {
  ProductRecord purchase = product;
  purchase.Id = 0;
  // A damaged field may fill all its bytes; what is written anew ends with a zero.
  purchase.Name = FixedText<kNameSize>(product.Name.view());
  purchase.ShortText = FixedText<kShortTextSize>(product.ShortText.view());
  purchase.Notes = FixedText<kLongTextSize>(product.Notes.view());
  purchase.StartDate = NowStamp();
  purchase.LastPurchased = 0;
  purchase.NextDate = 0;
  purchase.DaysOverdue = 0;
  purchase.Deleted = 0;
  return purchase;
}

/// Notes today as the date of the last purchase, and nothing else of the record.
void NoteToday(UnitOfWork& work, UnitOfWork::FileIndex file, std::int64_t record) {
  std::array<std::byte, sizeof(DateStamp)> today;
  StoreLittle(today.data(), TodayStamp());
  work.Write(file, record + static_cast<std::int64_t>(product_layout::kLastPurchased), today);
}

/// Whether an element of the list is the stored record, the computed fields aside.
bool IsElementOf(const ProductRecord& stored, ProductRecord element) {
  element.NextDate = stored.NextDate;
  element.DaysOverdue = stored.DaysOverdue;
  return element == stored;
}

}  // namespace

int ProductList::Load(const ProductFilter* filter) {
  database_.FinishOpening();
  records_.Clear();
  if (filter != nullptr) filter_ = *filter;
  const std::string* path = PathOf(database_, filter_.kind);
  if (path == nullptr) return 0;

  RecordScanner<ProductFormat> scan;
  if (const int code = scan.Open(*path, &image_); code != 0) return code;
  const ProductListMatcher matcher(filter_);
  while (scan.Next()) {
    if (!matcher.MayPass(scan.bytes())) continue;
    records_.AppendIf([&] { return scan.Decode(); },
                      [&](ProductRecord& record) { return matcher.PassesDates(record); });
  }
  records_.Sort();
  return scan.code();
}

std::optional<ProductRecord> ProductList::Add(int kind, ProductFields& fields) {
  const std::string* path = PathOf(database_, kind);
  if (path == nullptr || ResolveNames(database_, fields) != 0) return std::nullopt;

  ProductRecord record = FreshRecord(fields);
  UnitOfWork work(database_.paths().backup);
  if (AppendRecord<ProductFormat>(work, *path, record) != 0) return std::nullopt;
  if (work.Commit() != 0) return std::nullopt;
  Show(kind, record);
  return record;
}

std::optional<ProductRecord> ProductList::Update(int kind, std::int32_t id, ProductFields& fields) {
  const std::string* path = PathOf(database_, kind);
  if (path == nullptr || database_.RollBack() != 0) return std::nullopt;
  LocatedRecord<ProductFormat> located = Locate(*path, id);
  if (located.code != 0 || ResolveNames(database_, fields) != 0) return std::nullopt;

  ProductRecord record = FreshRecord(fields);
  record.Id = id;
  UnitOfWork work(database_.paths().backup);
  const UnitOfWork::FileIndex file = work.Adopt(std::move(located.file), *path);
  work.Write(file, located.offset, EncodeProduct(record));
  if (work.Commit() != 0) return std::nullopt;
  Hide(kind, DecodeProduct(located.bytes));
  Show(kind, record);
  return record;
}

int ProductList::Mark(int kind, std::int32_t id, int action) {
  const std::string* path = PathOf(database_, kind);
  if (path == nullptr) return kNoSuchKind;
  if (const int code = database_.RollBack(); code != 0) return code;
  LocatedRecord<ProductFormat> located = Locate(*path, id);
  if (located.code != 0) return located.code;

  UnitOfWork work(database_.paths().backup);
  const UnitOfWork::FileIndex file = work.Adopt(std::move(located.file), *path);
  // Only the bytes concerned are written: what else stands in the record stays as it is.
  if (action == kProductDelete) {
    work.Write(file, located.offset + static_cast<std::int64_t>(product_layout::kDeleted),
               std::array{std::byte{1}});
  } else if (action == kProductPassOver || action == kProductPurchased) {
    NoteToday(work, file, located.offset);
  } else {
    return id;
  }
  std::optional<ProductRecord> purchase;
  if (action == kProductPurchased) {
    purchase = PurchaseOf(DecodeProduct(located.bytes));
    // Marked in the list of purchases, a purchase is appended to the file that it stands in.
    const int code = kind == kPurchaseKind
                         ? AppendRecord<ProductFormat>(work, file, *purchase)
                         : AppendRecord<ProductFormat>(work, database_.paths().purchase, *purchase);
    if (code != 0) return code;
  }
  if (const int code = work.Commit(); code != 0) return code;
  Hide(kind, DecodeProduct(located.bytes));
  if (purchase) Show(kPurchaseKind, *purchase);
  return id;
}

const ProductRecord* ProductList::Find(std::int32_t id) const {
  return records_.FindFirst([id](const ProductRecord& record) { return record.Id == id; });
}

NameList ProductList::StoresInUse() const {
  return CountNames(records_, &ProductRecord::StoreId, database_.stores());
}

NameList ProductList::CategoriesInUse() const {
  return CountNames(records_, &ProductRecord::CategoryId, database_.categories());
}

void ProductList::Show(int kind, ProductRecord& record) {
  if (kind != filter_.kind) return;
  ProductRecord shown = record;
  if (!ProductListMatcher(filter_).Passes(shown)) return;
  records_.Insert(shown);
  record = shown;
}

// Of several elements with one id it is the one with the stored values.
void ProductList::Hide(int kind, const ProductRecord& stored) {
  if (kind != filter_.kind) return;
  const ProductRecord* shown = records_.FindFirst(
      [&](const ProductRecord& element) { return IsElementOf(stored, element); });
  if (shown == nullptr) shown = Find(stored.Id);
  records_.RemoveFirst([&](const ProductRecord& element) { return &element == shown; });
}

}  // namespace brovanta
