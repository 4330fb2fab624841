// The test that decides which products or purchases a list shows, and computes their due dates.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "db/product_list.h"
#include "db/records.h"
#include "util/date_stamp.h"
#include "util/local_zone.h"
#include "util/word_search.h"

namespace brovanta {

/// A ProductFilter made ready for many records: words split, current moment and time zone taken
/// once, when it is built. Keep it for one pass over a file, no longer.
class ProductListMatcher {
 public:
  explicit ProductListMatcher(const ProductFilter& filter);

  /// Whether a record, as its bytes stand in a file, is neither deleted nor ruled out by store,
  /// category, text or, for a purchase, by its date. Spares the rest of the work for most records.
  [[nodiscard]] bool MayPass(std::span<const std::byte, product_layout::kSize> bytes) const;

  /// Whether a record for which MayPass held is within the dates. Sets a product's `NextDate` and
  /// `DaysOverdue`; a purchase keeps the ones it has.
  [[nodiscard]] bool PassesDates(ProductRecord& record) const;

  /// The whole test, for a record that has just been written.
  [[nodiscard]] bool Passes(ProductRecord& record) const;

 private:
  [[nodiscard]] bool WithinPeriod(DateStamp date) const;

  ProductFilter filter_;
  WordSearch words_;
  DateStamp now_;
  std::shared_ptr<const LocalZone> zone_;
};

}  // namespace brovanta
