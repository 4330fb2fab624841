#include "tests/ui/product/picker_form.h"

#include <QCalendarWidget>
#include <QMenu>
#include <QTest>

#include "tests/ui/base/shown_rows.h"
#include "ui/base/color_button.h"
#include "ui/product/picker_bar.h"

namespace brovanta::test {

PickerFormTest::PickerFormTest() {
  folder_.Write("store.lst", RawListFile({RawItem(7, "Corner"), RawItem(8, "Fourteen chars"),
                                          RawItem(9, "Fifteen charact")}));
  folder_.Write("category.lst", RawListFile({RawItem(3, "Food"), RawItem(4, "R&D")}));
  EXPECT_EQ(database_.Open(folder_.path()), 0);
}

int PickerFormTest::Run(const Act& act) {
  CouponPickerDialog dialog(database_, "http://server:8427", nullptr);
  const int result = RunDialog(dialog, act);
  picked_ = dialog.picked();
  return result;
}

RecordTree* PickerFormTest::Tree() { return Find<RecordTree>("recordTree"); }

std::string PickerFormTest::Rows() {
  return ShownRows(*Tree(), NameAndStore).join(QLatin1Char('\n')).toStdString();
}

std::string PickerFormTest::Text(const char* button_name) {
  return Find<ColorButton>(button_name)->text().toStdString();
}

std::string PickerFormTest::MenuTexts(const char* button_name) {
  QStringList texts;
  for (const QAction* action : Find<ColorButton>(button_name)->menu()->actions()) {
    texts << QStringLiteral("%1=%2%3").arg(action->text(), action->data().toString(),
                                           action->isChecked() ? QStringLiteral("*") : QString());
  }
  return texts.join(QLatin1Char('|')).toStdString();
}

std::string PickerFormTest::Enabled() {
  QStringList names;
  const auto* bar = Find<PickerBar>("pickerBar");
  if (bar->action(kPickerNew)->isEnabled()) names << QStringLiteral("new");
  if (bar->action(kPickerEdit)->isEnabled()) names << QStringLiteral("edit");
  if (bar->action(kPickerDelete)->isEnabled()) names << QStringLiteral("delete");
  if (bar->action(kPickerFind)->isEnabled()) names << QStringLiteral("find");
  return names.join(QLatin1Char(' ')).toStdString();
}

void PickerFormTest::SelectRow(const QString& name) {
  const QModelIndex row = RecordNamed(*Tree(), name);
  ASSERT_TRUE(row.isValid()) << "no row " << name.toStdString();
  QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, Tree()->visualRect(row).center());
}

void PickerFormTest::SelectHeading(int index) {
  const QModelIndex heading = Tree()->HeadingIndex(index);
  ASSERT_TRUE(heading.isValid());
  QTest::mouseClick(Tree()->viewport(), Qt::LeftButton, {}, Tree()->visualRect(heading).center());
}

void PickerFormTest::Tool(int command) { Press(qPrintable(QStringLiteral("tool%1").arg(command))); }

void PickerFormTest::FindText(const QString& text, const char* button) {
  InNextDialog([this, text, button] {
    Type("findTextBox", text);
    Press(button);
  });
  Tool(kPickerFind);
}

// By keyboard: Enter chooses the date that the calendar shows as selected.
void PickerFormTest::PickDate(QDate date) {
  Press("periodHeadingButton");
  auto* calendar = Find<QCalendarWidget>("calendar");
  ASSERT_TRUE(calendar->isVisible());
  calendar->setSelectedDate(date);
  auto* days = calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
  ASSERT_NE(days, nullptr);
  QTest::keyClick(days, Qt::Key_Return);
  ASSERT_FALSE(calendar->isVisible());
}

}  // namespace brovanta::test
