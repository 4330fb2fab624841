// Chapter three: coupons made, edited, picked, found, cleared and missed.
#include <QAbstractButton>
#include <QCheckBox>
#include <QDateEdit>
#include <QLineEdit>
#include <array>

#include "db/records.h"
#include "tests/support/framed_file.h"
#include "tests/tour/chapters.h"
#include "ui/base/optional_date_edit.h"
#include "ui/base/record_tree.h"

namespace brovanta::tour {
namespace {

using test::DoubleAt;
using test::HalfAt;
using test::ReadFramedFile;
using test::TextAt;
using test::WordAt;

constexpr std::array kSlots{1001, 1002, 1003, 1004, 1055};
constexpr int kSearch = 1056;

/// A coupon as its fields are filled in. Texts that are empty are left alone.
struct Coupon {
  const char* name;
  const char* type;
  const char* product;
  const char* value_type;
  const char* value;
  const char* category;
  const char* store;
  QDate end = {};
};

void FillIn(Robot& robot, QWidget& dialog, const Coupon& coupon) {
  robot.Type(*robot.Field(dialog, Text("Coupon:")), Text(coupon.name));
  robot.Choose(*robot.Field(dialog, Text("Type:")), Text(coupon.type));
  robot.Type(*robot.Field(dialog, Text("Product:")), Text(coupon.product));
  robot.Choose(*robot.Field(dialog, Text("Value Type:")), Text(coupon.value_type));
  robot.Type(*robot.Field(dialog, Text("Value:")), Text(coupon.value));
  robot.Type(*robot.Field(dialog, Text("Category:")), Text(coupon.category));
  robot.Type(*robot.Field(dialog, Text("Store:")), Text(coupon.store));
  if (!coupon.end.isValid()) return;
  auto* end = qobject_cast<OptionalDateEdit*>(robot.Control(dialog, 1027));
  robot.Expect(end != nullptr, Text("the end date may be empty"));
  if (end == nullptr) return;
  robot.Tap(end->check_box());
  robot.TypeDate(end->date_edit(), coupon.end);
}

// The percentage coupon, by way of each message that a hasty person meets.
void MakeOnePercentage(Robot& robot, MainDialog& main) {
  const auto refused = [&](QWidget& dialog, const char* message) {
    robot.AnswerMessage([&] { robot.Tap(dialog, Text("OK")); }, Text(message), Text("OK"));
  };
  robot.During([&] { robot.Key(main, Qt::Key_Insert); },
               [&](QWidget& dialog) {
                 robot.Picture(dialog, Text("coupon_new"));
                 refused(dialog, "You must select a value type for this discount.");
                 robot.Choose(*robot.Field(dialog, Text("Value Type:")), Text("Percent (%)"));
                 refused(dialog, "You must select a discount type for this discount.");
                 robot.Choose(*robot.Field(dialog, Text("Type:")), Text("Internet Code"));
                 refused(dialog, "The discount name can not be empty.");
                 FillIn(robot, dialog,
                        {"Dairy days", "Internet Code", "Whole milk, 1 l", "Percent (%)", "20",
                         "Dairy", "Fresh & Co", QDate(2026, 11, 30)});
                 robot.Picture(dialog, Text("coupon_percent"));
                 robot.TapTab(dialog, 1);
                 robot.Type(*robot.Control(dialog, 1016), Text("Code MILCH20\nOnce per household"));
                 robot.Picture(dialog, Text("coupon_notes"));
                 robot.Tap(dialog, Text("OK"));
               });
}

void Make(Robot& robot, MainDialog& main, const Coupon& coupon) {
  robot.During([&] { robot.TapCommand(main, 2771); },
               [&](QWidget& dialog) {
                 FillIn(robot, dialog, coupon);
                 robot.Tap(dialog, Text("OK"));
               });
}

void KeepCouponsOnTheirTab(Robot& robot, MainDialog& main) {
  robot.TapTab(main, 1);
  robot.Expect(robot.Rows(main).isEmpty(), Text("no coupons yet"));
  MakeOnePercentage(robot, main);
  Make(robot, main,
       {"Café crème", "Store Coupon", "Coffee beans", "Amount ($)", "1.5", "", "Röstwerk"});
  Make(robot, main,
       {"Milk rebate", "Mail In Rebate", "Whole milk, 1 l", "Amount ($)", "0.50", "", ""});
  robot.Expect(
      robot.Rows(main) == QStringList{Text("Dairy days"), Text("Café crème"), Text("Milk rebate")},
      Text("today's coupons in the order of their making"));
  robot.SelectRow(main, Text("Café crème"));
  robot.During([&] { robot.Key(main, Qt::Key_F2); },
               [&](QWidget& dialog) {
                 auto* value = qobject_cast<QLineEdit*>(robot.Field(dialog, Text("Value:")));
                 robot.Expect(value != nullptr && value->text() == Text("1.50"),
                              Text("an amount has two decimals"));
                 if (value != nullptr) robot.Type(*value, Text("2.25"));
                 robot.Tap(dialog, Text("OK"));
               });
  robot.SelectRow(main, Text("Dairy days"));
  robot.Picture(main, Text("coupons"));
  robot.ChooseFromMenu(main, 1002, Text("Röstwerk"));
  robot.Expect(robot.Rows(main).contains(Text("Milk rebate")) &&
                   !robot.Rows(main).contains(Text("Dairy days")),
               Text("a coupon without a store is for every store"));
  robot.ChooseFromMenu(main, 1002, Text("All Stores"));
}

void EditProduct(Robot& robot, MainDialog& main, const char* product,
                 const std::function<void(QWidget&)>& act) {
  robot.SelectRow(main, Text(product));
  robot.During([&] { robot.TapCommand(main, 2772); }, act);
}

QString SlotWords(Robot& robot, QWidget& dialog, std::size_t slot) {
  const QWidget* button = robot.Control(dialog, kSlots[slot]);
  return button != nullptr ? button->accessibleName() : QString();
}

void ExpectSlot(Robot& robot, QWidget& dialog, std::size_t slot, const char* words) {
  const QString said = SlotWords(robot, dialog, slot);
  robot.Expect(said == Text(words), Text("the slot says: ") + said);
}

void PickOneCoupon(Robot& robot, QWidget& picker) {
  robot.AnswerMessage(
      [&] { robot.Tap(picker, Text("Select")); },
      Text("You must first select a coupon from the list to apply to the current product."),
      Text("OK"));
  robot.During([&] { robot.TapCommand(picker, 2794); },
               [&](QWidget& dialog) {
                 robot.Type(*robot.Control(dialog, Text("findTextBox")), Text("CRÈME"));
                 robot.Tap(dialog, Text("Find"));
               });
  robot.Expect(robot.Rows(picker) == QStringList{Text("Café crème")}, Text("find in the picker"));
  robot.SelectRow(picker, Text("Café crème"));
  robot.Picture(picker, Text("picker"));
  robot.Tap(picker, Text("Select"));
}

void LinkByHand(Robot& robot, MainDialog& main) {
  EditProduct(robot, main, "Coffee beans", [&](QWidget& dialog) {
    ExpectSlot(robot, dialog, 0, "Coupon 1: empty");
    robot.PictureOfMenu(dialog, kSlots[0], Text("slot_menu"));
    robot.During([&] { robot.ChooseFromMenu(dialog, kSlots[0], Text("Select Coupon")); },
                 [&](QWidget& picker) { PickOneCoupon(robot, picker); });
    ExpectSlot(robot, dialog, 0, "Coupon 1: Café crème, 2.25 off, chosen by you");
    robot.During([&] { robot.ChooseFromMenu(dialog, kSlots[1], Text("Add New Coupon")); },
                 [&](QWidget& form) {
                   FillIn(robot, form,
                          {"Grinder rebate", "Mail In Rebate", "", "Percent (%)", "10", "", ""});
                   robot.Tap(form, Text("OK"));
                 });
    ExpectSlot(robot, dialog, 1, "Coupon 2: Grinder rebate, 10% off, chosen by you");
    robot.Picture(dialog, Text("linked"));
    robot.Tap(dialog, Text("OK"));
  });
}

// What the search found is accepted in one slot and refused in the other.
void LetTheSearchFill(Robot& robot, MainDialog& main) {
  EditProduct(robot, main, "Whole milk, 1 l", [&](QWidget& dialog) {
    robot.AnswerMessage([&] { robot.Tap(dialog, kSearch); },
                        Text("Brovanta found 2 discounts for the current product.\n\nPlease review "
                             "and validate each discount applied."),
                        Text("OK"));
    ExpectSlot(robot, dialog, 0,
               "Coupon 1: Dairy days, 20% off, until 11/30/2026, found by the search");
    ExpectSlot(robot, dialog, 1, "Coupon 2: Milk rebate, 0.50 off, found by the search");
    ExpectSlot(robot, dialog, 2, "Coupon 3: empty");
    robot.Picture(dialog, Text("found"));
    robot.During([&] { robot.Tap(dialog, kSlots[0]); },
                 [&](QWidget& form) {
                   auto* apply = qobject_cast<QCheckBox*>(robot.Control(form, 1058));
                   robot.Expect(apply != nullptr && !apply->isChecked(),
                                Text("a found coupon is not applied yet"));
                   if (apply != nullptr) robot.Tap(*apply);
                   robot.Picture(form, Text("apply"));
                   robot.Tap(form, Text("OK"));
                 });
    ExpectSlot(robot, dialog, 0, "Coupon 1: Dairy days, 20% off, until 11/30/2026, chosen by you");
    robot.During([&] { robot.Tap(dialog, kSlots[1]); },
                 [&](QWidget& form) { robot.Tap(form, Text("OK")); });
    ExpectSlot(robot, dialog, 1, "Coupon 2: empty");
    robot.Tap(dialog, Text("OK"));
  });
}

void DeleteALinkedCoupon(Robot& robot, MainDialog& main) {
  robot.TapTab(main, 1);
  robot.SelectRow(main, Text("Café crème"));
  robot.AnswerMessage([&] { robot.TapCommand(main, 2773); },
                      Text("Do you want to permanently delete the selected coupon?"), Text("Yes"));
  robot.Expect(!robot.Rows(main).contains(Text("Café crème")), Text("the coupon is gone"));
  robot.TapTab(main, 0);
  EditProduct(robot, main, "Coffee beans", [&](QWidget& dialog) {
    ExpectSlot(robot, dialog, 0, "Coupon 1: no longer in the database");
    robot.AnswerMessage([&] { robot.Tap(dialog, kSlots[0]); },
                        Text("The selected coupon was not found in the database."), Text("OK"));
    robot.Tap(dialog, Text("OK"));
  });
}

/// A slot as it stands in a product's record.
AppliedDiscount SlotOf(const std::string& product, std::size_t slot) {
  const std::size_t at = 376 + 12 * slot;
  return {WordAt(product, at + 4), static_cast<std::int16_t>(HalfAt(product, at + 8)),
          static_cast<std::int16_t>(HalfAt(product, at + 10))};
}

void CheckTheCoupons(Robot& robot, const std::string& folder) {
  const auto coupons = ReadFramedFile(folder + "/discount.dat", true, 400);
  robot.Expect(coupons && coupons->records.size() == 4, Text("four coupons are in the file"));
  if (!coupons || coupons->records.size() != 4) return;
  const std::string& dairy = coupons->records[0];
  robot.Expect(TextAt(dairy, 12, 50) == "Dairy days" &&
                   TextAt(dairy, 62, 50) == "Whole milk, 1 l" &&
                   TextAt(dairy, 112, 250) == "Code MILCH20\r\nOnce per household",
               Text("the texts of the first"));
  robot.Expect(HalfAt(dairy, 364) == 1 && HalfAt(dairy, 366) == 1 && DoubleAt(dairy, 368) == 20.0,
               Text("an internet code of 20 percent"));
  robot.Expect(WordAt(dairy, 380) == 0 && WordAt(dairy, 384) == 1796000400,
               Text("no start, until the 30th at 01:00"));
  const std::string& coffee = coupons->records[1];
  robot.Expect(TextAt(coffee, 12, 50) == "Caf\xE9 cr\xE8me" && HalfAt(coffee, 366) == 2 &&
                   DoubleAt(coffee, 368) == 2.25 && coffee[397] == 1,
               Text("the second was edited and is deleted, but in its place"));
}

void CheckTheLinks(Robot& robot, const std::string& folder) {
  const auto products = ReadFramedFile(folder + "/product.dat", true, 456);
  robot.Expect(products.has_value(), Text("the products are framed as documented"));
  if (!products) return;
  for (const std::string& product : products->records) {
    const std::string name = TextAt(product, 12, 50);
    if (name == "Coffee beans") {
      robot.Expect(SlotOf(product, 0) == AppliedDiscount{3, 0, 2} &&
                       SlotOf(product, 1) == AppliedDiscount{5, 0, 3},
                   Text("picked and made; the deleted one stays linked"));
    } else if (name == "Whole milk, 1 l") {
      robot.Expect(
          SlotOf(product, 0) == AppliedDiscount{2, 0, 1} && SlotOf(product, 1) == AppliedDiscount(),
          Text("one accepted, one cleared"));
    }
  }
}

}  // namespace

void UseCoupons(Robot& robot, Stage& stage) {
  stage.Run(kSecondSaturday, {360, 640}, [&](MainDialog& main) {
    KeepCouponsOnTheirTab(robot, main);
    robot.TapTab(main, 0);
    robot.ChooseFromMenu(main, 1034, Text("Monthly"));
    LinkByHand(robot, main);
    LetTheSearchFill(robot, main);
    DeleteALinkedCoupon(robot, main);
  });
  CheckTheCoupons(robot, stage.folder());
  CheckTheLinks(robot, stage.folder());
}

}  // namespace brovanta::tour
