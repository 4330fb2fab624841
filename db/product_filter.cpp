#include "db/product_filter.h"

#include <cstdint>

#include "db/record_file.h"
#include "db/schedule.h"

namespace brovanta {

ProductListMatcher::ProductListMatcher(const ProductFilter& filter)
    : filter_(filter), words_(filter.text), now_(NowStamp()), zone_(LocalZone::Current()) {}

bool ProductListMatcher::MayPass(std::span<const std::byte, product_layout::kSize> bytes) const {
  namespace layout = product_layout;
  if (bytes[layout::kDeleted] != std::byte{0}) return false;
  if (filter_.store_id != 0 &&
      filter_.store_id != NumberAt<std::uint32_t>(bytes, layout::kStoreId)) {
    return false;
  }
  if (filter_.category_id != 0 &&
      filter_.category_id != NumberAt<std::uint32_t>(bytes, layout::kCategoryId)) {
    return false;
  }
  if (filter_.kind == kPurchaseKind &&
      !WithinPeriod(NumberAt<DateStamp>(bytes, layout::kStartDate))) {
    return false;
  }
  return words_.empty() || words_.AllIn(TextAt(bytes, layout::kName, kNameSize));
}

bool ProductListMatcher::PassesDates(ProductRecord& record) const {
  if (filter_.kind == kPurchaseKind) return WithinPeriod(record.StartDate);
  if (filter_.kind != kProductKind) return false;

  record.NextDate = kNoDate;
  record.DaysOverdue = 0;
  if (record.PurchaseKind == kUnscheduled) return record.LastPurchased == 0;
  record.NextDate = NextDueDate(record, *zone_);
  if (record.NextDate == kNoDate) return false;
  const bool overdue = record.NextDate < filter_.from;
  // A period without an end lets no later product pass, unlike for purchases.
  if (!overdue && record.NextDate > filter_.to) return false;
  record.DaysOverdue = OverdueDays(record.NextDate, now_);
  return true;
}

bool ProductListMatcher::Passes(ProductRecord& record) const {
  return MayPass(EncodeProduct(record)) && PassesDates(record);
}

bool ProductListMatcher::WithinPeriod(DateStamp date) const {
  if (filter_.from != 0 && date < filter_.from) return false;
  return filter_.to == 0 || date <= filter_.to;
}

}  // namespace brovanta
