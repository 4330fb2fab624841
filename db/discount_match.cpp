#include "db/discount_match.h"

namespace brovanta {
namespace {

namespace layout = discount_layout;

// 0 on either side means any.
bool Contradicts(std::uint32_t wanted, RecordSpan<DiscountFormat> record, std::size_t offset) {
  if (wanted == 0) return false;
  const auto held = NumberAt<std::uint32_t>(record, offset);
  return held != 0 && held != wanted;
}

bool NameOrProductHolds(RecordSpan<DiscountFormat> record, const WordSearch& words) {
  return words.AllIn(TextAt(record, layout::kName, kNameSize)) ||
         words.AllIn(TextAt(record, layout::kProduct, kNameSize));
}

}  // namespace

bool DiscountMatcher::Passes(RecordSpan<DiscountFormat> record) const {
  const auto end_date = NumberAt<DateStamp>(record, layout::kEndDate);
  if (filter_.valid_on != 0 && end_date > 0 && filter_.valid_on > end_date) return false;
  const auto start_date = NumberAt<DateStamp>(record, layout::kStartDate);
  if (filter_.started_since != 0 && start_date > 0 && filter_.started_since > start_date) {
    return false;
  }
  return !Contradicts(filter_.store_id, record, layout::kStoreId) &&
         !Contradicts(filter_.category_id, record, layout::kCategoryId) &&
         (filter_.text.empty() || NameOrProductHolds(record, words_));
}

// Unlike the filter, a negative end date counts: kept, only 0 means none here.
bool ProductMatcher::Fits(RecordSpan<DiscountFormat> record) const {
  if (record[layout::kDeleted] != std::byte{0}) return false;
  const auto end_date = NumberAt<DateStamp>(record, layout::kEndDate);
  if (end_date != 0 && today_ > end_date) return false;
  return !Contradicts(product_.StoreId, record, layout::kStoreId) &&
         !Contradicts(product_.CategoryId, record, layout::kCategoryId) &&
         NameOrProductHolds(record, words_);
}

}  // namespace brovanta
