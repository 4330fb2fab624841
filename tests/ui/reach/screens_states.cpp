// What the screens look like in the middle of the work: with filters, open lists, waiting.
#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimerEvent>
#include <QToolButton>

#include "db/schedule.h"
#include "tests/support/dialog_watch.h"
#include "tests/support/loopback_shops.h"
#include "tests/support/stuck_download.h"
#include "tests/ui/reach/screen_parts.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/color_button.h"
#include "ui/base/narrow_form.h"
#include "ui/product/coupon_picker_dialog.h"
#include "ui/product/discount_dialog.h"
#include "ui/product/find_dialog.h"
#include "ui/product/product_dialog.h"
#include "ui/shell/options_dialog.h"
#include "ui/shell/update_dialog.h"
#include "ui/websearch/search_dialog.h"
#include "ui/websearch/search_progress_dialog.h"

namespace brovanta::test {
namespace {

constexpr const char* kServer = "http://server:8427";
constexpr double kTax = 8.25;
constexpr DateStamp kToday = 1795222800;  // 01:00:00
constexpr const char* kNotes =
    "Only the bottle with the green label, and only as long as it is pressed in autumn.\n"
    "Ask for the one behind the counter.";

/// The entry with this text, or the last one.
void Choose(QWidget& window, const char* button, const char* text = nullptr) {
  auto& opener = Find<ColorButton>(window, button);
  opener.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&opener, Qt::Key_Down);
  QMenu* const menu = opener.menu();
  QAction* chosen = menu->actions().constLast();
  for (QAction* action : menu->actions()) {
    if (text != nullptr && action->text() == QString::fromLatin1(text)) chosen = action;
  }
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(chosen).center());
}

/// Types words into the find dialog, which the button opens.
void FindWords(QWidget& window, const char* button, const QString& words) {
  const DialogWatch watch([&words](QWidget& dialog) {
    Find<QComboBox>(dialog, "findTextBox").setEditText(words);
    Click(dialog, "findButton");
  });
  Click(window, button);
}

constexpr const char* kMainFind = "tool2785";
constexpr const char* kPickerFindTool = "tool2794";

}  // namespace

void Screens::NarrowedMain() {
  {
    const auto dialog = OpenMain(folder_);
    dialog->show();
    Choose(*dialog, "storeFilterButton", "Mediterranean Delicatessen && Wine");
    Choose(*dialog, "categoryFilterButton", "Oil, vinegar and spices");
    Show("main, both filters set", *dialog);
    Choose(*dialog, "storeFilterButton", "Corner Shop");
    Show("main, nothing of this choice", *dialog);
  }
  const auto dialog = OpenMain(folder_);
  dialog->show();
  FindWords(*dialog, kMainFind, QStringLiteral("olive"));
  Show("main, found", *dialog);
  FindWords(*dialog, kMainFind, QString::fromLatin1(kLongTitle));
  Show("main, nothing found", *dialog);
}

void Screens::UnreadableMain() {
  const TempFolder damaged;
  damaged.Write("discount.dat", Hex("01 02"));
  const auto dialog = OpenMain(damaged);
  dialog->show();
  ChooseTab(*dialog, 1);
  Show("main, unreadable", *dialog);
}

void Screens::ManyStores() {
  const TempFolder folder;
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder.Write(list, Hex("81 38 01 00 83 38 01 00"));
  }
  {
    ShoppingDatabase database;
    ASSERT_EQ(database.Open(folder.path()), 0);
    ProductFields fields;
    fields.purchase_kind = kOneTime;
    fields.start_date = kToday;
    constexpr int kStores = 30;
    for (int i = 0; i < kStores; ++i) {
      fields.name = "Milk";
      fields.store = NameRef{0, "Store number " + std::to_string(i)};
      ASSERT_TRUE(database.products().Add(kProductKind, fields).has_value());
    }
  }
  const auto dialog = OpenMain(folder);
  dialog->show();
  Activate(*dialog);
  ShowMenu("main, menu of many stores", *dialog, "storeFilterButton");
}

void Screens::CalendarParts() {
  const auto dialog = OpenMain(folder_);
  dialog->show();
  Activate(*dialog);
  Click(*dialog, "periodHeadingButton");
  auto& month = Find<QToolButton>(*dialog, "qt_calendar_monthbutton");
  month.menu()->popup(month.mapToGlobal(QPoint(0, month.height())));
  ShowOver("calendar, month menu", ScreenKind::kPopup, *month.menu(), *dialog);
  month.menu()->close();
  Activate(*dialog);
  Click(*dialog, "qt_calendar_yearbutton");
  ShowOver("calendar, year field", ScreenKind::kOverlay, Find(*dialog, "calendarPopup"), *dialog);
}

void Screens::NarrowedPicker() {
  CouponPickerDialog dialog(database_, kServer, nullptr);
  dialog.show();
  Activate(dialog);
  ShowMenu("picker, category menu", dialog, "categoryFilterButton");
  Activate(dialog);
  FindWords(dialog, kPickerFindTool, QStringLiteral("spring"));
  Show("picker, found", dialog);
  FindWords(dialog, kPickerFindTool, QString::fromLatin1(kLongTitle));
  Show("picker, nothing found", dialog);
}

void Screens::CouponParts() {
  DiscountDialog dialog(nullptr, kNewDiscountMode, database_, kServer, nullptr);
  dialog.show();
  Activate(dialog);
  for (const char* list : {"typeBox", "valueTypeBox", "storeBox", "categoryBox", "productBox"}) {
    ShowList(std::string("coupon, ") + list, dialog, list);
  }
  for (const char* field : {"startDateEdit", "endDateEdit"}) {
    QWidget& date = Find(dialog, field);
    auto* const has_date = date.findChild<QCheckBox*>();
    ASSERT_NE(has_date, nullptr);
    has_date->setFocus();
    has_date->click();
    Show(std::string("coupon, has ") + field, dialog);
    ShowDropDownCalendar(std::string("coupon, calendar of ") + field, dialog,
                         *date.findChild<QDateEdit*>());
  }
  ChooseTab(dialog, 1);
  Find<QPlainTextEdit>(dialog, "notesEdit").setPlainText(QString::fromLatin1(kNotes));
  Show("coupon, written notes", dialog);
}

void Screens::ProductParts() {
  ProductDialog dialog(kTax, nullptr, kProductMode, database_, kServer, nullptr);
  dialog.show();
  Activate(dialog);
  ShowList("product, list of units", dialog, "unitTypeBox");
  ShowList("product, list of categories", dialog, "categoryBox");
  auto& type = Find<QComboBox>(dialog, "purchaseTypeBox");
  type.setFocus();
  while (!Find(dialog, "dayBox").isVisible()) {
    const int before = type.currentIndex();
    QTest::keyClick(&type, Qt::Key_Down);
    ASSERT_NE(type.currentIndex(), before);
  }
  Show("product, recurring", dialog);
  ShowList("product, list of days", dialog, "dayBox");
  ChooseTab(dialog, 1);
  Find<QPlainTextEdit>(dialog, "notesEdit").setPlainText(QString::fromLatin1(kNotes));
  Show("product, written notes", dialog);
}

void Screens::SmallLists() {
  {
    FindTextDialog earlier(nullptr, std::nullopt);
    earlier.show();
    Find<QComboBox>(earlier, "findTextBox").setEditText(QString::fromLatin1(kLongTitle));
    Click(earlier, "findButton");
    FindTextDialog find(nullptr, std::nullopt);
    find.show();
    Activate(find);
    ShowList("find, earlier words", find, "findTextBox");
  }
  OptionsDialog options(options_, nullptr);
  options.show();
  Activate(options);
  ShowList("options, countries", options, "countryBox");
  ASSERT_EQ(searches_.LoadAgentConfiguration(searches_.configuration_path()), 0);
  SearchDialog search(searches_, &options);
  const DialogWatch watch([this](QWidget& dialog) {
    Activate(dialog);
    ShowList("search, categories", dialog, "categoryBox");
    dialog.close();
  });
  search.exec();
}

void Screens::UpdateStates() {
  StuckDownload stuck;
  UpdateJob job;
  job.configuration_path = searches_.configuration_path();
  job.scratch_path = folder_.File("update.dat");
  job.download = stuck.download();
  UpdateDialog dialog(database_, job, nullptr);
  dialog.show();
  stuck.AwaitStart();
  QCoreApplication::processEvents();
  auto& status = Find<QLabel>(dialog, "statusLabel");
  const QString before = status.text();
  status.setText(QCoreApplication::translate("brovanta::UpdateDialog", "Initializing update...."));
  FitLabels(dialog);
  Show("update, initializing", dialog);
  status.setText(before);
  Click(dialog, "cancelButton");
  EXPECT_NE(status.text(), before);
  Show("update, aborting", dialog);
  stuck.Release();
}

void Screens::ProgressStates() {
  LoopbackShops shops;
  const TempFolder folder;
  shops.AddHeldShop(1);
  shops.WriteConfiguration(folder);
  SearchManager searches;
  ASSERT_EQ(searches.SetSearchFolder(folder.path()), 0);
  ASSERT_EQ(searches.LoadAgentConfiguration(searches.configuration_path()), 0);
  SearchProgressDialog dialog(searches, QStringLiteral("coffee"), 1, nullptr);
  dialog.show();
  Show("progress, starting", dialog);
  QTimerEvent started(dialog.start_timer());
  QCoreApplication::sendEvent(&dialog, &started);
  Show("progress, searching the internet", dialog);
  Click(dialog, "stopButton");
  Show("progress, stopping", dialog);
  EXPECT_TRUE(QTest::qWaitFor(
      [&dialog] { return Find<QPushButton>(dialog, "doneButton").isEnabled(); }, 30'000));
  Show("progress, none found", dialog);
}

}  // namespace brovanta::test
