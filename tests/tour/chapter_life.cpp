// Chapter two: a week later, the list in use.
#include <QLineEdit>
#include <QTabBar>

#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "ui/base/record_tree.h"

namespace brovanta::tour {
namespace {

using test::DoubleAt;
using test::ReadFramedFile;
using test::TextAt;
using test::WordAt;

constexpr const char* kSeries =
    "The selected product was setup as a recurring purchase.\nDo you want to permanently delete "
    "all instances in the recurring series for this product??";

void Narrow(Robot& robot, MainDialog& main) {
  const qsizetype all = robot.Rows(main).size();
  robot.ChooseFromMenu(main, 1002, Text("Fresh & Co"));
  robot.Expect(robot.Rows(main).size() < all && robot.Rows(main).contains(Text("Müsli, 750 g")),
               Text("one store's products are shown"));
  robot.Picture(main, Text("store_filter"));
  robot.ChooseFromMenu(main, 1001, Text("Breakfast"));
  robot.Expect(robot.Rows(main) == QStringList{Text("Müsli, 750 g")},
               Text("store and category narrow together"));
  robot.ChooseFromMenu(main, 1002, Text("All Stores"));
  robot.ChooseFromMenu(main, 1001, Text("All Categories"));
  robot.Expect(robot.Rows(main).size() == all, Text("all products are back"));

  robot.During([&] { robot.Key(main, Qt::Key_F, Qt::ControlModifier); },
               [&](QWidget& dialog) {
                 robot.Type(*robot.Control(dialog, Text("findTextBox")), Text("beans COFFEE"));
                 robot.Picture(dialog, Text("find"));
                 robot.Tap(dialog, Text("Find"));
               });
  robot.Expect(robot.Rows(main) == QStringList{Text("Coffee beans")}, Text("find narrows"));
  robot.Picture(main, Text("found"));
  robot.During([&] { robot.TapCommand(main, 2785); },
               [&](QWidget& dialog) { robot.Tap(dialog, Text("Clear")); });
  robot.Expect(robot.Rows(main).size() == all, Text("cleared"));
}

void Buy(Robot& robot, MainDialog& main) {
  for (const char* name : {"Coffee beans", "Whole milk, 1 l", "Dish soap"}) {
    robot.SelectRow(main, Text(name));
    robot.AnswerMessage([&] { robot.TapCommand(main, 2789); },
                        Text("Do you want to mark the selected product as purchased?"),
                        Text("Yes"));
  }
  robot.Expect(!robot.Rows(main).contains(Text("Dish soap")), Text("bought once, gone"));
  robot.SelectRow(main, Text("Batteries AA"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2789); },
                      Text("Do you want to mark the selected product as purchased?"), Text("No"));
  robot.Expect(robot.Rows(main).contains(Text("Batteries AA")), Text("No leaves it"));
}

void EditAndDelete(Robot& robot, MainDialog& main) {
  robot.SelectRow(main, Text("Birthday cake for Zoë"));
  robot.During([&] { robot.TapCommand(main, 2772); },
               [&](QWidget& dialog) {
                 auto* quantity = qobject_cast<QLineEdit*>(robot.Field(dialog, Text("Quantity:")));
                 robot.Expect(quantity != nullptr && quantity->text() == Text("0"),
                              Text("a stored whole quantity shows as 0"));
                 robot.Type(*robot.Field(dialog, Text("Product:")),
                            Text("Birthday cake for Chloé"));
                 robot.Type(*robot.Field(dialog, Text("Quantity:")), Text("2"));
                 robot.Picture(dialog, Text("product_edit"));
                 robot.Tap(dialog, Text("OK"));
               });
  robot.Expect(robot.Rows(main).contains(Text("Birthday cake for Chloé")), Text("renamed"));

  robot.SelectRow(main, Text("Crème fraîche"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); }, Text(kSeries), Text("Cancel"),
                      Text("series"));
  robot.SelectRow(main, Text("Crème fraîche"));
  robot.AnswerMessage([&] { robot.Key(main, Qt::Key_Delete); }, Text(kSeries), Text("No"));
  robot.SelectRow(main, Text("Apples Boskoop"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); }, Text(kSeries), Text("Yes"));
  robot.Expect(!robot.Rows(main).contains(Text("Apples Boskoop")), Text("the series is gone"));
  robot.SelectRow(main, Text("Smørrebrød"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); },
                      Text("Do you want to permanently delete the selected product?"), Text("Yes"));
  robot.Expect(!robot.Rows(main).contains(Text("Smørrebrød")), Text("deleted"));
}

void VisitTheTabs(Robot& robot, MainDialog& main) {
  robot.TapTab(main, 1);
  robot.Picture(main, Text("coupons"));
  robot.TapTab(main, 2);
  robot.Expect(robot.Rows(main).size() == 3, Text("three purchases were recorded"));
  robot.Picture(main, Text("purchases"));
  robot.SelectRow(main, Text("Dish soap"));
  robot.During([&] { robot.Key(main, Qt::Key_F2); },
               [&](QWidget& dialog) {
                 robot.Picture(dialog, Text("purchase_edit"));
                 robot.Tap(dialog, Text("Cancel"));
               });
  robot.SelectRow(main, Text("Whole milk, 1 l"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); },
                      Text("Do you want to permanently delete the selected purchase?"),
                      Text("Yes"));
  robot.Expect(robot.Rows(main).size() == 2, Text("two purchases are left"));
  robot.TapTab(main, 3);
  robot.Picture(main, Text("web_searches"));
  robot.TapTab(main, 0);
}

void UseTheCalendar(Robot& robot, MainDialog& main) {
  robot.Tap(main, 1003);
  robot.Picture(main, Text("calendar"));
  robot.Key(main, Qt::Key_Escape);
  robot.ChooseFromMenu(main, 1034, Text("Daily"));
  robot.PickDate(main, QDate(2026, 11, 25));
  robot.Expect(robot.Rows(main).contains(Text("Winter tyres")), Text("the day's products"));
  robot.Picture(main, Text("another_day"));
}

void CheckTheFiles(Robot& robot, const std::string& folder) {
  const auto products = ReadFramedFile(folder + "/product.dat", true, 456);
  const auto purchases = ReadFramedFile(folder + "/purchase.dat", true, 456);
  robot.Expect(products && purchases, Text("both files are framed as documented"));
  if (!products || !purchases) return;
  robot.Expect(products->records.size() == 27, Text("deleted products stay in the file"));
  int deleted = 0;
  for (const std::string& record : products->records) deleted += record[448];
  robot.Expect(deleted == 2, Text("two products carry the deleted mark"));
  if (products->records.size() != 27) return;
  // By their places in the household's list.
  const std::string& cake = products->records[22];
  robot.Expect(TextAt(cake, 12, 50) == "Birthday cake for Chlo\xE9" && WordAt(cake, 8) == 23,
               Text("the edited product keeps its place and id"));
  robot.Expect(DoubleAt(cake, 368) == 2.0, Text("and has its new quantity"));
  const std::string& cream = products->records[6];
  robot.Expect(TextAt(cream, 12, 50) ==
                       "Cr\xE8me fra\xEE"
                       "che" &&
                   cream[448] == 0 && WordAt(cream, 348) == kSecondSaturday - 34200,
               Text("a passed over product has the day as its last purchase, at 01:00"));
  robot.Expect(purchases->records.size() == 3 && purchases->last_id == 3,
               Text("three purchases are in the file"));
  robot.Expect(TextAt(purchases->records[0], 12, 50) == "Coffee beans", Text("in their order"));
  robot.Expect(WordAt(purchases->records[0], 344) == kSecondSaturday,
               Text("bought at the moment of the tap"));
  robot.Expect(DoubleAt(purchases->records[0], 368) == 1.0, Text("with its quantity"));
}

}  // namespace

void LiveWithTheList(Robot& robot, Stage& stage) {
  stage.Run(kSecondSaturday, {360, 640}, [&](MainDialog& main) {
    robot.ChooseFromMenu(main, 1034, Text("Weekly"));
    robot.Expect(robot.Rows(main).contains(Text("Batteries AA")), Text("the list is back"));
    robot.Picture(main, Text("week"));
    robot.SelectRow(main, Text("Whole milk, 1 l"));
    robot.Picture(main, Text("week_overdue"));
    robot.PictureOfTools(main, Text("tools_menu"));
    Narrow(robot, main);
    Buy(robot, main);
    EditAndDelete(robot, main);
    VisitTheTabs(robot, main);
    UseTheCalendar(robot, main);
  });
  CheckTheFiles(robot, stage.folder());
}

}  // namespace brovanta::tour
