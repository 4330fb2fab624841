// Chapter one: the first start, and the list typed in.
#include <QComboBox>
#include <QLineEdit>
#include <algorithm>

#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "tests/tour/household_list.h"
#include "ui/base/wide_text.h"

namespace brovanta::tour {
namespace {

using test::DoubleAt;
using test::HalfAt;
using test::ReadFramedFile;
using test::TextAt;
using test::WordAt;

void TypeIfGiven(Robot& robot, QWidget& dialog, const char* label, const char* text) {
  if (*text == '\0') return;
  if (QWidget* field = robot.Field(dialog, Text(label))) robot.Type(*field, Text(text));
}

// The second of two ways in which people open a form.
void OpenNewProduct(Robot& robot, MainDialog& main, bool by_key,
                    const std::function<void(QWidget&)>& act) {
  robot.During(
      [&] {
        if (by_key) {
          robot.Key(main, Qt::Key_Insert);
        } else {
          robot.TapCommand(main, 2771);
        }
      },
      act);
}

void FillIn(Robot& robot, QWidget& dialog, const HouseholdProduct& product) {
  TypeIfGiven(robot, dialog, "Product:", product.name);
  TypeIfGiven(robot, dialog, "Unit Type:", product.unit);
  TypeIfGiven(robot, dialog, "Quantity:", product.quantity);
  TypeIfGiven(robot, dialog, "Unit Price:", product.price);
  TypeIfGiven(robot, dialog, "Category:", product.category);
  TypeIfGiven(robot, dialog, "Store:", product.store);
  QWidget* type = robot.Field(dialog, Text("Purchase Type:"));
  if (type == nullptr) return;
  robot.Choose(*type, Text(product.type));
  if (Text(product.type) == Text("One Time")) {
    const QDate date = QDate::fromString(Text(product.day), Text("M/d/yyyy"));
    if (QWidget* field = robot.Field(dialog, Text("Purchase Date:"))) robot.TypeDate(*field, date);
  } else {
    for (const char* label : {"Days Interval:", "Day of Week:", "Day of Month:"}) {
      if (!robot.HasField(dialog, Text(label))) continue;
      robot.Choose(*robot.Field(dialog, Text(label)), Text(product.day));
    }
  }
  if (*product.notes != '\0') {
    robot.TapTab(dialog, 1);
    robot.Type(*robot.Control(dialog, Text("notesEdit")), Text(product.notes));
    if (Text(product.name).startsWith(Text("Birthday"))) {
      robot.Picture(dialog, Text("product_notes"));
    }
    robot.TapTab(dialog, 0);
  }
}

void SetTheTax(Robot& robot, MainDialog& main) {
  robot.During([&] { robot.ChooseTool(main, Text("Options")); },
               [&](QWidget& dialog) {
                 QWidget* tax = robot.Control(dialog, 1003);
                 robot.Type(*tax, Text("-1"));
                 robot.AnswerMessage([&] { robot.Tap(dialog, Text("OK")); },
                                     Text("The tax must be a valid number."), Text("OK"));
                 robot.Type(*tax, Text("8.25"));
                 robot.Type(*robot.Control(dialog, 1002), Text("90210"));
                 robot.Picture(dialog, Text("options"));
                 robot.Tap(dialog, Text("OK"));
               });
}

// An unfinished form says what is missing and keeps what was typed.
void MeetTheMessages(Robot& robot, MainDialog& main) {
  OpenNewProduct(robot, main, false, [&](QWidget& dialog) {
    robot.Picture(dialog, Text("product_new"));
    auto* tax = qobject_cast<QLineEdit*>(robot.Field(dialog, Text("Tax (%):")));
    robot.Expect(tax != nullptr && tax->text() == Text("8.25"), Text("the tax is filled in"));
    robot.AnswerMessage([&] { robot.Tap(dialog, Text("OK")); },
                        Text("The product name can not be empty."), Text("OK"));
    TypeIfGiven(robot, dialog, "Product:", "Forgotten in the end");
    robot.AnswerMessage([&] { robot.Tap(dialog, Text("OK")); },
                        Text("You must select a purchase type for this product."), Text("OK"));
    robot.Choose(*robot.Field(dialog, Text("Purchase Type:")), Text("Every Month"));
    robot.AnswerMessage([&] { robot.Tap(dialog, Text("OK")); },
                        Text("You must select the day of the month for this monthly purchase."),
                        Text("OK"));
    robot.Tap(dialog, Text("Cancel"));
  });
}

// Recurrence kind and interval that a purchase type stands for.
std::pair<int, int> ScheduleOf(const QString& type) {
  if (type == Text("One Time")) return {1, 0};
  if (type == Text("Every Few Days")) return {2, 0};
  const QStringList words = type.split(QLatin1Char(' '));
  const int count = words.size() == 3 ? words[1].toInt() : 1;
  return {words.last().startsWith(Text("Week")) ? 3 : 4, count};
}

void CheckTheFiles(Robot& robot, const std::string& folder) {
  const auto file = ReadFramedFile(folder + "/product.dat", true, 456);
  const auto stores = ReadFramedFile(folder + "/store.lst", false, 64);
  robot.Expect(file && stores, Text("product.dat and store.lst are framed as documented"));
  if (!file || !stores) return;
  const auto& list = HouseholdList();
  robot.Expect(file->records.size() == list.size(), Text("every product is in the file"));
  robot.Expect(file->last_id == list.size(), Text("the last id counts the products"));
  for (std::size_t i = 0; i < std::min(list.size(), file->records.size()); ++i) {
    const std::string& record = file->records[i];
    const QString name = Text(list[i].name);
    robot.Expect(WordAt(record, 8) == i + 1, name + Text(": id"));
    robot.Expect(TextAt(record, 12, 50) == NarrowText(name), name + Text(": name"));
    const auto [kind, every] = ScheduleOf(Text(list[i].type));
    robot.Expect(HalfAt(record, 336) == kind, name + Text(": purchase kind"));
    robot.Expect(HalfAt(record, 338) == every, name + Text(": interval"));
    const int day = kind == 1 ? 0 : Text(list[i].day).toInt();
    robot.Expect(HalfAt(record, 340) == day, name + Text(": day value"));
    robot.Expect(DoubleAt(record, 360) == Text(list[i].price).toDouble(), name + Text(": price"));
    robot.Expect(DoubleAt(record, 368) == Text(list[i].quantity).toDouble(),
                 name + Text(": quantity"));
    robot.Expect(DoubleAt(record, 440) == 8.25, name + Text(": tax"));
    robot.Expect((WordAt(record, 324) != 0) == (*list[i].store != '\0'), name + Text(": store"));
    if (kind == 1) {
      const QDate date = QDate::fromString(Text(list[i].day), Text("M/d/yyyy"));
      const auto seconds = QDate(1970, 1, 1).daysTo(date) * 86400 + 3600;
      robot.Expect(WordAt(record, 344) == seconds, name + Text(": date at 01:00"));
    }
  }
  robot.Expect(!stores->records.empty() && WordAt(stores->records[0], 4) == 5000 &&
                   TextAt(stores->records[0], 8, 50) == "Corner Bakery",
               Text("the first store typed has id 5000"));
  robot.Expect(stores->records.size() == 8, Text("each store is in the list once"));
}

}  // namespace

void TypeTheListIn(Robot& robot, Stage& stage) {
  stage.Run(kFirstSaturday, {360, 640}, [&](MainDialog& main) {
    robot.Picture(main, Text("first_start"));
    SetTheTax(robot, main);
    MeetTheMessages(robot, main);
    bool by_key = false;
    for (const HouseholdProduct& product : HouseholdList()) {
      OpenNewProduct(robot, main, by_key = !by_key, [&](QWidget& dialog) {
        FillIn(robot, dialog, product);
        const QString name = Text(product.name);
        if (name == Text("Sourdough bread")) robot.Picture(dialog, Text("product_daily"));
        if (name == Text("Coffee beans")) robot.Picture(dialog, Text("product_weekly"));
        if (name == Text("Bus pass")) robot.Picture(dialog, Text("product_monthly"));
        if (name == Text("Rye flour")) robot.Picture(dialog, Text("product_one_time"));
        robot.Tap(dialog, Text("OK"));
      });
    }
    robot.Picture(main, Text("day"));
    robot.ChooseFromMenu(main, 1034, Text("Weekly"));
    robot.Picture(main, Text("week"));
    robot.ChooseFromMenu(main, 1034, Text("Monthly"));
    robot.Picture(main, Text("month"));
  });
  CheckTheFiles(robot, stage.folder());
}

}  // namespace brovanta::tour
