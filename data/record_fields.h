// The fields of the stored records, one after the other, for whoever writes or reads them as text.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "data/frame.h"
#include "data/reference_names.h"
#include "data/search_entry.h"
#include "db/records.h"

namespace brovanta::data_tool {

/// Words for the values 0, 1, 2 ... of a field; an empty one stands for none.
inline constexpr std::array<std::string_view, 5> kPurchaseKinds{"none", "one time", "daily",
                                                                "weekly", "monthly"};
inline constexpr std::array<std::string_view, 4> kDiscountTypes{"", "internet code", "store coupon",
                                                                "mail-in rebate"};
inline constexpr std::array<std::string_view, 3> kValueTypes{"", "percent", "amount"};

// Each of these kinds of records gives every field, in the order of the file, to a visitor that has
// Number, Text, Date, Flag, Word, Reference and Links.

struct ListItemKind {
  using Record = ListItem;
  static constexpr std::size_t kSize = list_layout::kSize;
  static Record Decode(std::span<const std::byte, kSize> bytes) { return DecodeListItem(bytes); }
  static auto Encode(const Record& record) { return EncodeListItem(record); }

  template <typename Visitor>
  static void Visit(Visitor& visitor, Record& record, const ReferenceNames& /*names*/) {
    visitor.Number("Id", record.Id);
    visitor.Text("Name", record.Name);
    visitor.Number("Count", record.Count);
  }
};

struct DiscountKind {
  using Record = DiscountRecord;
  static constexpr std::size_t kSize = discount_layout::kSize;
  static Record Decode(std::span<const std::byte, kSize> bytes) { return DecodeDiscount(bytes); }
  static auto Encode(const Record& record) { return EncodeDiscount(record); }

  template <typename Visitor>
  static void Visit(Visitor& visitor, Record& record, const ReferenceNames& names) {
    visitor.Number("Id", record.Id);
    visitor.Text("Name", record.Name);
    visitor.Text("Product", record.Product);
    visitor.Text("Description", record.Description);
    visitor.Number("Source", record.Source);
    visitor.Word("Type", record.Type, kDiscountTypes);
    visitor.Word("ValueType", record.ValueType, kValueTypes);
    visitor.Number("Value", record.Value);
    visitor.Date("Stamp", record.Stamp);
    visitor.Date("StartDate", record.StartDate);
    visitor.Date("EndDate", record.EndDate);
    visitor.Reference("StoreId", "Store", record.StoreId, names.stores);
    visitor.Reference("CategoryId", "Category", record.CategoryId, names.categories);
    visitor.Flag("Flagged", record.Flagged);
    visitor.Flag("Deleted", record.Deleted);
  }
};

struct ProductKind {
  using Record = ProductRecord;
  static constexpr std::size_t kSize = product_layout::kSize;
  static Record Decode(std::span<const std::byte, kSize> bytes) { return DecodeProduct(bytes); }
  static auto Encode(const Record& record) { return EncodeProduct(record); }

  template <typename Visitor>
  static void Visit(Visitor& visitor, Record& record, const ReferenceNames& names) {
    visitor.Number("Id", record.Id);
    visitor.Text("Name", record.Name);
    visitor.Text("ShortText", record.ShortText);
    visitor.Text("Notes", record.Notes);
    visitor.Reference("StoreId", "Store", record.StoreId, names.stores);
    visitor.Reference("CategoryId", "Category", record.CategoryId, names.categories);
    visitor.Reference("UnitId", "Unit", record.UnitId, names.units);
    visitor.Word("PurchaseKind", record.PurchaseKind, kPurchaseKinds);
    visitor.Number("Every", record.Every);
    visitor.Number("DayValue", record.DayValue);
    visitor.Date("StartDate", record.StartDate);
    visitor.Date("LastPurchased", record.LastPurchased);
    visitor.Date("NextDate", record.NextDate);
    visitor.Number("DaysOverdue", record.DaysOverdue);
    visitor.Number("UnitPrice", record.UnitPrice);
    visitor.Number("Quantity", record.Quantity);
    visitor.Links("Discounts", record.Discounts, names.coupons);
    visitor.Number("TaxPercent", record.TaxPercent);
    visitor.Flag("Deleted", record.Deleted);
  }
};

struct SearchEntryKind {
  using Record = SearchEntry;
  static constexpr std::size_t kSize = saved_search_layout::kSize;
  static Record Decode(std::span<const std::byte, kSize> bytes) { return DecodeSearchEntry(bytes); }
  static auto Encode(const Record& record) { return EncodeSearchEntry(record); }

  template <typename Visitor>
  static void Visit(Visitor& visitor, Record& record, const ReferenceNames& /*names*/) {
    visitor.Number("Number", record.Number);
    visitor.Number("CategoryId", record.CategoryId);
    visitor.Date("Date", record.Date);
    visitor.Text("Words", record.Words);
    visitor.Flag("Deleted", record.Deleted);
  }
};

}  // namespace brovanta::data_tool
