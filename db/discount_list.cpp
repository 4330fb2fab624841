#include "db/discount_list.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "db/count_names.h"
#include "db/discount_match.h"
#include "db/error_codes.h"
#include "db/new_names.h"
#include "db/record_file.h"
#include "db/shopping_database.h"
#include "db/unit_of_work.h"
#include "platform/file.h"
#include "util/date_stamp.h"

namespace brovanta {
namespace {

namespace layout = discount_layout;

bool HasKey(const DiscountRecord& record, std::int32_t id, std::int16_t source) {
  return record.Id == id && record.Source == source;
}

LocatedRecord<DiscountFormat> Locate(const std::string& path, std::int32_t id,
                                     std::int16_t source) {
  return LocateRecord<DiscountFormat>(path, [&](RecordSpan<DiscountFormat> record) {
    return NumberAt<std::int32_t>(record, layout::kId) == id &&
           NumberAt<std::int16_t>(record, layout::kSource) == source;
  });
}

std::uint32_t IdOf(const std::optional<NameRef>& reference) {
  return reference ? static_cast<std::uint32_t>(reference->Id) : 0;
}

DiscountRecord BuildRecord(std::int32_t id, std::int16_t source, const DiscountFields& fields) {
  DiscountRecord record;
  record.Id = id;
  record.Name.Assign(fields.name);
  record.Product.Assign(fields.product);
  record.Description.Assign(fields.description);
  record.Source = source;
  record.Type = fields.type;
  record.ValueType = fields.value_type;
  record.Value = fields.value;
  record.Stamp = TodayStamp();
  record.StartDate = fields.start_date;
  record.EndDate = fields.end_date;
  record.StoreId = IdOf(fields.store);
  record.CategoryId = IdOf(fields.category);
  return record;
}

}  // namespace

int DiscountList::Load(const DiscountFilter* filter) {
  database_.FinishOpening();
  records_.Clear();
  if (filter != nullptr) filter_ = *filter;
  RecordScanner<DiscountFormat> scan;
  if (const int code = scan.Open(database_.paths().discount, &image_); code != 0) return code;
  const DiscountMatcher matcher(filter_);
  while (scan.Next()) {
    const RecordSpan<DiscountFormat> record = scan.bytes();
    if (record[layout::kDeleted] == std::byte{0} && matcher.Passes(record)) {
      records_.AppendIf([&] { return scan.Decode(); }, [](const DiscountRecord&) { return true; });
    }
  }
  records_.Sort();
  return scan.code();
}

bool DiscountList::HasFile() const { return platform::FileExists(database_.paths().discount); }

int DiscountList::ResolveNames(DiscountFields& fields) {
  return database_.ResolveNames(fields.store ? &*fields.store : nullptr,
                                fields.category ? &*fields.category : nullptr, nullptr);
}

void DiscountList::ShowIfItPasses(const DiscountRecord& record) {
  if (DiscountMatcher(filter_).Passes(EncodeDiscount(record))) records_.Insert(record);
}

// Of several records with one key it is the one with the stored values.
DiscountRecord* DiscountList::Shown(const DiscountRecord& stored) const {
  DiscountRecord* const same =
      records_.FindFirst([&](const DiscountRecord& record) { return record == stored; });
  if (same != nullptr) return same;
  return records_.FindFirst(
      [&](const DiscountRecord& record) { return HasKey(record, stored.Id, stored.Source); });
}

void DiscountList::Remove(const DiscountRecord* shown) {
  records_.RemoveFirst([&](const DiscountRecord& record) { return &record == shown; });
}

std::optional<DiscountRecord> DiscountList::Add(std::int32_t id, std::int16_t source,
                                                DiscountFields& fields) {
  if (ResolveNames(fields) != 0) return std::nullopt;
  DiscountRecord record = BuildRecord(id, source, fields);
  UnitOfWork work(database_.paths().backup);
  if (AppendRecord<DiscountFormat>(work, database_.paths().discount, record) != 0 ||
      work.Commit() != 0) {
    return std::nullopt;
  }
  ShowIfItPasses(record);
  return record;
}

std::size_t DiscountList::AddAll(std::span<NewDiscount> discounts) {
  if (discounts.empty() || database_.RollBack() != 0) return 0;
  // A list that cannot be written costs the discounts that need a new name in it, not the others;
  // but first it gets a second chance, since those that are passed over never come again.
  struct Attempt {
    bool new_stores;
    bool new_categories;
  };
  for (const Attempt attempt :
       {Attempt{true, true}, {true, true}, {true, false}, {false, true}, {false, false}}) {
    NewNames stores(database_.stores(), database_.paths().store, attempt.new_stores);
    NewNames categories(database_.categories(), database_.paths().category, attempt.new_categories);
    if (const auto added = TryAddAll(discounts, stores, categories)) return *added;
  }
  return 0;
}

// The number of those added, 0 after an error as well; nothing when it was a list that failed.
std::optional<std::size_t> DiscountList::TryAddAll(std::span<NewDiscount> discounts,
                                                   NewNames& stores, NewNames& categories) {
  UnitOfWork work(database_.paths().backup);
  if (work.Begin() != 0) return 0;
  std::vector<DiscountRecord> records;
  for (NewDiscount& discount : discounts) {
    DiscountFields& fields = discount.fields;
    if (fields.store && stores.Resolve(*fields.store) != 0) continue;
    if (fields.category && categories.Resolve(*fields.category) != 0) continue;
    records.push_back(BuildRecord(discount.id, discount.source, fields));
  }
  // A list that cannot be read now costs no single discounts.
  if (stores.unreadable() || categories.unreadable()) return std::nullopt;
  if (records.empty()) return 0;
  if (stores.NoteSave(work) != 0 || categories.NoteSave(work) != 0) return std::nullopt;
  if (AppendRecords<DiscountFormat>(work, database_.paths().discount, records) != 0) return 0;
  if (work.Commit() != 0) {
    const bool list_failed = !work.refused_path().empty();
    return list_failed ? std::optional<std::size_t>() : 0;
  }
  stores.Keep();
  categories.Keep();
  const DiscountMatcher matcher(filter_);
  for (const DiscountRecord& record : records) {
    if (matcher.Passes(EncodeDiscount(record))) records_.Append(record);
  }
  records_.Sort();
  return records.size();
}

std::optional<DiscountRecord> DiscountList::Update(std::int32_t id, std::int16_t source,
                                                   DiscountFields& fields) {
  if (database_.RollBack() != 0) return std::nullopt;
  LocatedRecord<DiscountFormat> located = Locate(database_.paths().discount, id, source);
  if (located.code != 0 || ResolveNames(fields) != 0) return std::nullopt;
  const DiscountRecord record = BuildRecord(id, source, fields);
  UnitOfWork work(database_.paths().backup);
  const auto file = work.Adopt(std::move(located.file), database_.paths().discount);
  work.Write(file, located.offset, EncodeDiscount(record));
  if (work.Commit() != 0) return std::nullopt;
  Remove(Shown(DecodeDiscount(located.bytes)));
  ShowIfItPasses(record);
  return record;
}

int DiscountList::Mark(std::int32_t id, std::int16_t source, int action) {
  if (const int code = database_.RollBack(); code != 0) return code;
  LocatedRecord<DiscountFormat> located = Locate(database_.paths().discount, id, source);
  if (located.code != 0) return located.code;
  if (action != kMarkDeleted && action != kMarkFlagged) return id;
  const std::size_t flag = action == kMarkDeleted ? layout::kDeleted : layout::kFlagged;
  const std::array<std::byte, 1> set{std::byte{1}};
  UnitOfWork work(database_.paths().backup);
  const auto file = work.Adopt(std::move(located.file), database_.paths().discount);
  work.Write(file, located.offset + static_cast<std::int64_t>(flag), set);
  if (const int code = work.Commit(); code != 0) return code;
  DiscountRecord* const shown = Shown(DecodeDiscount(located.bytes));
  if (action == kMarkDeleted) {
    Remove(shown);
  } else if (shown != nullptr) {
    shown->Flagged = 1;
  }
  return id;
}

std::optional<DiscountRecord> DiscountList::Read(std::int32_t id, std::int16_t source) const {
  const LocatedRecord<DiscountFormat> located = Locate(database_.paths().discount, id, source);
  if (located.code != 0) return std::nullopt;
  return DecodeDiscount(located.bytes);
}

std::optional<DiscountRecord> DiscountList::ReadLinked(const AppliedDiscount& slot) const {
  std::optional<DiscountRecord> found;
  RecordScanner<DiscountFormat> scan;
  if (slot.Type < 1 || scan.Open(database_.paths().discount) != 0) return found;
  const bool by_search = slot.Source == 0 && slot.Type > kFoundByProduct;
  while (scan.Next()) {
    const RecordSpan<DiscountFormat> record = scan.bytes();
    if (record[layout::kDeleted] != std::byte{0} ||
        NumberAt<std::uint32_t>(record, layout::kId) != slot.Id) {
      continue;
    }
    if (NumberAt<std::int16_t>(record, layout::kSource) == slot.Source) {
      return DecodeDiscount(record);
    }
    const auto type = NumberAt<std::int16_t>(record, layout::kType);
    if (!found && by_search && type == slot.Type - kFoundByProduct) found = DecodeDiscount(record);
  }
  return found;
}

const DiscountRecord* DiscountList::Find(std::int32_t id, std::int16_t source) const {
  return records_.FindFirst(
      [&](const DiscountRecord& record) { return HasKey(record, id, source); });
}

std::optional<DiscountRecord> DiscountList::FindToChange(std::int32_t id,
                                                         std::int16_t source) const {
  const DiscountRecord* const listed = Find(id, source);
  if (listed == nullptr) return std::nullopt;
  const std::optional<DiscountRecord> stored = Read(id, source);
  return stored && stored->Deleted == 0 ? stored : *listed;
}

NameList DiscountList::StoresWithDiscounts() const {
  return CountNames(records_, &DiscountRecord::StoreId, database_.stores());
}

NameList DiscountList::CategoriesWithDiscounts() const {
  return CountNames(records_, &DiscountRecord::CategoryId, database_.categories());
}

MaxDiscountIds DiscountList::MaxIds() const {
  MaxDiscountIds ids;
  RecordScanner<DiscountFormat> scan;
  if (scan.Open(database_.paths().discount) != 0) return ids;
  while (scan.Next()) {
    const auto id = NumberAt<std::int32_t>(scan.bytes(), layout::kId);
    const auto source = NumberAt<std::int16_t>(scan.bytes(), layout::kSource);
    if (source == 1) ids.source_1 = std::max(ids.source_1, id);
    if (source == 2) ids.source_2 = std::max(ids.source_2, id);
  }
  return ids;
}

int DiscountList::FindForProduct(ProductRecord& product) const {
  RecordScanner<DiscountFormat> scan;
  if (const int code = scan.Open(database_.paths().discount); code != 0) return code;
  const ProductMatcher matcher(product, TodayStamp());
  int filled = 0;
  while (scan.Next()) {
    const RecordSpan<DiscountFormat> record = scan.bytes();
    if (!matcher.Fits(record)) continue;
    const auto slot = std::find_if(product.Discounts.begin(), product.Discounts.end(),
                                   [](const AppliedDiscount& held) { return held.Id == 0; });
    if (slot == product.Discounts.end()) continue;
    slot->Id = NumberAt<std::uint32_t>(record, layout::kId);
    const auto type = NumberAt<std::uint16_t>(record, layout::kType);
    slot->Type = static_cast<std::int16_t>(static_cast<std::uint16_t>(type + kFoundByProduct));
    ++filled;
  }
  return scan.code() != 0 ? scan.code() : filled;
}

}  // namespace brovanta
