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
  return {
      .Id = LoadLittle<std::int32_t>(from + layout::kId),
      .Name = FixedText<kNameSize>(from + layout::kName),
      .Product = FixedText<kNameSize>(from + layout::kProduct),
      .Description = FixedText<kLongTextSize>(from + layout::kDescription),
      .Source = LoadLittle<std::int16_t>(from + layout::kSource),
      .Type = LoadLittle<std::int16_t>(from + layout::kType),
      .ValueType = LoadLittle<std::uint16_t>(from + layout::kValueType),
      .Value = LoadLittle<double>(from + layout::kValue),
      .Stamp = LoadLittle<DateStamp>(from + layout::kStamp),
      .StartDate = LoadLittle<DateStamp>(from + layout::kStartDate),
      .EndDate = LoadLittle<DateStamp>(from + layout::kEndDate),
      .StoreId = LoadLittle<std::uint32_t>(from + layout::kStoreId),
      .CategoryId = LoadLittle<std::uint32_t>(from + layout::kCategoryId),
      .Flagged = LoadLittle<std::uint8_t>(from + layout::kFlagged),
      .Deleted = LoadLittle<std::uint8_t>(from + layout::kDeleted),
  };
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
  return {
      .Id = LoadLittle<std::int32_t>(from + layout::kId),
      .Name = FixedText<kNameSize>(from + layout::kName),
      .ShortText = FixedText<kShortTextSize>(from + layout::kShortText),
      .Notes = FixedText<kLongTextSize>(from + layout::kNotes),
      .StoreId = LoadLittle<std::uint32_t>(from + layout::kStoreId),
      .CategoryId = LoadLittle<std::uint32_t>(from + layout::kCategoryId),
      .UnitId = LoadLittle<std::uint32_t>(from + layout::kUnitId),
      .PurchaseKind = LoadLittle<std::uint16_t>(from + layout::kPurchaseKind),
      .Every = LoadLittle<std::uint16_t>(from + layout::kEvery),
      .DayValue = LoadLittle<std::uint16_t>(from + layout::kDayValue),
      .StartDate = LoadLittle<DateStamp>(from + layout::kStartDate),
      .LastPurchased = LoadLittle<DateStamp>(from + layout::kLastPurchased),
      .NextDate = LoadLittle<DateStamp>(from + layout::kNextDate),
      .DaysOverdue = LoadLittle<std::uint16_t>(from + layout::kDaysOverdue),
      .UnitPrice = LoadLittle<double>(from + layout::kUnitPrice),
      .Quantity = LoadLittle<double>(from + layout::kQuantity),
      .Discounts = DecodeSlots(from + layout::kDiscounts),
      .TaxPercent = LoadLittle<double>(from + layout::kTaxPercent),
      .Deleted = LoadLittle<std::uint8_t>(from + layout::kDeleted),
  };
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
  return {
      .Id = LoadLittle<std::int32_t>(bytes.data() + layout::kId),
      .Name = FixedText<kNameSize>(bytes.data() + layout::kName),
      .Count = LoadLittle<std::int32_t>(bytes.data() + layout::kCount),
  };
}

}  // namespace brovanta
