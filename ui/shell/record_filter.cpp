#include "ui/shell/record_filter.h"

namespace brovanta {

ProductFilter AsProductFilter(const RecordFilter& filter) {
  ProductFilter query;
  query.kind = filter.kind;
  query.store_id = filter.store_id;
  query.category_id = filter.category_id;
  query.from = filter.period_start;
  query.to = filter.period_end;
  query.text = filter.find_text.value_or(std::string());
  return query;
}

DiscountFilter AsDiscountFilter(const RecordFilter& filter) {
  DiscountFilter query;
  query.kind = filter.kind;
  query.store_id = filter.store_id;
  query.category_id = filter.category_id;
  query.valid_on = filter.period_start;
  query.started_since = filter.period_end;
  query.text = filter.find_text.value_or(std::string());
  return query;
}

}  // namespace brovanta
