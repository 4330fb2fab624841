#include "db/records.h"

#include "util/little_endian.h"

namespace brovanta {
namespace {

template <std::size_t N>
void StoreText(std::byte* to, const FixedText<N>& text) {
  std::memcpy(to, text.bytes().data(), N);
}

void EncodeSlots(std::byte* to, const DiscountSlots& slots) {
  namespace layout = product_layout;
  for (const AppliedDiscount& slot : slots) {
    StoreLittle(to + layout::kSlotId, slot.Id);
    StoreLittle(to + layout::kSlotSource, slot.Source);
    StoreLittle(to + layout::kSlotType, slot.Type);
    to += layout::kSlotSize;
  }
}

DiscountSlots DecodeSlots(const std::byte* from) {
  namespace layout = product_layout;
  DiscountSlots slots;
  for (AppliedDiscount& slot : slots) {
    slot.Id = LoadLittle<std::uint32_t>(from + layout::kSlotId);
    slot.Source = LoadLittle<std::int16_t>(from + layout::kSlotSource);
    slot.Type = LoadLittle<std::int16_t>(from + layout::kSlotType);
    from += layout::kSlotSize;
  }
  return slots;
}

}  // namespace

DiscountBytes EncodeDiscount(const DiscountRecord& record) {
  namespace layout = discount_layout;
  DiscountBytes bytes{};
  std::byte* const to = bytes.data();
  StoreLittle(to + layout::kId, record.Id);
  StoreText(to + layout::kName, record.Name);
  StoreText(to + layout::kProduct, record.Product);
  StoreText(to + layout::kDescription, record.Description);
  StoreLittle(to + layout::kSource, record.Source);
  StoreLittle(to + layout::kType, record.Type);
  StoreLittle(to + layout::kValueType, record.ValueType);
  StoreLittle(to + layout::kValue, record.Value);
  StoreLittle(to + layout::kStamp, record.Stamp);
  StoreLittle(to + layout::kStartDate, record.StartDate);
  StoreLittle(to + layout::kEndDate, record.EndDate);
  StoreLittle(to + layout::kStoreId, record.StoreId);
  StoreLittle(to + layout::kCategoryId, record.CategoryId);
  StoreLittle(to + layout::kFlagged, record.Flagged);
  StoreLittle(to + layout::kDeleted, record.Deleted);
  return bytes;
}

DiscountRecord DecodeDiscount(std::span<const std::byte, discount_layout::kSize> bytes) {
  namespace layout = discount_layout;
  const std::byte* const from = bytes.data();
  DiscountRecord record;
  record.Id = LoadLittle<std::int32_t>(from + layout::kId);
  record.Name.AssignBytes(from + layout::kName);
  record.Product.AssignBytes(from + layout::kProduct);
  record.Description.AssignBytes(from + layout::kDescription);
  record.Source = LoadLittle<std::int16_t>(from + layout::kSource);
  record.Type = LoadLittle<std::int16_t>(from + layout::kType);
  record.ValueType = LoadLittle<std::uint16_t>(from + layout::kValueType);
  record.Value = LoadLittle<double>(from + layout::kValue);
  record.Stamp = LoadLittle<DateStamp>(from + layout::kStamp);
  record.StartDate = LoadLittle<DateStamp>(from + layout::kStartDate);
  record.EndDate = LoadLittle<DateStamp>(from + layout::kEndDate);
  record.StoreId = LoadLittle<std::uint32_t>(from + layout::kStoreId);
  record.CategoryId = LoadLittle<std::uint32_t>(from + layout::kCategoryId);
  record.Flagged = LoadLittle<std::uint8_t>(from + layout::kFlagged);
  record.Deleted = LoadLittle<std::uint8_t>(from + layout::kDeleted);
  return record;
}

ProductBytes EncodeProduct(const ProductRecord& record) {
  namespace layout = product_layout;
  ProductBytes bytes{};
  std::byte* const to = bytes.data();
  StoreLittle(to + layout::kId, record.Id);
  StoreText(to + layout::kName, record.Name);
  StoreText(to + layout::kShortText, record.ShortText);
  StoreText(to + layout::kNotes, record.Notes);
  StoreLittle(to + layout::kStoreId, record.StoreId);
  StoreLittle(to + layout::kCategoryId, record.CategoryId);
  StoreLittle(to + layout::kUnitId, record.UnitId);
  StoreLittle(to + layout::kPurchaseKind, record.PurchaseKind);
  StoreLittle(to + layout::kEvery, record.Every);
  StoreLittle(to + layout::kDayValue, record.DayValue);
  StoreLittle(to + layout::kStartDate, record.StartDate);
  StoreLittle(to + layout::kLastPurchased, record.LastPurchased);
  StoreLittle(to + layout::kNextDate, record.NextDate);
  StoreLittle(to + layout::kDaysOverdue, record.DaysOverdue);
  StoreLittle(to + layout::kUnitPrice, record.UnitPrice);
  StoreLittle(to + layout::kQuantity, record.Quantity);
  EncodeSlots(to + layout::kDiscounts, record.Discounts);
  StoreLittle(to + layout::kTaxPercent, record.TaxPercent);
  StoreLittle(to + layout::kDeleted, record.Deleted);
  return bytes;
}

ProductRecord DecodeProduct(std::span<const std::byte, product_layout::kSize> bytes) {
  namespace layout = product_layout;
  const std::byte* const from = bytes.data();
  ProductRecord record;
  record.Id = LoadLittle<std::int32_t>(from + layout::kId);
  record.Name.AssignBytes(from + layout::kName);
  record.ShortText.AssignBytes(from + layout::kShortText);
  record.Notes.AssignBytes(from + layout::kNotes);
  record.StoreId = LoadLittle<std::uint32_t>(from + layout::kStoreId);
  record.CategoryId = LoadLittle<std::uint32_t>(from + layout::kCategoryId);
  record.UnitId = LoadLittle<std::uint32_t>(from + layout::kUnitId);
  record.PurchaseKind = LoadLittle<std::uint16_t>(from + layout::kPurchaseKind);
  record.Every = LoadLittle<std::uint16_t>(from + layout::kEvery);
  record.DayValue = LoadLittle<std::uint16_t>(from + layout::kDayValue);
  record.StartDate = LoadLittle<DateStamp>(from + layout::kStartDate);
  record.LastPurchased = LoadLittle<DateStamp>(from + layout::kLastPurchased);
  record.NextDate = LoadLittle<DateStamp>(from + layout::kNextDate);
  record.DaysOverdue = LoadLittle<std::uint16_t>(from + layout::kDaysOverdue);
  record.UnitPrice = LoadLittle<double>(from + layout::kUnitPrice);
  record.Quantity = LoadLittle<double>(from + layout::kQuantity);
  record.Discounts = DecodeSlots(from + layout::kDiscounts);
  record.TaxPercent = LoadLittle<double>(from + layout::kTaxPercent);
  record.Deleted = LoadLittle<std::uint8_t>(from + layout::kDeleted);
  return record;
}

ListItemBytes EncodeListItem(const ListItem& item) {
  namespace layout = list_layout;
  ListItemBytes bytes{};
  StoreLittle(bytes.data() + layout::kId, item.Id);
  StoreText(bytes.data() + layout::kName, item.Name);
  StoreLittle(bytes.data() + layout::kCount, item.Count);
  return bytes;
}

ListItem DecodeListItem(std::span<const std::byte, list_layout::kSize> bytes) {
  namespace layout = list_layout;
  ListItem item;
  item.Id = LoadLittle<std::int32_t>(bytes.data() + layout::kId);
  item.Name.AssignBytes(bytes.data() + layout::kName);
  item.Count = LoadLittle<std::int32_t>(bytes.data() + layout::kCount);
  return item;
}

}  // namespace brovanta
