// Modal dialogs as the tests drive them: by a person played from within.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/message_answers.h"

namespace brovanta::test {

class DialogTest : public QObject, public testing::Test {
 protected:
  using Act = std::function<void()>;

  DialogTest();
  ~DialogTest() override;

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

  void Press(const char* name);  ///< a click on any widget

  /// The boxes that came, one text per line.
  [[nodiscard]] std::string Messages() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

  MessageAnswers answers_{QList<QMessageBox::StandardButton>(20, QMessageBox::Ok)};
  QPointer<QDialog> dialog_;

 private:
  void Play(QDialog* dialog);

  std::vector<Act> acts_;
};

}  // namespace brovanta::test
