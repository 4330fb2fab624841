// The real main dialog over a real data folder, worked through mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/schedule.h"
#include "tests/support/dialog_watch.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temp_folder.h"
#include "tests/support/zone_guard.h"
#include "ui/base/color_button.h"
#include "ui/base/period.h"
#include "ui/base/record_tree.h"
#include "ui/shell/command_bar.h"
#include "ui/shell/main_dialog.h"

namespace brovanta::test {

constexpr std::int64_t kNow = 1795262400;    ///< Saturday 2026-11-21 12:00:00 UTC
constexpr DateStamp kToday = 1795222800;     ///< the same day, 01:00:00
constexpr DateStamp kMidnight = 1795219200;  ///< the same day, 00:00:00
constexpr DateStamp kOneDay = 86400;

/// What stood in a message box that was answered.
struct SeenBox {
  std::string text;
  std::string title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons = QMessageBox::NoButton;
};

class MainScreenTest : public testing::Test {
 protected:
  MainScreenTest();

  // Before the screen is opened, and to look at the files afterwards.
  ShoppingDatabase& Stored();  ///< a database of its own, opened on the folder
  std::int32_t AddProduct(const std::string& name, DateStamp date, const std::string& store = "",
                          const std::string& category = "");
  std::int32_t AddRecurring(const std::string& name, DateStamp start, int kind, int every, int day);
  std::int32_t AddPurchase(const std::string& name, DateStamp moment,
                           const std::string& store = "");
  void AddCoupon(const std::string& name, DateStamp start, DateStamp end,
                 const std::string& store = "", const std::string& category = "",
                 std::int16_t source = 0);
  std::vector<std::string> StoredNames(int kind);  ///< all live records of a file, whatever date
  std::vector<std::string> StoredCoupons();

  void Open();
  MainDialog& screen() { return *dialog_; }

  // What is on the screen.
  template <typename Widget>
  Widget& Find(const char* name) {
    auto* widget = dialog_->findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
  }
  RecordTree& tree() { return Find<RecordTree>("recordTree"); }
  ColorButton& button(const char* name) { return Find<ColorButton>(name); }
  std::string Text(const char* button_name) { return button(button_name).text().toStdString(); }
  std::vector<std::string> Rows();     ///< "[Saturday 11/21/2026]", "Milk@Corner", ...
  std::vector<int> EnabledCommands();  ///< of the six that need a record
  bool CommandEnabled(int command);
  std::vector<std::string> MenuTexts(const char* button_name);

  // What a user does.
  void ChooseTab(int index);
  void ChooseView(int mode);
  void ChooseInMenu(QMenu& menu, const QString& text);
  void ChooseFilter(const char* button_name, const std::string& text);
  void Tool(int command);  ///< clicks the tool button
  void ToolsMenu(const char* text);
  void Select(const std::string& name);
  void SelectHeading(int index);
  void Press(int key, Qt::KeyboardModifiers modifiers = {});

  /// Lets the next message box be answered by a click and returns what it showed once it did.
  std::shared_ptr<SeenBox> AnswerNext(QMessageBox::StandardButton answer);
  /// Lets something be done in the next modal dialog, once it is shown.
  void InNextDialog(std::function<void(QWidget&)> work);

  /// Cancels the next dialog; the value tells whether one opened.
  std::shared_ptr<bool> WatchForDialog();
  /// In a dialog: puts a text into a field by keys, or clicks a button.
  static void Type(QWidget& dialog, const char* field, const char* text);
  static void Click(QWidget& dialog, const char* button_name);

  ZoneGuard zone_{"UTC"};
  FixedClock clock_{kNow};
  TempFolder folder_;
  platform::RegistryStore registry_{folder_.File("registry.reg")};
  AppOptions options_{registry_, AppOptions::kKeyPath};
  std::unique_ptr<MainDialog> dialog_;

 private:
  std::unique_ptr<ShoppingDatabase> stored_;
  std::unique_ptr<DialogWatch> dialog_watch_;
};

}  // namespace brovanta::test
