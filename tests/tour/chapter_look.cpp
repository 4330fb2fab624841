// The later chapters: other shapes of the screen, and a long list.
#include <QLabel>
#include <QTest>

#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "tests/tour/real_products.h"
#include "ui/base/record_tree.h"

namespace brovanta::tour {
namespace {

using test::DoubleAt;
using test::ReadFramedFile;

void LookAtTheCouponForms(Robot& robot, MainDialog& main, QSize size) {
  robot.TapTab(main, 1);
  robot.SelectRow(main, Text("Dairy days"));
  robot.Picture(main, Text("coupons"));
  robot.During([&] { robot.TapCommand(main, 2772); },
               [&](QWidget& dialog) {
                 dialog.resize(size);
                 robot.Picture(dialog, Text("coupon"));
                 robot.TapTab(dialog, 1);
                 robot.Picture(dialog, Text("coupon_notes"));
                 robot.Tap(dialog, Text("Cancel"));
               });
  robot.TapTab(main, 0);
}

void LookAtTheCouponRow(Robot& robot, MainDialog& main, QSize size) {
  robot.ChooseFromMenu(main, 1034, Text("Monthly"));
  robot.SelectRow(main, Text("Coffee beans"));
  robot.During([&] { robot.TapCommand(main, 2772); },
               [&](QWidget& dialog) {
                 dialog.resize(size);
                 Settle();
                 if (QWidget* slot = robot.Control(dialog, 1001)) slot->setFocus();
                 robot.Picture(dialog, Text("coupon_row"));
                 robot.During([&] { robot.Tap(dialog, 1002); },
                              [&](QWidget& form) {
                                form.resize(size);
                                robot.Picture(form, Text("coupon_of_a_product"));
                                robot.Tap(form, Text("Cancel"));
                              });
                 robot.During([&] { robot.ChooseFromMenu(dialog, 1003, Text("Select Coupon")); },
                              [&](QWidget& picker) {
                                picker.resize(size);
                                Settle();
                                robot.SelectRow(picker, Text("Milk rebate"));
                                robot.Picture(picker, Text("picker"));
                                robot.Tap(picker, Text("Cancel"));
                              });
                 robot.Tap(dialog, Text("Cancel"));
               });
}

void LookAtTheOtherTabs(Robot& robot, MainDialog& main, QSize size) {
  robot.TapTab(main, 2);
  robot.ChooseFromMenu(main, 1034, Text("Weekly"));
  robot.SelectRow(main, Text("Dish soap"));
  robot.Picture(main, Text("purchases"));
  robot.During([&] { robot.TapCommand(main, 2772); },
               [&](QWidget& dialog) {
                 dialog.resize(size);
                 robot.Picture(dialog, Text("purchase"));
                 robot.Tap(dialog, Text("Cancel"));
               });
  robot.TapTab(main, 3);
  robot.Picture(main, Text("web_searches"));
  robot.TapTab(main, 0);
}

void LookAtWhatOpensOverTheList(Robot& robot, MainDialog& main) {
  robot.ChooseFromMenu(main, 1034, Text("Weekly"));
  robot.PictureOfMenu(main, 1002, Text("store_menu"));
  robot.PictureOfTools(main, Text("tools_menu"));
  robot.SelectRow(main, Text("Birthday cake for Chloé"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); },
                      Text("Do you want to permanently delete the selected product?"), Text("No"),
                      Text("question"));
}

// Nobody answers there, so the dialog stays open with its message.
void LookAtAnUpdate(Robot& robot, MainDialog& main, QSize size) {
  for (const char* name : {"http_proxy", "HTTP_PROXY", "all_proxy", "ALL_PROXY"}) qunsetenv(name);
  main.SetUpdateServer("http://127.0.0.1:1");
  robot.During([&] { robot.Tap(main, 1004); },
               [&](QWidget& dialog) {
                 dialog.resize(size);
                 const auto* line = qobject_cast<QLabel*>(robot.Control(dialog, 1052));
                 const QString failed = Text("Failed to download search agents.");
                 robot.Expect(line != nullptr &&
                                  QTest::qWaitFor([&] { return line->text() == failed; }, 30000),
                              Text("the update says that nobody answers"));
                 robot.Picture(dialog, Text("update"));
                 robot.Tap(dialog, Text("OK"));
               });
}

}  // namespace

void LookAround(Robot& robot, Stage& stage, QSize size) {
  stage.Run(kSecondSaturday, size, [&](MainDialog& main) {
    robot.ChooseFromMenu(main, 1034, Text("Weekly"));
    robot.Expect(!robot.Rows(main).contains(Text("Apples Boskoop")) &&
                     robot.Rows(main).contains(Text("Birthday cake for Chloé")),
                 Text("a new start shows what was left"));
    robot.SelectRow(main, Text("Birthday cake for Chloé"));
    robot.Picture(main, Text("week"));
    robot.During([&] { robot.TapCommand(main, 2772); },
                 [&](QWidget& dialog) {
                   dialog.resize(size);
                   robot.Picture(dialog, Text("product"));
                   robot.TapTab(dialog, 1);
                   robot.Picture(dialog, Text("product_notes"));
                   robot.Tap(dialog, Text("Cancel"));
                 });
    robot.During([&] { robot.ChooseTool(main, Text("Options")); },
                 [&](QWidget& dialog) {
                   dialog.resize(size);
                   robot.Picture(dialog, Text("options"));
                   robot.Tap(dialog, Text("Cancel"));
                 });
    robot.During([&] { robot.TapCommand(main, 2785); },
                 [&](QWidget& dialog) {
                   dialog.resize(size);
                   robot.Picture(dialog, Text("find"));
                   robot.Tap(dialog, Text("Cancel"));
                 });
    LookAtTheCouponForms(robot, main, size);
    LookAtTheCouponRow(robot, main, size);
    LookAtTheOtherTabs(robot, main, size);
    LookAtWhatOpensOverTheList(robot, main);
    LookAtAnUpdate(robot, main, size);
    robot.Tap(main, 1003);
    robot.Picture(main, Text("calendar"));
    robot.Key(main, Qt::Key_Escape);
  });
}

void EnterALongList(Robot& robot, Stage& stage, const std::string& csv_path) {
  const std::vector<RealProduct> products = ReadRealProducts(csv_path);
  if (products.empty()) return;
  robot.Expect(products.size() >= 500, Text("the file has its 500 products"));
  {
    ShoppingDatabase database;
    robot.Expect(database.Open(stage.folder()) == 0, Text("the folder opens"));
    const int added = EnterRealProducts(database, products, 1793494800);  // 2026-11-01 01:00
    robot.Expect(added == static_cast<int>(products.size()), Text("every real product is added"));
  }
  const auto file = ReadFramedFile(stage.folder() + "/product.dat", true, 456);
  robot.Expect(file && file->records.size() == products.size() && file->last_id == products.size(),
               Text("every real product is in the file"));
  if (file) {
    for (std::size_t i = 0; i < file->records.size(); ++i) {
      robot.Expect(DoubleAt(file->records[i], 360) == std::stod(products[i].unit_price),
                   QString::fromStdString(products[i].name) + Text(": price"));
    }
  }
  stage.Run(kSecondSaturday, {360, 640}, [&](MainDialog& main) {
    robot.ChooseFromMenu(main, 1034, Text("Monthly"));
    robot.Expect(robot.Rows(main).size() == static_cast<qsizetype>(products.size()),
                 Text("a month shows the whole list"));
    robot.Picture(main, Text("long_list"));
  });
}

}  // namespace brovanta::tour
