// Dialogs over a data folder of their own, as the tests drive them.
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

#include "db/shopping_database.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/message_answers.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"

namespace brovanta::test {

/// Saturday 2026-11-21, 10:30 UTC, and 01:00 of that day.
inline constexpr std::int64_t kNow = 1795257000;
inline constexpr DateStamp kToday = 20778 * 86400 + 3600;
inline constexpr DateStamp kDay = 86400;

class FormTest : public QObject, public testing::Test {
 protected:
  using Act = std::function<void()>;

  FormTest();
  ~FormTest() override;

  /// Runs the dialog and lets `act` play the person; a dialog still open afterwards is cancelled.
  /// The dialog's result.
  int RunDialog(QDialog& dialog, const Act& act);

  /// What the person does in the next dialog that opens out of the current one; waits in line
  /// behind earlier ones.
  void InNextDialog(const Act& act) { acts_.push_back(act); }

  /// In the dialog that is played at the moment.
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
  void Press(const char* name);                        ///< a click on any widget
  void PressOk() { Press("okButton"); }
  /// Presses a button that drops a menu down and clicks an entry. What the entry opens is done when
  /// this returns.
  void ChooseInMenu(const char* button_name, const QString& text);

  /// The boxes that came, one text per line.
  [[nodiscard]] std::string Messages() const;

  [[nodiscard]] std::vector<std::string> RecordsOf(const char* file, std::size_t size) const;

  bool eventFilter(QObject* watched, QEvent* event) override;

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{kNow};
  TempFolder folder_;
  ShoppingDatabase database_;
  MessageAnswers answers_{QList<QMessageBox::StandardButton>(20, QMessageBox::Ok)};
  QPointer<QDialog> dialog_;

 private:
  void Play(QDialog* dialog);

  std::vector<Act> acts_;
};

}  // namespace brovanta::test
