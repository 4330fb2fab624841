// Which discounts are shown and which fit a product, decided on a record's bytes in place.
#pragma once

#include "db/discount_list.h"
#include "db/record_file.h"
#include "util/word_search.h"

namespace brovanta {

/// The test of a DiscountFilter, its words prepared once. The filter must outlive it.
class DiscountMatcher {
 public:
  explicit DiscountMatcher(const DiscountFilter& filter) : filter_(filter), words_(filter.text) {}

  /// Whether the record passes the filter; its Deleted flag is not looked at.
  [[nodiscard]] bool Passes(RecordSpan<DiscountFormat> record) const;

 private:
  const DiscountFilter& filter_;
  WordSearch words_;
};

/// Whether a discount can be used for a product today. The product must outlive it.
class ProductMatcher {
 public:
  ProductMatcher(const ProductRecord& product, DateStamp today)
      : product_(product), today_(today), words_(product.Name.view()) {}

  /// Not deleted, not expired, no other store or category than the product's, and all words of the
  /// product's name in the discount's name or all in its product text. A name of blanks has no
  /// words and so fits everything.
  [[nodiscard]] bool Fits(RecordSpan<DiscountFormat> record) const;

 private:
  const ProductRecord& product_;
  DateStamp today_;
  WordSearch words_;
};

}  // namespace brovanta
