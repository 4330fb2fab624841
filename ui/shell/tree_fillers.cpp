#include "ui/shell/tree_fillers.h"

#include <QCoreApplication>

#include "platform/file.h"
#include "ui/base/date_headings.h"
#include "ui/base/discount_tree.h"
#include "ui/base/filter_menu.h"
#include "ui/base/period.h"
#include "ui/base/record_tree.h"
#include "ui/base/store_names.h"
#include "ui/base/wide_text.h"

namespace brovanta {
namespace {

QString Words(const char* english) { return QCoreApplication::translate("RecordLists", english); }

QString BoughtWords(DateStamp bought) {
  const CalendarTime time = CalendarFromStamp(bought);
  return Words(QT_TRANSLATE_NOOP("RecordLists", "bought at %1:%2"))
      .arg(time.hour)
      .arg(time.minute, 2, 10, QLatin1Char('0'));
}

/// What stands on the ground of an empty list: how it is, and below what can be done.
QString Empty(const QString& state, const char* hint) {
  return state + QLatin1Char('\n') + Words(hint);
}

RowDetail ProductDetail(const ProductRecord& product) {
  RowDetail detail;
  detail.shows_due = true;
  detail.due = product.NextDate;
  detail.recurrence_kind = product.PurchaseKind;
  detail.every = product.Every;
  detail.day_value = product.DayValue;
  return detail;
}

RowDetail PurchaseDetail(const ProductRecord& purchase) {
  RowDetail detail;
  if (purchase.StartDate != kNoDate) detail.note = BoughtWords(purchase.StartDate);
  return detail;
}

/// The file that the shown list is read from.
const std::string& ListFile(const MainState& state) {
  if (state.list_id == kWebSearchesList) return state.searches->index_path();
  const DatabasePaths& paths = state.database->paths();
  if (state.list_id == kCouponsList) return paths.discount;
  return state.filter.kind == kPurchaseKind ? paths.purchase : paths.product;
}

}  // namespace

int ReadProductRows(ShoppingDatabase& database, const ProductFilter& query,
                    DateHeadings& headings) {
  ProductList& products = database.products();
  if (const int code = products.Load(&query); code != 0) return code;
  const bool purchases = query.kind == kPurchaseKind;
  StoreNames stores(database.stores());
  headings.Reserve(products.size());
  for (const ProductRecord* record = products.First(); record != nullptr;
       record = products.Next()) {
    headings.Add(purchases ? record->StartDate : record->NextDate,
                 {.id = record->Id,
                  .purchaseType = static_cast<std::int16_t>(record->PurchaseKind),
                  .name = record->Name.view(),
                  .storeName = stores.Of(record->StoreId)},
                 purchases ? PurchaseDetail(*record) : ProductDetail(*record));
  }
  return 0;
}

int FillProducts(RecordTree& tree, MainState& state) {
  tree.ClearRows();
  DateHeadings headings;
  const int code = ReadProductRows(*state.database, AsProductFilter(state.filter), headings);
  if (code == 0) tree.SetRows(headings.Take());
  return code;
}

int FillCoupons(RecordTree& tree, MainState& state) {
  return FillDiscountTree(tree, *state.database, AsDiscountFilter(state.filter));
}

int FillWebSearches(RecordTree& tree, MainState& state) {
  tree.ClearRows();
  SavedSearches& saved = state.searches->saved_searches();
  const int code =
      saved.LoadSavedSearches({.from = state.filter.period_start, .to = state.filter.period_end});
  if (code != 0) return code;
  DateHeadings headings({.unknown_date = 60, .without_change = 62});
  for (const SavedSearch& search : saved.searches()) {
    headings.Add(search.Date, {.id = search.Number, .name = search.Words}, {});
  }
  tree.SetRows(headings.Take());
  return 0;
}

QString EmptyListWords(const MainState& state, int view_mode, int code) {
  if (code != 0 && platform::FileExists(ListFile(state))) {
    return Empty(
        Words(QT_TRANSLATE_NOOP("RecordLists", "This list could not be read")),
        QT_TRANSLATE_NOOP("RecordLists",
                          "The program brovanta-data checks files and brings copies back."));
  }
  const QString period = PeriodWords(view_mode);
  const bool narrowed = state.filter.store_id != 0 || state.filter.category_id != 0;
  if (state.filter.find_text) {
    return Empty(
        Words(QT_TRANSLATE_NOOP("RecordLists", "Nothing found for \"%1\" %2"))
            .arg(ShortenedSearch(WideText(*state.filter.find_text)), period),
        narrowed
            ? QT_TRANSLATE_NOOP(
                  "RecordLists",
                  "Find and Clear, All Stores and All Categories together show everything again.")
            : QT_TRANSLATE_NOOP("RecordLists", "Find and Clear show everything again."));
  }
  if (narrowed) {
    return Empty(
        Words(QT_TRANSLATE_NOOP("RecordLists", "Nothing of this choice %1")).arg(period),
        QT_TRANSLATE_NOOP("RecordLists", "All Stores and All Categories show everything again."));
  }
  switch (state.list_id) {
    case kCouponsList:
      return Empty(Words(QT_TRANSLATE_NOOP("RecordLists", "No coupons %1")).arg(period),
                   QT_TRANSLATE_NOOP("RecordLists", "Add one with +, or get new ones by Update."));
    case kWebSearchesList:
      return Empty(Words(QT_TRANSLATE_NOOP("RecordLists", "No saved web searches %1")).arg(period),
                   QT_TRANSLATE_NOOP("RecordLists", "Search the web shops with +."));
    case kPurchasesList:
      return Empty(
          Words(QT_TRANSLATE_NOOP("RecordLists", "Nothing bought %1")).arg(period),
          QT_TRANSLATE_NOOP("RecordLists", "Products that you mark as purchased are shown here."));
    default:
      return Empty(
          Words(QT_TRANSLATE_NOOP("RecordLists", "Nothing to buy %1")).arg(period),
          QT_TRANSLATE_NOOP("RecordLists", "Add a product with +, or choose another time above."));
  }
}

}  // namespace brovanta
