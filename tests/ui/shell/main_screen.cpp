#include "tests/ui/shell/main_screen.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <limits>

#include "tests/ui/base/shown_rows.h"
#include "ui/base/wide_text.h"

namespace brovanta::test {
namespace {

std::optional<NameRef> RefFor(NameList& list, const std::string& name) {
  if (name.empty()) return std::nullopt;
  for (const auto& [id, item] : list) {
    if (item.Name.view() == name) return NameRef{.Id = id, .Name = name};
  }
  return NameRef{.Id = 0, .Name = name};
}

}  // namespace

MainScreenTest::MainScreenTest() {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, Hex("81 38 01 00 83 38 01 00"));
  }
}

ShoppingDatabase& MainScreenTest::Stored() {
  stored_ = std::make_unique<ShoppingDatabase>();
  EXPECT_EQ(stored_->Open(folder_.path()), 0);
  return *stored_;
}

std::int32_t MainScreenTest::AddProduct(const std::string& name, DateStamp date,
                                        const std::string& store, const std::string& category) {
  ShoppingDatabase& database = Stored();
  ProductFields fields;
  fields.name = name;
  fields.purchase_kind = kOneTime;
  fields.start_date = date;
  fields.store = RefFor(database.stores(), store);
  fields.category = RefFor(database.categories(), category);
  const auto added = database.products().Add(kProductKind, fields);
  EXPECT_TRUE(added.has_value());
  return added ? added->Id : 0;
}

std::int32_t MainScreenTest::AddRecurring(const std::string& name, DateStamp start, int kind,
                                          int every, int day) {
  ProductFields fields;
  fields.name = name;
  fields.purchase_kind = static_cast<std::uint16_t>(kind);
  fields.every = static_cast<std::uint16_t>(every);
  fields.day_value = static_cast<std::uint16_t>(day);
  fields.start_date = start;
  const auto added = Stored().products().Add(kProductKind, fields);
  EXPECT_TRUE(added.has_value());
  return added ? added->Id : 0;
}

std::int32_t MainScreenTest::AddPurchase(const std::string& name, DateStamp moment,
                                         const std::string& store) {
  ShoppingDatabase& database = Stored();
  ProductFields fields;
  fields.name = name;
  fields.purchase_kind = kOneTime;
  fields.start_date = moment;
  fields.store = RefFor(database.stores(), store);
  const auto added = database.products().Add(kPurchaseKind, fields);
  EXPECT_TRUE(added.has_value());
  return added ? added->Id : 0;
}

void MainScreenTest::AddCoupon(const std::string& name, DateStamp start, DateStamp end,
                               const std::string& store, const std::string& category,
                               std::int16_t source) {
  ShoppingDatabase& database = Stored();
  DiscountFields fields;
  fields.name = name;
  fields.value_type = 2;
  fields.value = 1.5;
  fields.start_date = start;
  fields.end_date = end;
  fields.store = RefFor(database.stores(), store);
  fields.category = RefFor(database.categories(), category);
  EXPECT_TRUE(database.discounts().Add(0, source, fields).has_value());
}

std::vector<std::string> MainScreenTest::StoredNames(int kind) {
  ProductList& list = Stored().products();
  ProductFilter filter;
  filter.kind = kind;
  filter.to = std::numeric_limits<DateStamp>::max();
  EXPECT_EQ(list.Load(&filter), 0);
  std::vector<std::string> names;
  for (const auto* record = list.First(); record != nullptr; record = list.Next()) {
    names.emplace_back(record->Name.view());
  }
  return names;
}

std::vector<std::string> MainScreenTest::StoredCoupons() {
  DiscountList& list = Stored().discounts();
  const DiscountFilter filter;
  EXPECT_EQ(list.Load(&filter), 0);
  std::vector<std::string> names;
  for (const auto* record = list.First(); record != nullptr; record = list.Next()) {
    names.emplace_back(record->Name.view());
  }
  return names;
}

void MainScreenTest::Open() {
  dialog_ = std::make_unique<MainDialog>(options_, std::make_unique<ShoppingDatabase>(),
                                         std::make_unique<SearchManager>(), folder_.path());
  dialog_->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
}

std::vector<std::string> MainScreenTest::Rows() {
  std::vector<std::string> rows;
  for (const QString& row : ShownRows(tree(), NameAndStore)) rows.push_back(row.toStdString());
  return rows;
}

std::vector<int> MainScreenTest::EnabledCommands() {
  std::vector<int> enabled;
  for (const int command :
       {kToolEdit, kToolDelete, kToolPurchase, kMenuEdit, kMenuDelete, kMenuPurchase}) {
    if (CommandEnabled(command)) enabled.push_back(command);
  }
  return enabled;
}

bool MainScreenTest::CommandEnabled(int command) {
  return Find<CommandBar>("commandBar").action(command)->isEnabled();
}

std::vector<std::string> MainScreenTest::MenuTexts(const char* button_name) {
  std::vector<std::string> texts;
  for (const QAction* action : button(button_name).menu()->actions()) {
    texts.push_back(action->text().toStdString());
  }
  return texts;
}

void MainScreenTest::ChooseTab(int index) {
  auto& tabs = Find<QTabBar>("tabBar");
  QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
}

void MainScreenTest::ChooseView(int mode) {
  QTest::mouseClick(&button("viewModeButton"), Qt::LeftButton);
  QMenu& menu = *button("viewModeButton").menu();
  ChooseInMenu(menu, menu.actions().at(mode - kDailyView)->text());
}

void MainScreenTest::ChooseInMenu(QMenu& menu, const QString& text) {
  if (!menu.isVisible()) menu.popup(dialog_->mapToGlobal(QPoint(0, 0)));
  for (QAction* action : menu.actions()) {
    if (action->text() != text) continue;
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
    return;
  }
  ADD_FAILURE() << "no entry " << text.toStdString();
}

void MainScreenTest::ChooseFilter(const char* button_name, const std::string& text) {
  QTest::mouseClick(&button(button_name), Qt::LeftButton);
  ChooseInMenu(*button(button_name).menu(), QString::fromStdString(text));
}

void MainScreenTest::Tool(int command) {
  for (auto* tool : dialog_->findChildren<QToolButton*>()) {
    if (tool->defaultAction() == nullptr || tool->defaultAction()->data().toInt() != command) {
      continue;
    }
    QTest::mouseClick(tool, Qt::LeftButton);
    return;
  }
  ADD_FAILURE() << "no tool " << command;
}

void MainScreenTest::ToolsMenu(const char* text) {
  ChooseInMenu(Find<QMenu>("toolsMenu"), QString::fromLatin1(text));
}

void MainScreenTest::Select(const std::string& name) {
  const QModelIndex row = RecordNamed(tree(), QString::fromStdString(name));
  ASSERT_TRUE(row.isValid()) << "no row " << name;
  tree().scrollTo(row);
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(row).center());
}

void MainScreenTest::SelectHeading(int index) {
  const QModelIndex heading = tree().HeadingIndex(index);
  ASSERT_TRUE(heading.isValid());
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(heading).center());
}

void MainScreenTest::Press(int key, Qt::KeyboardModifiers modifiers) {
  if (!dialog_->isActiveWindow()) {  // a window manager would have given the activity back
    dialog_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
  }
  QWidget* focus = QApplication::focusWidget();
  QTest::keyClick(focus != nullptr ? focus : dialog_.get(), static_cast<Qt::Key>(key), modifiers);
}

std::shared_ptr<SeenBox> MainScreenTest::AnswerNext(QMessageBox::StandardButton answer) {
  auto seen = std::make_shared<SeenBox>();
  InNextDialog([seen, answer](QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    if (box == nullptr) return;
    *seen = {box->text().toStdString(), box->windowTitle().toStdString(), box->icon(),
             box->standardButtons()};
    QTest::mouseClick(box->button(answer), Qt::LeftButton);
  });
  return seen;
}

void MainScreenTest::InNextDialog(std::function<void(QWidget&)> work) {
  dialog_watch_ = std::make_unique<DialogWatch>(std::move(work));
}

std::shared_ptr<bool> MainScreenTest::WatchForDialog() {
  auto opened = std::make_shared<bool>(false);
  InNextDialog([opened](QWidget& dialog) {
    *opened = true;
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  return opened;
}

void MainScreenTest::Type(QWidget& dialog, const char* field, const char* text) {
  auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(field));
  ASSERT_NE(edit, nullptr) << field;
  edit->selectAll();
  QTest::keyClicks(edit, QString::fromLatin1(text));
}

void MainScreenTest::Click(QWidget& dialog, const char* button_name) {
  auto* wanted = dialog.findChild<QPushButton*>(QString::fromLatin1(button_name));
  ASSERT_NE(wanted, nullptr) << button_name;
  QTest::mouseClick(wanted, Qt::LeftButton);
}

}  // namespace brovanta::test
