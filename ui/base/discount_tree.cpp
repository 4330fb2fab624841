#include "ui/base/discount_tree.h"

#include <utility>

#include "ui/base/discount_words.h"
#include "ui/base/record_tree.h"
#include "ui/base/store_names.h"

namespace brovanta {

int FillDiscountTree(RecordTree& tree, ShoppingDatabase& database, const DiscountFilter& filter,
                     const DiscountTreeLook& look) {
  tree.ClearRows();
  DiscountList& discounts = database.discounts();
  if (const int code = discounts.Load(&filter); code != 0) return code;
  DateHeadings headings(look.blanks);
  StoreNames stores(database.stores());
  std::string cut;
  for (const DiscountRecord* record = discounts.First(); record != nullptr;
       record = discounts.Next()) {
    const QString store = stores.Of(record->StoreId);
    DiscountNote note = DiscountNoteOf(*record);
    RowDetail detail{.note = std::move(note.words), .brief = std::move(note.brief)};
    if (look.coupon_name != nullptr) {
      cut = look.coupon_name(record->Name.view());
      detail.spoken = SpokenNames(record->Name.view(), store);  // nothing is too long to be heard
    }
    headings.Add(record->Stamp,
                 {.id = record->Id,
                  .purchaseType = record->Source,
                  .name = look.coupon_name != nullptr ? cut : record->Name.view(),
                  .storeName = look.store_name != nullptr ? look.store_name(store) : store},
                 std::move(detail));
  }
  tree.SetRows(headings.Take());
  return 0;
}

}  // namespace brovanta
