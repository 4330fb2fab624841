// The product dialog over a data folder of its own, as the tests of the dialog drive it.
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/fixed_clock.h"
#include "tests/support/message_answers.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "ui/product/product_dialog.h"

namespace brovanta::test {

/// Saturday 2026-11-21, 10:30 UTC, and 01:00 of that day.
inline constexpr std::int64_t kNow = 1795257000;
inline constexpr DateStamp kToday = 20778 * 86400 + 3600;

class ProductFormTest : public testing::Test {
 protected:
  ProductFormTest();

  /// Opens the dialog and lets `act` play the person; a dialog still open afterwards is cancelled.
  /// The dialog's result.
  int Run(const ProductRecord* record, int mode, const std::function<void()>& act);
  int Add(const std::function<void()>& act) { return Run(nullptr, kProductMode, act); }

  template <typename Widget = QWidget>
  Widget* Find(const char* name) {
    auto* widget = dialog_->findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) ADD_FAILURE() << "no " << name;
    return widget;
  }
  QLineEdit* Line(const char* name) { return Find<QLineEdit>(name); }
  QComboBox* Combo(const char* name) { return Find<QComboBox>(name); }

  void Type(const char* name, const QString& text);    ///< replaces the text of a line or combo
  void Choose(const char* name, const QString& item);  ///< by keyboard
  void PressOk();

  /// The name, "Every Few Days" and the interval 2: enough to be saved.
  void FillInTheLeast();

  /// The boxes that came, one text per line.
  [[nodiscard]] std::string Messages() const;

  [[nodiscard]] std::vector<std::string> Records(const char* file) const;
  /// The only record of "product.dat".
  [[nodiscard]] std::string OnlyRecord() const;

  /// Puts a record into the kind's file through the database and gives it back as the list has it.
  ProductRecord Stored(int kind, ProductFields fields);

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{kNow};
  TempFolder folder_;
  ShoppingDatabase database_;
  double tax_ = 8.25;
  MessageAnswers answers_{QList<QMessageBox::StandardButton>(20, QMessageBox::Ok)};
  ProductDialog* dialog_ = nullptr;
};

}  // namespace brovanta::test
