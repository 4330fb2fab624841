#include "tests/ui/product/form_test.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/support/framed_file.h"
#include "ui/base/color_button.h"

namespace brovanta::test {

FormTest::FormTest() {
  for (const char* list : {"store.lst", "category.lst", "unit.lst"}) {
    folder_.Write(list, Hex("81 38 01 00 83 38 01 00"));
  }
  EXPECT_EQ(database_.Open(folder_.path()), 0);
}

void FormTest::Type(const char* name, const QString& text) {
  auto* field = Find(name);
  if (auto* combo = qobject_cast<QComboBox*>(field)) field = combo->lineEdit();
  field->setFocus();
  QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(field, Qt::Key_Delete);
  TypeText(field, text);
}

void FormTest::Paste(const char* name, const QString& text) {
  Type(name, QString());
  QGuiApplication::clipboard()->setText(text);
  QTest::keyClick(Find(name), Qt::Key_V, Qt::ControlModifier);
}

void FormTest::Choose(const char* name, const QString& item) {
  auto* combo = Combo(name);
  const int wanted = combo->findText(item);
  ASSERT_GE(wanted, 0) << "no item " << item.toStdString();
  combo->setFocus();
  for (int steps = 0; combo->currentIndex() != wanted && steps < 40; ++steps) {
    QTest::keyClick(combo, combo->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
  }
  ASSERT_EQ(combo->currentIndex(), wanted);
}

void FormTest::ChooseInMenu(const char* button_name, const QString& text) {
  auto* button = Find<ColorButton>(button_name);
  QTest::mouseClick(button, Qt::LeftButton);
  QMenu* menu = button->menu();
  ASSERT_NE(menu, nullptr) << button_name;
  ASSERT_TRUE(menu->isVisible()) << button_name;
  for (QAction* action : menu->actions()) {
    if (action->text() != text) continue;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    QCoreApplication::sendPostedEvents();  // entries that open dialogs do so once the menu is gone
    return;
  }
  ADD_FAILURE() << "no entry " << text.toStdString();
}

std::vector<std::string> FormTest::RecordsOf(const char* file, std::size_t size) const {
  const auto framed = ReadFramedFile(folder_.File(file), size != 64, size);
  return framed ? framed->records : std::vector<std::string>();
}

}  // namespace brovanta::test
