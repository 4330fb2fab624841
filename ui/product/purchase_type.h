// The 13 purchase types of the product dialog and what each means for a product's schedule. The
// texts are English and are shown by PurchaseTypeWords().
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace brovanta {

/// Codes of the types, as the list carries them.
inline constexpr int kOneTimeType = 1;
inline constexpr int kEveryFewDaysType = 2;
inline constexpr int kFirstWeeklyType = 3;
inline constexpr int kLastWeeklyType = 6;
inline constexpr int kFirstMonthlyType = 7;
inline constexpr int kEvery12MonthsType = 13;
/// What a list without a selection reports.
inline constexpr int kNoPurchaseType = -1;

struct PurchaseType {
  int code;
  const char* text;
  std::uint16_t kind;   ///< recurrence kind: 1 one time, 2 daily, 3 weekly, 4 monthly
  std::uint16_t every;  ///< interval count
};

/// A text of this file as it is shown.
[[nodiscard]] QString PurchaseTypeWords(const char* text);

/// In the order of the list.
[[nodiscard]] const std::array<PurchaseType, 13>& PurchaseTypes();

/// The type with this code, nullptr for any other number.
[[nodiscard]] const PurchaseType* FindPurchaseType(int code);

/// The code for a stored schedule: 1 for kind 1, 2 for kind 2, interval + 2 for kind 3, interval +
/// 6 for kind 4 except that an interval of 12 gives 13; kNoPurchaseType for any other kind. The
/// result may be no type's code: a damaged record then selects nothing.
[[nodiscard]] int PurchaseTypeCode(int kind, int every);

/// What the day field asks for.
struct DayChoice {
  const char* label;
  int last;             ///< choices are 1 to this
  const char* missing;  ///< message when nothing is chosen
};

/// The day field of a recurring type's kind (2 to 4), nullptr for a kind without one.
[[nodiscard]] const DayChoice* DayChoiceOfKind(int kind);

}  // namespace brovanta
