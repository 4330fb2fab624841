// How each screen is opened.
#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QDateEdit>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <limits>
#include <utility>

#include "tests/search/agents.h"
#include "tests/support/stuck_download.h"
#include "tests/ui/base/shown_rows.h"
#include "tests/ui/reach/screen_parts.h"
#include "tests/ui/reach/screens.h"
#include "ui/base/color_button.h"
#include "ui/base/message_box.h"
#include "ui/product/coupon_picker_dialog.h"
#include "ui/product/discount_dialog.h"
#include "ui/product/find_dialog.h"
#include "ui/product/product_dialog.h"
#include "ui/shell/options_dialog.h"
#include "ui/shell/update_dialog.h"
#include "ui/websearch/search_dialog.h"
#include "ui/websearch/search_progress_dialog.h"
#include "ui/websearch/search_result_viewer.h"
#include "ui/websearch/search_results_dialog.h"

namespace brovanta::test {
namespace {

constexpr const char* kServer = "http://server:8427";
constexpr const char* kLists[] = {"products", "coupons", "purchases", "searches"};
constexpr double kTax = 8.25;

ProductFilter AllProducts() {
  ProductFilter filter;
  filter.to = std::numeric_limits<DateStamp>::max();
  return filter;
}

/// Nothing but a failed download can come of it.
std::int32_t NoServer(const std::string& /*url*/, const std::string& /*path*/,
                      const std::atomic<std::int32_t>& /*cancel_flag*/) {
  return HTTP_ERR_STATUS;
}

}  // namespace

std::unique_ptr<MainDialog> Screens::OpenMain(const TempFolder& folder) {
  return std::make_unique<MainDialog>(options_, std::make_unique<ShoppingDatabase>(),
                                      std::make_unique<SearchManager>(), folder.path());
}

void Screens::Main() {
  const auto dialog = OpenMain(folder_);
  dialog->show();
  QTest::keyClick(&Find(*dialog, "viewModeButton"), Qt::Key_Down);
  QMenu& view = *Find<ColorButton>(*dialog, "viewModeButton").menu();
  QTest::keyClick(&view, Qt::Key_Down);
  QTest::keyClick(&view, Qt::Key_Down);
  QTest::keyClick(&view, Qt::Key_Return);  // the week, which has an overdue product
  for (int list = 0; list < 4; ++list) {
    ChooseTab(*dialog, list);
    Show(std::string("main, ") + kLists[list], *dialog);
  }
  ChooseTab(*dialog, 0);
  auto& tree = Find<RecordTree>(*dialog, "recordTree");
  tree.setCurrentIndex(RecordNamed(tree, QStringLiteral("Milk")));
  Show("main, a product selected", *dialog);
}

void Screens::EmptyMain() {
  const auto dialog = OpenMain(empty_folder_);
  dialog->show();
  for (int list = 0; list < 4; ++list) {
    ChooseTab(*dialog, list);
    Show(std::string("main, no ") + kLists[list], *dialog);
  }
}

void Screens::OverMain() {
  const auto dialog = OpenMain(folder_);
  dialog->show();
  Activate(*dialog);
  ShowMenu("main, tools menu", *dialog, "toolsButton");
  ShowMenu("main, view menu", *dialog, "viewModeButton");
  ShowMenu("main, store menu", *dialog, "storeFilterButton");
  ShowMenu("main, category menu", *dialog, "categoryFilterButton");
  Activate(*dialog);
  Click(*dialog, "periodHeadingButton");
  ShowOver("main, calendar", ScreenKind::kOverlay, Find(*dialog, "calendarPopup"), *dialog);
}

void Screens::Products() {
  {
    ProductDialog dialog(kTax, nullptr, kProductMode, database_, kServer, nullptr);
    Show("product, new", dialog);
    ChooseTab(dialog, 1);
    Show("product, notes", dialog);
  }
  ProductFilter filter = AllProducts();
  ASSERT_EQ(database_.products().Load(&filter), 0);
  for (const ProductRecord* record = database_.products().First(); record != nullptr;
       record = database_.products().Next()) {
    ProductRecord product = *record;
    product.Discounts[0] = {1, 0, 2};
    product.Discounts[1] = {12, 0, 102};
    product.Discounts[2] = {99, 0, 3};  // gone
    ProductDialog dialog(kTax, &product, kProductMode, database_, kServer, nullptr);
    Show("product, " + std::string(product.Name.view()), dialog);
  }
  filter.kind = kPurchaseKind;
  ASSERT_EQ(database_.products().Load(&filter), 0);
  const ProductRecord* const purchase = database_.products().First();
  ASSERT_NE(purchase, nullptr);
  ProductDialog dialog(kTax, purchase, kPurchaseMode, database_, kServer, nullptr);
  Show("purchase", dialog);
}

void Screens::OverProducts() {
  ProductFilter filter = AllProducts();
  ASSERT_EQ(database_.products().Load(&filter), 0);
  const ProductRecord* record = database_.products().First();
  while (record != nullptr && record->PurchaseKind != 1) record = database_.products().Next();
  ASSERT_NE(record, nullptr);
  ProductDialog dialog(kTax, record, kProductMode, database_, kServer, nullptr);
  dialog.show();
  Activate(dialog);
  ShowMenu("product, slot menu", dialog, "couponSlotButton1");
  ShowList("product, list of types", dialog, "purchaseTypeBox");
  ShowList("product, list of stores", dialog, "storeBox");
  ShowDropDownCalendar("product, calendar", dialog, Find<QDateEdit>(dialog, "purchaseDateEdit"));
}

void Screens::Discounts() {
  DiscountFilter filter;
  ASSERT_EQ(database_.discounts().Load(&filter), 0);
  {
    DiscountDialog dialog(nullptr, kNewDiscountMode, database_, kServer, nullptr);
    Show("coupon, new", dialog);
    ChooseTab(dialog, 1);
    Show("coupon, notes", dialog);
  }
  const DiscountRecord* const record = database_.discounts().Find(12, 1);
  ASSERT_NE(record, nullptr);
  for (const auto& [mode, name] :
       {std::pair(kEditDiscountMode, "edit"), std::pair(kApplyDiscountMode, "apply"),
        std::pair(kAppliedDiscountMode, "applied")}) {
    DiscountDialog dialog(record, mode, database_, kServer, nullptr);
    Show(std::string("coupon, ") + name, dialog);
  }
}

void Screens::Picker() {
  {
    CouponPickerDialog dialog(database_, kServer, nullptr);
    Show("picker", dialog);
    auto& tree = Find<RecordTree>(dialog, "recordTree");
    tree.setCurrentIndex(tree.RecordIndex(0, 0));
    Show("picker, a coupon selected", dialog);
  }
  ShoppingDatabase empty;
  ASSERT_EQ(empty.Open(empty_folder_.path()), 0);
  EXPECT_TRUE(empty_folder_.ReadText("store.lst").has_value());
  empty_folder_.Write("discount.dat", Hex("81 38 01 00 00 00 00 00 83 38 01 00"));
  CouponPickerDialog dialog(empty, kServer, nullptr);
  Show("picker, no coupons", dialog);
}

void Screens::OverPicker() {
  CouponPickerDialog dialog(database_, kServer, nullptr);
  dialog.show();
  Activate(dialog);
  ShowMenu("picker, store menu", dialog, "storeFilterButton");
  Activate(dialog);
  Click(dialog, "periodHeadingButton");
  ShowOver("picker, calendar", ScreenKind::kOverlay, Find(dialog, "calendarPopup"), dialog);
}

void Screens::SmallDialogs() {
  FindTextDialog find(nullptr, std::string("coffee"));
  Show("find", find);
  OptionsDialog options(options_, nullptr);
  Show("options", options);
}

void Screens::Updates() {
  StuckDownload stuck;
  UpdateJob job;
  job.configuration_path = searches_.configuration_path();
  job.scratch_path = folder_.File("update.dat");
  job.download = stuck.download();
  {
    UpdateDialog running(database_, job, nullptr);
    running.show();
    stuck.AwaitStart();
    Show("update, running", running);
    stuck.Release();
  }
  job.download = NoServer;
  UpdateDialog failed(database_, job, nullptr);
  failed.show();
  auto& ok = Find<QPushButton>(failed, "okButton");
  EXPECT_TRUE(QTest::qWaitFor([&ok] { return ok.isEnabled(); }, 30'000));
  Show("update, failed", failed);
}

void Screens::Search() {
  ASSERT_EQ(searches_.LoadAgentConfiguration(searches_.configuration_path()), 0);
  SearchDialog dialog(searches_, nullptr);
  Show("search", dialog);
}

void Screens::Progress() {
  SearchProgressDialog dialog(searches_, QStringLiteral("coffee"), 1, nullptr);
  dialog.show();
  dialog.killTimer(dialog.start_timer());  // the search is played by messages
  for (int shop = 1; shop <= 3; ++shop) {
    const WebAgent agent = PlainAgent(shop);
    const auto sender = reinterpret_cast<std::uintptr_t>(&agent);
    dialog.progress_window().SendMessage(WM_SEARCH_AGENT_STARTED, sender, 0);
    if (shop == 1) dialog.progress_window().SendMessage(WM_SEARCH_AGENT_FAILED, sender, -1);
    if (shop == 2) dialog.progress_window().SendMessage(WM_SEARCH_AGENT_RESULTS, sender, 12);
  }
  Show("progress, searching", dialog);
  dialog.progress_window().SendMessage(WM_SEARCH_FINISHED, 0, 12);
  Show("progress, done", dialog);
}

void Screens::Results() {
  const QString words = QStringLiteral("coffee machine");
  SearchResultsDialog results(searches_.saved_searches(), search_number_, words, nullptr);
  Show("results", results);
  folder_.Write("WebSearch/999.dat", Hex("81 38 01 00 83 38 01 00"));
  SearchResultsDialog none(searches_.saved_searches(), 999, words, nullptr);
  Show("results, none", none);
  SearchResultViewer viewer(
      {.search_text = words,
       .title = QString::fromLatin1(kLongTitle),
       .description = QStringLiteral("Ships in two days. Two years of warranty."),
       .url = QStringLiteral("http://shop.example/items/4711?colour=steel&from=search"),
       .web_site = QStringLiteral("Corner Shop"),
       .price = QStringLiteral("$9.90")},
      nullptr);
  Show("result", viewer);
}

void Screens::Messages() {
  QWidget window;
  window.show();
  ShowMessageBox("message", [&window] {
    ShowMessage(&window, QStringLiteral("There was an error while reading the database."));
  });
  ShowMessageBox("question", [&window] {
    static_cast<void>(AskYesNo(
        &window, QStringLiteral("Do you want to permanently delete the selected coupon?")));
  });
  ShowMessageBox("question with cancel", [&window] {
    static_cast<void>(AskYesNoCancel(
        &window, QStringLiteral("Do you want to permanently delete the selected product?")));
  });
}

}  // namespace brovanta::test
