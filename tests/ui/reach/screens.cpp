#include "tests/ui/reach/screens.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <utility>

#include "db/schedule.h"
#include "tests/support/dialog_watch.h"
#include "ui/base/color_button.h"

namespace brovanta::test {
namespace {

constexpr DateStamp kToday = 1795222800;  // 01:00:00
constexpr DateStamp kOneDay = 86400;

}  // namespace

Screens::Screens() {
  for (const TempFolder* folder : {&folder_, &empty_folder_}) {
    for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
      folder->Write(list, Hex("81 38 01 00 83 38 01 00"));
    }
  }
  EXPECT_EQ(database_.Open(folder_.path()), 0);
  EXPECT_EQ(searches_.SetSearchFolder(folder_.path()), 0);
  Fill();
}

Screens::~Screens() = default;

void Screens::Fill() {
  AddSomeProducts();
  AddSomeCoupons();
  AddSomeSearches();
}

void Screens::AddSomeProducts() {
  ProductFields fields;
  fields.name = "Milk";
  fields.purchase_kind = kWeekly;
  fields.every = 1;
  fields.day_value = 4;
  fields.start_date = kToday - 2 * kOneDay;
  fields.store = NameRef{0, "Corner Shop"};
  fields.category = NameRef{0, "Dairy"};
  fields.unit = NameRef{0, "Litre"};
  EXPECT_TRUE(database_.products().Add(kProductKind, fields).has_value());
  fields = {};
  fields.name = kLongName;
  fields.purchase_kind = kOneTime;
  fields.start_date = kToday;
  fields.store = NameRef{0, "Mediterranean Delicatessen & Wine"};
  fields.category = NameRef{0, "Oil, vinegar and spices"};
  EXPECT_TRUE(database_.products().Add(kProductKind, fields).has_value());
  fields.name = "Bread";
  fields.store.reset();
  fields.category.reset();
  EXPECT_TRUE(database_.products().Add(kProductKind, fields).has_value());
  fields.start_date = kToday + 8 * 3600;
  EXPECT_TRUE(database_.products().Add(kPurchaseKind, fields).has_value());
}

void Screens::AddSomeCoupons() {
  DiscountFields fields;
  fields.name = "Spring offer";
  fields.product = "Milk";
  fields.description = "one for each household";
  fields.type = 2;
  fields.value_type = 1;
  fields.value = 10;
  fields.end_date = kToday + 30 * kOneDay;
  fields.store = NameRef{0, "Corner Shop"};
  fields.category = NameRef{0, "Dairy"};
  EXPECT_TRUE(database_.discounts().Add(0, 0, fields).has_value());
  fields.name = "Two for the price of one on everything";
  EXPECT_TRUE(database_.discounts().Add(12, 1, fields).has_value());
  fields.name = "Spring offer";
  fields.value_type = 2;
  fields.value = 1234.5;
  EXPECT_TRUE(database_.discounts().Add(0, 0, fields).has_value());
}

void Screens::AddSomeSearches() {
  std::vector<SearchResultItem> items;
  for (const char* title : {"Soap", kLongTitle}) {
    SearchResultItem item;
    item.Title = title;
    item.Price = 9.90;
    item.Text = "Ships in two days. Two years of warranty.";
    item.Url = "http://shop.example/items/4711?colour=steel&from=search";
    item.SiteName = "Corner Shop";
    items.push_back(item);
  }
  SearchResultList results;
  results.Append(std::move(items));
  search_number_ = searches_.saved_searches().SaveSearch(1, "coffee machine", &results);
  EXPECT_GE(search_number_, 1);
  folder_.WriteText("webspider.xml",
                    "<AgentType><TypeId>1</TypeId><TypeName>Groceries</TypeName></AgentType>");
}

void Screens::ForEachWindow(const Look& look) {
  look_ = look;
  Main();
  EmptyMain();
  Products();
  Discounts();
  Picker();
  SmallDialogs();
  Updates();
  Search();
  Progress();
  Results();
}

void Screens::ForEach(const Look& look) {
  ForEachAsOpened(look);
  ForEachState(look);
}

void Screens::ForEachAsOpened(const Look& look) {
  ForEachWindow(look);
  OverMain();
  OverProducts();
  OverPicker();
  Messages();
}

void Screens::ForEachState(const Look& look) {
  look_ = look;
  NarrowedMain();
  UnreadableMain();
  ManyStores();
  CalendarParts();
  NarrowedPicker();
  CouponParts();
  ProductParts();
  SmallLists();
  UpdateStates();
  ProgressStates();
}

void Screens::Show(const std::string& name, QWidget& window) {
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window)) << name;
  look_({name, ScreenKind::kWindow, &window, &window});
}

void Screens::ShowOver(const std::string& name, ScreenKind kind, QWidget& screen, QWidget& window) {
  EXPECT_TRUE(screen.isVisible()) << name;
  QCoreApplication::processEvents();
  look_({name, kind, &screen, &window});
}

void Screens::ShowMenu(const std::string& name, QWidget& window, const char* button) {
  auto* opener = window.findChild<ColorButton*>(QString::fromLatin1(button));
  ASSERT_NE(opener, nullptr) << button;
  opener->setFocus(Qt::TabFocusReason);
  QTest::keyClick(opener, Qt::Key_Down);
  QMenu* const menu = opener->menu();
  ASSERT_NE(menu, nullptr) << button;
  ShowOver(name, ScreenKind::kPopup, *menu, window);
  menu->close();
}

void Screens::ShowList(const std::string& name, QWidget& window, const char* combo) {
  auto* box = window.findChild<QComboBox*>(QString::fromLatin1(combo));
  ASSERT_NE(box, nullptr) << combo;
  box->setFocus(Qt::TabFocusReason);  // in view
  QCoreApplication::processEvents();
  box->showPopup();
  ShowOver(name, ScreenKind::kPopup, *box->view()->window(), window);
  box->hidePopup();
}

void Screens::ShowDropDownCalendar(const std::string& name, QWidget& window, QDateEdit& date) {
  date.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&date, Qt::Key_Down, Qt::AltModifier);
  QWidget* const popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr) << name;
  ShowOver(name, ScreenKind::kPopup, *popup, window);
  popup->close();
}

void Screens::ShowMessageBox(const std::string& name, const std::function<void()>& open) {
  bool seen = false;
  const DialogWatch watch([&](QWidget& box) {
    seen = true;
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box)) << name;
    look_({name, ScreenKind::kMessage, &box, &box});
    if (box.isVisible()) box.close();
  });
  open();
  EXPECT_TRUE(seen) << name;
}

}  // namespace brovanta::test
