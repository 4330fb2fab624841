// What the files of a data folder are called. Those of the web search alone:
// search/search_format.h.
#pragma once

namespace brovanta {

inline constexpr char kProductFile[] = "product.dat";
inline constexpr char kPurchaseFile[] = "purchase.dat";
inline constexpr char kDiscountFile[] = "discount.dat";
inline constexpr char kStoreFile[] = "store.lst";
inline constexpr char kCategoryFile[] = "category.lst";
inline constexpr char kUnitFile[] = "unit.lst";
inline constexpr char kJournalFile[] = "backup.dat";

/// The one folder in a data folder: the results files of the web search.
inline constexpr char kResultsFolder[] = "WebSearch";

}  // namespace brovanta
