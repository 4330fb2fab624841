// The stored records as values, and their conversion to and from the bytes of the files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

#include "db/record_format.h"
#include "util/date_stamp.h"

namespace brovanta {

/// A text field of N bytes, Windows-1252, zero-padded. Assigning cuts to N - 1 bytes and stops at
/// a zero; bytes that come from a file or a feed may fill all N without a zero behind them.
template <std::size_t N>
class FixedText {
 public:
  static constexpr std::size_t kSize = N;

  FixedText() : bytes_{} {}
  explicit FixedText(std::string_view text) { Assign(text); }
  /// Takes the N bytes of a stored field. They are not cleared first: every load of a list makes
  /// hundreds of thousands of fields.
  explicit FixedText(const std::byte* bytes) { std::memcpy(bytes_.data(), bytes, N); }

  void Assign(std::string_view text) { Fill(text, N - 1); }
  /// Keeps up to all N bytes: only the import of the shared lists writes such names.
  void AssignWhole(std::string_view text) { Fill(text, N); }

  /// The text up to its terminator, at most N bytes; valid as long as this object is unchanged.
  [[nodiscard]] std::string_view view() const {
    const void* end = std::memchr(bytes_.data(), 0, N);
    const auto length =
        end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - bytes_.data())
                       : N;
    return {bytes_.data(), length};
  }
  [[nodiscard]] bool empty() const { return bytes_[0] == 0; }
  [[nodiscard]] const std::array<char, N>& bytes() const { return bytes_; }

  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  void Fill(std::string_view text, std::size_t limit) {
    text = text.substr(0, text.find('\0')).substr(0, limit);
    bytes_.fill(0);
    std::memcpy(bytes_.data(), text.data(), text.size());
  }

  std::array<char, N> bytes_;
};

/// One record of "discount.dat"; `Id` with `Source` is its key.
struct DiscountRecord {
  std::int32_t Id = 0;
  FixedText<kNameSize> Name;
  FixedText<kNameSize> Product;  ///< what the discount is for
  FixedText<kLongTextSize> Description;
  std::int16_t Source = 0;      ///< 1 coupons, 2 deals of the update server, 0 own
  std::int16_t Type = 0;        ///< 1 internet code, 2 store coupon, 3 mail-in rebate
  std::uint16_t ValueType = 0;  ///< 1 percent, 2 amount
  double Value = 0.0;
  DateStamp Stamp = 0;           ///< day of the last add or update
  DateStamp StartDate = 0;       ///< 0 = none
  DateStamp EndDate = 0;         ///< last valid day, 0 = none
  std::uint32_t StoreId = 0;     ///< 0 = any store
  std::uint32_t CategoryId = 0;  ///< 0 = any category
  std::uint8_t Flagged = 0;
  std::uint8_t Deleted = 0;

  friend bool operator==(const DiscountRecord&, const DiscountRecord&) = default;
};

/// A discount linked to a product.
struct AppliedDiscount {
  std::uint32_t Id = 0;     ///< 0 = free slot
  std::int16_t Source = 0;  ///< with Id the key; 0 where the automatic search filled the slot
  std::int16_t Type = 0;    ///< the discount's Type, plus 100 where the search filled the slot

  friend bool operator==(const AppliedDiscount&, const AppliedDiscount&) = default;
};

using DiscountSlots = std::array<AppliedDiscount, kSlotCount>;

/// One record of "product.dat" or "purchase.dat"; `Id` is unique within its file.
struct ProductRecord {
  std::int32_t Id = 0;
  FixedText<kNameSize> Name;
  FixedText<kShortTextSize> ShortText;
  FixedText<kLongTextSize> Notes;
  std::uint32_t StoreId = 0;  ///< 0 = none, likewise category and unit
  std::uint32_t CategoryId = 0;
  std::uint32_t UnitId = 0;
  std::uint16_t PurchaseKind = 0;  ///< 0 none, 1 one time, 2 daily, 3 weekly, 4 monthly
  std::uint16_t Every = 0;         ///< weeks or months between purchases
  std::uint16_t DayValue = 0;      ///< daily: interval in days; weekly: weekday; monthly: day
  DateStamp StartDate = 0;         ///< first due date; of a purchase the moment it was bought
  DateStamp LastPurchased = 0;     ///< 0 = never
  DateStamp NextDate = 0;          ///< next due date, computed on loading
  std::uint16_t DaysOverdue = 0;   ///< whole days since NextDate, computed on loading
  double UnitPrice = 0.0;
  double Quantity = 0.0;
  DiscountSlots Discounts;
  double TaxPercent = 0.0;
  std::uint8_t Deleted = 0;

  friend bool operator==(const ProductRecord&, const ProductRecord&) = default;
};

/// One entry of a name list.
struct ListItem {
  std::int32_t Id = 0;  ///< at least 1
  FixedText<kNameSize> Name;
  std::int32_t Count = 0;  ///< 0 in the files

  friend bool operator==(const ListItem&, const ListItem&) = default;
};

using DiscountBytes = std::array<std::byte, discount_layout::kSize>;
using ProductBytes = std::array<std::byte, product_layout::kSize>;
using ListItemBytes = std::array<std::byte, list_layout::kSize>;

/// Encoding writes zero to every reserved and padding byte.
[[nodiscard]] DiscountBytes EncodeDiscount(const DiscountRecord& record);
[[nodiscard]] ProductBytes EncodeProduct(const ProductRecord& record);
[[nodiscard]] ListItemBytes EncodeListItem(const ListItem& item);

[[nodiscard]] DiscountRecord DecodeDiscount(
    std::span<const std::byte, discount_layout::kSize> bytes);
[[nodiscard]] ProductRecord DecodeProduct(std::span<const std::byte, product_layout::kSize> bytes);
[[nodiscard]] ListItem DecodeListItem(std::span<const std::byte, list_layout::kSize> bytes);

}  // namespace brovanta
