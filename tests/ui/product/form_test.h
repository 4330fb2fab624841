// Dialogs over a data folder of their own, as the tests drive them.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <string>
#include <vector>

#include "db/shopping_database.h"
#include "tests/support/dialog_test.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"

namespace brovanta::test {

/// Saturday 2026-11-21, 10:30 UTC, and 01:00 of that day.
inline constexpr std::int64_t kNow = 1795257000;
inline constexpr DateStamp kToday = 20778 * 86400 + 3600;
inline constexpr DateStamp kDay = 86400;

class FormTest : public DialogTest {
 protected:
  FormTest();

  QLineEdit* Line(const char* name) { return Find<QLineEdit>(name); }
  QComboBox* Combo(const char* name) { return Find<QComboBox>(name); }

  void Type(const char* name, const QString& text);    ///< replaces the text of a line or combo
  void Paste(const char* name, const QString& text);   ///< the same out of the clipboard
  void Choose(const char* name, const QString& item);  ///< by keyboard
  void PressOk() { Press("okButton"); }
  /// Presses a button that drops a menu down and clicks an entry. What the entry opens is done when
  /// this returns.
  void ChooseInMenu(const char* button_name, const QString& text);

  [[nodiscard]] std::vector<std::string> RecordsOf(const char* file, std::size_t size) const;

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{kNow};
  TempFolder folder_;
  ShoppingDatabase database_;
};

}  // namespace brovanta::test
