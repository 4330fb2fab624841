// The four lists of the main screen, as its tabs show them.
#pragma once

#include <QtGlobal>
#include <array>
#include <cstddef>

namespace brovanta {

/// List identifiers, which the commands switch on.
inline constexpr int kProductsList = 3004;
inline constexpr int kCouponsList = 3005;
inline constexpr int kPurchasesList = 3006;
inline constexpr int kWebSearchesList = 3007;

/// One tab of the main screen.
struct ListTab {
  int list_id;
  int record_kind;   ///< kind of the record filter: 1 products, 2 purchases, else 0
  const char* name;  ///< read out and shown as a tip: the tabs have pictures only
};

inline constexpr std::array<ListTab, 4> kListTabs{
    {{kProductsList, 1, QT_TRANSLATE_NOOP("brovanta::MainDialog", "Products")},
     {kCouponsList, 0, QT_TRANSLATE_NOOP("brovanta::MainDialog", "Coupons")},
     {kPurchasesList, 2, QT_TRANSLATE_NOOP("brovanta::MainDialog", "Purchases")},
     {kWebSearchesList, 0, QT_TRANSLATE_NOOP("brovanta::MainDialog", "Web searches")}}};

}  // namespace brovanta
