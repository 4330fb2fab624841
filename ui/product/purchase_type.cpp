#include "ui/product/purchase_type.h"

#include <QCoreApplication>
#include <algorithm>

namespace brovanta {
namespace {

constexpr std::array<PurchaseType, 13> kTypes{{
    {1, QT_TRANSLATE_NOOP("PurchaseType", "One Time"), 1, 0},
    {2, QT_TRANSLATE_NOOP("PurchaseType", "Every Few Days"), 2, 0},
    {3, QT_TRANSLATE_NOOP("PurchaseType", "Every Week"), 3, 1},
    {4, QT_TRANSLATE_NOOP("PurchaseType", "Every 2 Weeks"), 3, 2},
    {5, QT_TRANSLATE_NOOP("PurchaseType", "Every 3 Weeks"), 3, 3},
    {6, QT_TRANSLATE_NOOP("PurchaseType", "Every 4 Weeks"), 3, 4},
    {7, QT_TRANSLATE_NOOP("PurchaseType", "Every Month"), 4, 1},
    {8, QT_TRANSLATE_NOOP("PurchaseType", "Every 2 Months"), 4, 2},
    {9, QT_TRANSLATE_NOOP("PurchaseType", "Every 3 Months"), 4, 3},
    {10, QT_TRANSLATE_NOOP("PurchaseType", "Every 4 Months"), 4, 4},
    {11, QT_TRANSLATE_NOOP("PurchaseType", "Every 5 Months"), 4, 5},
    {12, QT_TRANSLATE_NOOP("PurchaseType", "Every 6 Months"), 4, 6},
    {13, QT_TRANSLATE_NOOP("PurchaseType", "Every 12 Months"), 4, 12},
}};

constexpr DayChoice kDaily{
    QT_TRANSLATE_NOOP("PurchaseType", "Days Interval:"), 6,
    QT_TRANSLATE_NOOP("PurchaseType",
                      "You must select the days interval for this daily purchase.")};
constexpr DayChoice kWeekly{
    QT_TRANSLATE_NOOP("PurchaseType", "Day of Week:"), 7,
    QT_TRANSLATE_NOOP("PurchaseType",
                      "You must select the day of the week for this weekly purchase.")};
constexpr DayChoice kMonthly{
    QT_TRANSLATE_NOOP("PurchaseType", "Day of Month:"), 31,
    QT_TRANSLATE_NOOP("PurchaseType",
                      "You must select the day of the month for this monthly purchase.")};

}  // namespace

QString PurchaseTypeWords(const char* text) {
  return QCoreApplication::translate("PurchaseType", text);
}

const std::array<PurchaseType, 13>& PurchaseTypes() { return kTypes; }

const PurchaseType* FindPurchaseType(int code) {
  const auto* const found = std::find_if(
      kTypes.begin(), kTypes.end(), [code](const PurchaseType& type) { return type.code == code; });
  return found == kTypes.end() ? nullptr : found;
}

int PurchaseTypeCode(int kind, int every) {
  switch (kind) {
    case 1:
      return kOneTimeType;
    case 2:
      return kEveryFewDaysType;
    case 3:
      return every + 2;
    case 4:
      return every == 12 ? kEvery12MonthsType : every + 6;
    default:
      return kNoPurchaseType;
  }
}

const DayChoice* DayChoiceOfKind(int kind) {
  switch (kind) {
    case 2:
      return &kDaily;
    case 3:
      return &kWeekly;
    case 4:
      return &kMonthly;
    default:
      return nullptr;
  }
}

}  // namespace brovanta
