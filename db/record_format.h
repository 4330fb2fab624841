// Layout of the record and list files, byte by byte; described in docs/formats/. Reader, writer and
// tests share these numbers. All integers are little-endian.
#pragma once

#include <cstddef>
#include <cstdint>

namespace brovanta {

inline constexpr std::uint32_t FILE_MAGIC = 80001;   ///< first word of every record and list file
inline constexpr std::uint32_t RECORD_MARK = 80002;  ///< stands before every record
inline constexpr std::uint32_t END_MARK = 80003;     ///< last word of the file

inline constexpr std::size_t kWordSize = 4;
inline constexpr std::size_t kLastIdOffset = 4;        ///< record files only
inline constexpr std::size_t kFirstRecordMark = 8;     ///< record files
inline constexpr std::size_t kEmptyRecordFile = 12;    ///< magic, LastId, end mark
inline constexpr std::size_t kFirstListMark = 4;       ///< list files have no LastId
inline constexpr std::size_t kEmptyListFile = 8;       ///< magic, end mark
inline constexpr std::int32_t kInitialDiscountId = 1;  ///< kept: the first own discount is 2
inline constexpr std::int32_t kInitialProductId = 0;   ///< the first product or purchase is 1

inline constexpr std::size_t kNameSize = 50;
inline constexpr std::size_t kShortTextSize = 10;
inline constexpr std::size_t kLongTextSize = 250;
inline constexpr std::size_t kSlotCount = 5;

namespace discount_layout {
inline constexpr std::size_t kId = 8;
inline constexpr std::size_t kName = 12;
inline constexpr std::size_t kProduct = 62;
inline constexpr std::size_t kDescription = 112;
inline constexpr std::size_t kSource = 362;
inline constexpr std::size_t kType = 364;
inline constexpr std::size_t kValueType = 366;
inline constexpr std::size_t kValue = 368;
inline constexpr std::size_t kStamp = 376;
inline constexpr std::size_t kStartDate = 380;
inline constexpr std::size_t kEndDate = 384;
inline constexpr std::size_t kStoreId = 388;
inline constexpr std::size_t kCategoryId = 392;
inline constexpr std::size_t kFlagged = 396;
inline constexpr std::size_t kDeleted = 397;
inline constexpr std::size_t kSize = 400;

static_assert(kProduct == kName + kNameSize && kDescription == kProduct + kNameSize);
static_assert(kSource == kDescription + kLongTextSize && kType == kSource + 2);
static_assert(kValueType == kType + 2 && kValue == kValueType + 2 && kValue % 8 == 0);
static_assert(kStamp == kValue + 8 && kStartDate == kStamp + 4 && kEndDate == kStartDate + 4);
static_assert(kStoreId == kEndDate + 4 && kCategoryId == kStoreId + 4);
static_assert(kFlagged == kCategoryId + 4 && kDeleted == kFlagged + 1 && kSize == kDeleted + 3);
}  // namespace discount_layout

namespace product_layout {
inline constexpr std::size_t kId = 8;
inline constexpr std::size_t kName = 12;
inline constexpr std::size_t kShortText = 62;
inline constexpr std::size_t kNotes = 72;
inline constexpr std::size_t kStoreId = 324;
inline constexpr std::size_t kCategoryId = 328;
inline constexpr std::size_t kUnitId = 332;
inline constexpr std::size_t kPurchaseKind = 336;
inline constexpr std::size_t kEvery = 338;
inline constexpr std::size_t kDayValue = 340;
inline constexpr std::size_t kStartDate = 344;
inline constexpr std::size_t kLastPurchased = 348;
inline constexpr std::size_t kNextDate = 352;
inline constexpr std::size_t kDaysOverdue = 356;
inline constexpr std::size_t kUnitPrice = 360;
inline constexpr std::size_t kQuantity = 368;
inline constexpr std::size_t kDiscounts = 376;
inline constexpr std::size_t kTaxPercent = 440;
inline constexpr std::size_t kDeleted = 448;
inline constexpr std::size_t kSize = 456;

inline constexpr std::size_t kSlotId = 4;  ///< offsets within one slot
inline constexpr std::size_t kSlotSource = 8;
inline constexpr std::size_t kSlotType = 10;
inline constexpr std::size_t kSlotSize = 12;

static_assert(kShortText == kName + kNameSize && kNotes == kShortText + kShortTextSize);
static_assert(kStoreId == kNotes + kLongTextSize + 2 && kCategoryId == kStoreId + 4);
static_assert(kUnitId == kCategoryId + 4 && kPurchaseKind == kUnitId + 4);
static_assert(kEvery == kPurchaseKind + 2 && kDayValue == kEvery + 2);
static_assert(kStartDate == kDayValue + 4 && kLastPurchased == kStartDate + 4);
static_assert(kNextDate == kLastPurchased + 4 && kDaysOverdue == kNextDate + 4);
static_assert(kUnitPrice == kDaysOverdue + 4 && kQuantity == kUnitPrice + 8);
static_assert(kDiscounts == kQuantity + 8);
static_assert(kTaxPercent == kDiscounts + kSlotCount * kSlotSize + 4 && kTaxPercent % 8 == 0);
static_assert(kDeleted == kTaxPercent + 8 && kSize == kDeleted + 8);
}  // namespace product_layout

namespace list_layout {
inline constexpr std::size_t kId = 4;
inline constexpr std::size_t kName = 8;
inline constexpr std::size_t kCount = 60;
inline constexpr std::size_t kSize = 64;

static_assert(kCount == kName + kNameSize + 2 && kSize == kCount + 4);
}  // namespace list_layout

}  // namespace brovanta
