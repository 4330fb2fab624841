#include "data/check_records.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <span>
#include <string>
#include <utility>

#include "db/discount_list.h"
#include "db/marked_reader.h"
#include "db/record_format.h"

namespace brovanta::data_tool {
namespace {

struct TextField {
  const char* name;
  std::size_t offset;
  std::size_t size;
};

constexpr std::array<TextField, 3> kDiscountTexts{
    {{"Name", discount_layout::kName, kNameSize},
     {"Product", discount_layout::kProduct, kNameSize},
     {"Description", discount_layout::kDescription, kLongTextSize}}};

constexpr std::array<TextField, 3> kProductTexts{
    {{"Name", product_layout::kName, kNameSize},
     {"ShortText", product_layout::kShortText, kShortTextSize},
     {"Notes", product_layout::kNotes, kLongTextSize}}};

constexpr std::uint16_t kLargestPurchaseKind = 4;

/// What products and discounts have in common.
class RecordCheck {
 public:
  RecordCheck(FileBytes bytes, FileReport& report, FileNotes& notes)
      : report_(report), notes_(notes) {
    report_.records = 0;
    report_.deleted = 0;
    if (bytes.size() >= kFirstRecordMark) {
      last_id_ = LoadLittle<std::int32_t>(bytes.data() + kLastIdOffset);
    }
  }

  void CheckLastId(std::int32_t initial) {
    if (last_id_ == kLastOfAllIds) notes_.Add(Severity::kError, kUsedUp, kLastIdOffset);
    if (last_id_ >= initial) return;
    notes_.Add(Severity::kError,
               "LastId is " + std::to_string(last_id_) + ", below the " + std::to_string(initial) +
                   " of an empty file",
               kLastIdOffset);
  }

  void Begin(std::size_t byte, std::int32_t id) {
    byte_ = byte;
    id_ = id;
    ++*report_.records;
  }

  void Add(Severity severity, std::string words, std::size_t offset) {
    notes_.Add(severity, std::move(words), byte_ + offset, id_);
  }

  void CheckTexts(FileBytes record, std::span<const TextField> fields) {
    for (const TextField& field : fields) {
      if (TextAt(record, field.offset, field.size).size() < field.size) continue;
      Add(Severity::kWarning, std::string("the text ") + field.name + " has no zero at its end",
          field.offset);
    }
  }

  void CheckFlag(const char* name, std::uint8_t value, std::size_t offset) {
    if (value <= 1) return;
    Add(Severity::kWarning,
        std::string(name) + " is " + std::to_string(value) + " and neither 0 nor 1", offset);
  }

  void CheckNumber(const char* name, double value, std::size_t offset) {
    if (!std::isfinite(value)) {
      Add(Severity::kWarning, std::string(name) + " is no finite number", offset);
    }
  }

  /// Whether the record is live.
  bool TakeDeleted(std::uint8_t value, std::size_t offset) {
    CheckFlag("Deleted", value, offset);
    if (value != 0) ++*report_.deleted;
    return value == 0;
  }

  void CheckReference(const char* what, const KnownIds& known, std::uint32_t id,
                      std::size_t offset) {
    if (id == 0 || !known || known->count(id) > 0) return;
    Add(Severity::kWarning,
        std::string("the ") + what + " " + std::to_string(id) + " is not in its list", offset);
  }

  [[nodiscard]] std::int32_t last_id() const { return last_id_; }

 private:
  FileReport& report_;
  FileNotes& notes_;
  std::int32_t last_id_ = 0;
  std::size_t byte_ = 0;
  std::int32_t id_ = 0;
};

void CheckDiscount(FileBytes bytes, const KnownNames& names,
                   std::set<std::pair<std::int32_t, std::int16_t>>& keys, RecordCheck& check,
                   DiscountIndex& index) {
  namespace layout = discount_layout;
  const DiscountRecord record = DecodeDiscount(bytes.first<layout::kSize>());
  if (record.Id < 1) {
    check.Add(Severity::kError, "the id is " + std::to_string(record.Id) + ", below 1",
              layout::kId);
  } else if (record.Source == 0 && record.Id > check.last_id()) {
    // Those of the server bring ids of their own.
    check.Add(Severity::kWarning,
              "the id is above LastId " + std::to_string(check.last_id()) +
                  " and will be given out again",
              layout::kId);
  }
  check.CheckTexts(bytes, kDiscountTexts);
  check.CheckNumber("Value", record.Value, layout::kValue);
  check.CheckFlag("Flagged", record.Flagged, layout::kFlagged);
  index.Add(record);
  if (!check.TakeDeleted(record.Deleted, layout::kDeleted)) return;
  if (!keys.emplace(record.Id, record.Source).second) {
    check.Add(Severity::kWarning,
              "a live discount with this id and source " + std::to_string(record.Source) +
                  " stands in front of it already; only that one can be changed",
              layout::kId);
  }
  check.CheckReference("store", names.stores, record.StoreId, layout::kStoreId);
  check.CheckReference("category", names.categories, record.CategoryId, layout::kCategoryId);
}

void CheckLinks(const DiscountSlots& slots, const DiscountIndex& discounts, RecordCheck& check) {
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const AppliedDiscount& link = slots[i];
    if (link.Id == 0) continue;
    const DiscountIndex::Target target = discounts.Of(link);
    if (target == DiscountIndex::Target::kLive) continue;
    const bool gone = target == DiscountIndex::Target::kGone;
    // Deleting or changing a discount leaves the links to it: the program shows them as free.
    check.Add(gone ? Severity::kNote : Severity::kWarning,
              "slot " + std::to_string(i + 1) + " links discount " + std::to_string(link.Id) +
                  " of source " + std::to_string(link.Source) +
                  (gone ? ", which is deleted or changed" : ", which is not there"),
              product_layout::kDiscounts + i * product_layout::kSlotSize);
  }
}

void CheckProduct(FileBytes bytes, const KnownNames& names, const DiscountIndex* discounts,
                  std::set<std::int32_t>& ids, RecordCheck& check) {
  namespace layout = product_layout;
  const ProductRecord record = DecodeProduct(bytes.first<layout::kSize>());
  if (record.Id < 1) {
    check.Add(Severity::kError, "the id is " + std::to_string(record.Id) + ", below 1",
              layout::kId);
  } else if (record.Id > check.last_id()) {
    check.Add(Severity::kError,
              "the id is above LastId " + std::to_string(check.last_id()) +
                  " and will be given out again",
              layout::kId);
  }
  check.CheckTexts(bytes, kProductTexts);
  if (record.PurchaseKind > kLargestPurchaseKind) {
    check.Add(Severity::kWarning,
              "PurchaseKind is " + std::to_string(record.PurchaseKind) + " and not 0 to 4",
              layout::kPurchaseKind);
  }
  check.CheckNumber("UnitPrice", record.UnitPrice, layout::kUnitPrice);
  check.CheckNumber("Quantity", record.Quantity, layout::kQuantity);
  check.CheckNumber("TaxPercent", record.TaxPercent, layout::kTaxPercent);
  if (!check.TakeDeleted(record.Deleted, layout::kDeleted)) return;
  if (!ids.insert(record.Id).second) {
    check.Add(Severity::kError,
              "a live record with this id stands in front of it already; only that one can be "
              "changed",
              layout::kId);
  }
  check.CheckReference("store", names.stores, record.StoreId, layout::kStoreId);
  check.CheckReference("category", names.categories, record.CategoryId, layout::kCategoryId);
  check.CheckReference("unit", names.units, record.UnitId, layout::kUnitId);
  if (discounts != nullptr) CheckLinks(record.Discounts, *discounts, check);
}

}  // namespace

void DiscountIndex::Add(const DiscountRecord& record) {
  entries_.emplace(static_cast<std::uint32_t>(record.Id),
                   Entry{record.Source, record.Type, record.Deleted != 0});
}

// As DiscountList::ReadLinked finds them.
DiscountIndex::Target DiscountIndex::Of(const AppliedDiscount& link) const {
  const bool by_search = link.Source == 0 && link.Type > kFoundByProduct;
  const auto [first, last] = entries_.equal_range(link.Id);
  const bool leads = std::any_of(first, last, [&](const auto& one) {
    const Entry& entry = one.second;
    return !entry.deleted && (entry.source == link.Source ||
                              (by_search && entry.type == link.Type - kFoundByProduct));
  });
  if (leads && link.Type >= 1) return Target::kLive;
  return first == last ? Target::kNothing : Target::kGone;
}

std::optional<DiscountIndex> CheckDiscounts(FileBytes bytes, const KnownNames& names,
                                            FileReport& report, FileNotes& notes) {
  RecordCheck check(bytes, report, notes);
  DiscountIndex index;
  std::set<std::pair<std::int32_t, std::int16_t>> keys;
  const Frame frame{discount_layout::kSize, kFirstRecordMark};
  const bool framed = WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    check.Begin(byte, NumberAt<std::int32_t>(rest, discount_layout::kId));
    CheckDiscount(rest, names, keys, check, index);
    return std::optional<std::size_t>();
  });
  if (!framed) return std::nullopt;
  check.CheckLastId(kInitialDiscountId);
  return index;
}

void CheckProducts(FileBytes bytes, const KnownNames& names, const DiscountIndex* discounts,
                   FileReport& report, FileNotes& notes) {
  RecordCheck check(bytes, report, notes);
  std::set<std::int32_t> ids;
  const Frame frame{product_layout::kSize, kFirstRecordMark};
  const bool framed = WalkFrame(bytes, frame, notes, [&](std::size_t byte, FileBytes rest) {
    check.Begin(byte, NumberAt<std::int32_t>(rest, product_layout::kId));
    CheckProduct(rest, names, discounts, ids, check);
    return std::optional<std::size_t>();
  });
  if (framed) check.CheckLastId(kInitialProductId);
}

}  // namespace brovanta::data_tool
