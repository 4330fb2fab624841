#include "ui/base/discount_tree.h"

#include "ui/base/discount_words.h"
#include "ui/base/record_tree.h"
#include "ui/base/store_names.h"
#include "ui/base/wide_text.h"

namespace brovanta {

int FillDiscountTree(RecordTree& tree, ShoppingDatabase& database, const DiscountFilter& filter,
                     const DiscountTreeLook& look) {
  tree.ClearRows();
  DiscountList& discounts = database.discounts();
  if (const int code = discounts.Load(&filter); code != 0) return code;
  DateHeadings headings(look.blanks);
  StoreNames stores(database.stores());
  for (const DiscountRecord* record = discounts.First(); record != nullptr;
       record = discounts.Next()) {
    headings.Add(record->Stamp,
                 {.id = record->Id,
                  .purchaseType = record->Source,
                  .name = look.coupon_name(WideText(record->Name.view())),
                  .storeName = look.store_name(stores.Of(record->StoreId))},
                 {.note = DiscountWords(*record)});
  }
  tree.SetRows(headings.Take());
  return 0;
}

}  // namespace brovanta
