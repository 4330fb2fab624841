// The robot's eyes and fingers on the main screen: tree, calendar, and fields found by their label.
#include <QCalendarWidget>
#include <QDateEdit>
#include <QLabel>
#include <QTableView>
#include <QTest>

#include "tests/tour/robot.h"
#include "tests/ui/base/shown_rows.h"

namespace brovanta::tour {
namespace {

RecordTree* TreeOf(QWidget& main) { return main.findChild<RecordTree*>(); }

}  // namespace

bool Robot::HasField(QWidget& window, const QString& label) {
  for (auto* candidate : window.findChildren<QLabel*>()) {
    if (candidate->isVisible() && candidate->text() == label) return true;
  }
  return false;
}

QWidget* Robot::Field(QWidget& window, const QString& label) {
  for (auto* candidate : window.findChildren<QLabel*>()) {
    if (!candidate->isVisible() || candidate->buddy() == nullptr) continue;
    if (candidate->text().remove(QLatin1Char('&')) == label) return candidate->buddy();
  }
  Expect(false, QStringLiteral("no field \"%1\" in %2").arg(label, window.objectName()));
  return nullptr;
}

void Robot::TypeDate(QWidget& field, const QDate& date) {
  auto* edit = qobject_cast<QDateEdit*>(&field);
  Expect(edit != nullptr, field.objectName() + QStringLiteral(" is no date field"));
  if (edit == nullptr) return;
  edit->window()->activateWindow();  // a window manager does so when a message has closed
  Expect(QTest::qWaitForWindowActive(edit->window()), QStringLiteral("the window takes keys"));
  edit->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(edit, date.toString(QStringLiteral("MMddyyyy")));
  Settle();
  Expect(edit->date() == date,
         QStringLiteral("the date field shows ") + edit->date().toString(Qt::ISODate));
}

void Robot::PickDate(QWidget& main, const QDate& date) {
  Tap(main, 1003);
  auto* calendar = main.findChild<QCalendarWidget*>();
  Expect(calendar != nullptr && calendar->isVisible(), QStringLiteral("the calendar is open"));
  if (calendar == nullptr) return;
  calendar->setCurrentPage(date.year(), date.month());
  Settle();
  auto* view = calendar->findChild<QTableView*>();
  // Of the days of the page the first cell with the number inside the month is the date's.
  bool inside = false;
  for (int row = 1; row < view->model()->rowCount(); ++row) {
    for (int column = 0; column < view->model()->columnCount(); ++column) {
      const QModelIndex cell = view->model()->index(row, column);
      const int day = cell.data().toInt();
      if (day == 1) inside = true;
      if (!inside || day != date.day()) continue;
      QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                        view->visualRect(cell).center());
      Settle();
      Expect(!calendar->isVisible(), QStringLiteral("the calendar closes"));
      return;
    }
  }
  Expect(false, QStringLiteral("the calendar has no such day"));
}

bool Robot::SelectRow(QWidget& main, const QString& name) {
  RecordTree* tree = TreeOf(main);
  const QModelIndex row = test::RecordNamed(*tree, name);
  Expect(row.isValid(), QStringLiteral("no row \"%1\"").arg(name));
  if (!row.isValid()) return false;
  tree->scrollTo(row);
  Settle();
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                    tree->visualRect(row).center());
  Settle();
  return true;
}

QStringList Robot::Rows(QWidget& main) {
  QStringList names;
  const RecordRows& rows = TreeOf(main)->rows();
  for (std::size_t heading = 0; heading < rows.HeadingCount(); ++heading) {
    for (const RecordRow& record : rows.Under(heading)) names << record.info().name;
  }
  return names;
}

QStringList Robot::Headings(QWidget& main) {
  QStringList headings;
  const RecordRows& rows = TreeOf(main)->rows();
  for (std::size_t heading = 0; heading < rows.HeadingCount(); ++heading) {
    headings << rows.Heading(heading).Words();
  }
  return headings;
}

}  // namespace brovanta::tour
