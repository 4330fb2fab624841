#include "ui/shell/main_commands.h"

#include <gmock/gmock.h>

#include <QLineEdit>

#include "platform/file.h"
#include "tests/ui/shell/main_screen.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kYesNo = QMessageBox::Yes | QMessageBox::No;
constexpr auto kYesNoCancel = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;

class MainCommandsTest : public MainScreenTest {
 protected:
  DateStamp LastPurchased(const std::string& name) {
    ProductList& list = Stored().products();
    ProductFilter filter;
    filter.to = std::numeric_limits<DateStamp>::max();
    EXPECT_EQ(list.Load(&filter), 0);
    for (const auto* record = list.First(); record != nullptr; record = list.Next()) {
      if (record->Name.view() == name) return record->LastPurchased;
    }
    return -1;
  }
};

TEST_F(MainCommandsTest, DeletingAOneTimeProductAsksAndRemovesIt) {
  AddProduct("Milk", kToday, "Corner");
  AddProduct("Bread", kToday);
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  Select("Milk");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_EQ(box->text, "Do you want to permanently delete the selected product?");
  EXPECT_EQ(box->icon, QMessageBox::Question);
  EXPECT_EQ(box->buttons, kYesNo);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Bread"));
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Bread"));
}

TEST_F(MainCommandsTest, ProductWithoutAScheduleIsAskedAboutAsAOneTimeProduct) {
  AddRecurring("Someday", 0, kUnscheduled, 0, 0);
  Open();
  Select("Someday");
  const auto box = AnswerNext(QMessageBox::Yes);
  ToolsMenu("Delete");
  EXPECT_EQ(box->text, "Do you want to permanently delete the selected product?");
  EXPECT_THAT(StoredNames(kProductKind), IsEmpty());
}

TEST_F(MainCommandsTest, DeletingAnsweredWithNoChangesNothing) {
  AddProduct("Milk", kToday, "Corner");
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  const Bytes before = *folder_.Read("product.dat");
  Select("Milk");
  AnswerNext(QMessageBox::No);
  Tool(kToolDelete);
  EXPECT_EQ(*folder_.Read("product.dat"), before);
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainCommandsTest, DeletingARecurringProductAsksForTheSeries) {
  AddRecurring("Milk", kToday, kDaily, 0, 1);
  Open();
  Select("Milk");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_EQ(box->text,
            "The selected product was setup as a recurring purchase.\n"
            "Do you want to permanently delete all instances in the recurring series for this "
            "product??");
  EXPECT_EQ(box->icon, QMessageBox::Question);
  EXPECT_EQ(box->buttons, kYesNoCancel);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_THAT(StoredNames(kProductKind), IsEmpty());
}

TEST_F(MainCommandsTest, EveryRecurringKindIsAskedAboutItsSeries) {
  AddRecurring("Daily", kToday, kDaily, 0, 1);
  AddRecurring("Weekly", kToday, kWeekly, 1, 6);
  AddRecurring("Monthly", kToday, kMonthly, 1, 21);
  Open();
  for (const char* name : {"Daily", "Weekly", "Monthly"}) {
    Select(name);
    const auto box = AnswerNext(QMessageBox::Cancel);
    Tool(kToolDelete);
    EXPECT_EQ(box->buttons, kYesNoCancel) << name;
  }
}

TEST_F(MainCommandsTest, RecurringDeleteAnsweredWithNoRemovesOnlyTheSelectedInstance) {
  AddRecurring("Milk", kToday, kDaily, 0, 1);
  Open();
  ChooseView(kMonthlyView);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
  Select("Milk");
  AnswerNext(QMessageBox::No);
  Tool(kToolDelete);
  EXPECT_THAT(Rows(), ElementsAre("[Sunday 11/22/2026]", "Milk"));
  EXPECT_EQ(LastPurchased("Milk"), kToday);
  EXPECT_FALSE(folder_.Read("purchase.dat").has_value());
}

TEST_F(MainCommandsTest, AnInstanceOfALaterDayStaysWhenItIsPassedOver) {
  AddRecurring("Milk", kToday + 4 * kOneDay, kWeekly, 1, 3);  // a Wednesday
  Open();
  ChooseView(kMonthlyView);
  const std::vector<std::string> before = Rows();
  EXPECT_THAT(before, ElementsAre("[Wednesday 11/25/2026]", "Milk"));
  Select("Milk");
  AnswerNext(QMessageBox::No);
  Tool(kToolDelete);
  EXPECT_EQ(Rows(), before) << "today is noted as the last purchase, and the next day is after it";
  EXPECT_EQ(LastPurchased("Milk"), kToday);
}

TEST_F(MainCommandsTest, RecurringDeleteAnsweredWithCancelChangesNothing) {
  AddRecurring("Milk", kToday, kDaily, 0, 1);
  Open();
  const Bytes before = *folder_.Read("product.dat");
  Select("Milk");
  AnswerNext(QMessageBox::Cancel);
  Tool(kToolDelete);
  EXPECT_EQ(*folder_.Read("product.dat"), before);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk"));
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainCommandsTest, DeletingACouponMarksTheOneWithItsSource) {
  AddCoupon("First", 0, 0, "", "", 1);
  AddCoupon("Second", 0, 0, "", "", 2);
  Open();
  ChooseTab(1);
  Select("Second");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_EQ(box->text, "Do you want to permanently delete the selected coupon?");
  EXPECT_EQ(box->buttons, kYesNo);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "First"));
  EXPECT_THAT(StoredCoupons(), ElementsAre("First"));
}

TEST_F(MainCommandsTest, DeletingAPurchaseLeavesTheProductOfTheSameIdAlone) {
  EXPECT_EQ(AddProduct("Milk", kToday), AddPurchase("Eggs", static_cast<DateStamp>(kNow)));
  Open();
  ChooseTab(2);
  Select("Eggs");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_EQ(box->text, "Do you want to permanently delete the selected purchase?");
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_THAT(StoredNames(kPurchaseKind), IsEmpty());
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk"));
}

TEST_F(MainCommandsTest, PurchaseOfARecurringProductIsNoMatterOfItsSeries) {
  AddProduct("Milk", kToday);
  AddPurchase("Daily eggs", static_cast<DateStamp>(kNow));
  Open();
  ChooseTab(2);
  Select("Daily eggs");
  const auto box = AnswerNext(QMessageBox::No);
  Tool(kToolDelete);
  EXPECT_EQ(box->buttons, kYesNo);
  EXPECT_THAT(StoredNames(kPurchaseKind), ElementsAre("Daily eggs"));
}

TEST_F(MainCommandsTest, PurchaseMarksTheProductAndAppendsAPurchase) {
  AddProduct("Milk", kToday, "Corner");
  AddRecurring("Coffee", kToday, kWeekly, 1, 6);
  Open();
  Select("Milk");
  const auto box = AnswerNext(QMessageBox::Yes);
  Tool(kToolPurchase);
  EXPECT_EQ(box->text, "Do you want to mark the selected product as purchased?");
  EXPECT_EQ(box->icon, QMessageBox::Question);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Coffee"));
  Select("Coffee");
  AnswerNext(QMessageBox::Yes);
  ToolsMenu("Purchase");
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_THAT(StoredNames(kPurchaseKind), ElementsAre("Milk", "Coffee"));
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Coffee"));
  EXPECT_EQ(LastPurchased("Coffee"), kToday);
  ChooseTab(2);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Milk@Corner", "Coffee"));
}

TEST_F(MainCommandsTest, PurchaseAnsweredWithNoChangesNothing) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  AnswerNext(QMessageBox::No);
  Tool(kToolPurchase);
  EXPECT_EQ(Rows().size(), 2U);
  EXPECT_FALSE(folder_.Read("purchase.dat").has_value());
}

TEST_F(MainCommandsTest, RecordThatIsGoneFromItsFileIsNotReported) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  folder_.Write("product.dat", Hex("81 38 01 00 01 00 00 00 83 38 01 00"));
  AnswerNext(QMessageBox::Yes);
  Tool(kToolDelete);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(MainCommandsTest, KeysRunTheCommands) {
  AddProduct("Milk", kToday);
  Open();
  Select("Milk");
  const auto purchase = AnswerNext(QMessageBox::No);
  Press(Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(purchase->text, "Do you want to mark the selected product as purchased?");
  const auto deletion = AnswerNext(QMessageBox::Yes);
  Press(Qt::Key_Delete);
  EXPECT_EQ(deletion->text, "Do you want to permanently delete the selected product?");
  EXPECT_THAT(StoredNames(kProductKind), IsEmpty());
}

TEST_F(MainCommandsTest, EnterOnAToolRunsItsCommandOnce) {
  Open();
  auto* tool = dialog_->findChild<QToolButton*>(QStringLiteral("tool%1").arg(kToolFind));
  ASSERT_NE(tool, nullptr);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    tool->setFocus(Qt::TabFocusReason);
    const auto opened = WatchForDialog();
    Press(key);
    EXPECT_TRUE(*opened);
  }
}

TEST_F(MainCommandsTest, DeleteWithoutASelectedRecordAsksNothing) {
  AddProduct("Milk", kToday);
  Open();
  const auto box = AnswerNext(QMessageBox::Yes);
  Press(Qt::Key_Delete);
  SelectHeading(0);
  Press(Qt::Key_Delete);
  Press(Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(box->text, "");
  EXPECT_THAT(StoredNames(kProductKind), ElementsAre("Milk"));
}

TEST_F(MainCommandsTest, OptionsRebuildNothing) {
  AddProduct("Milk", kToday, "Corner");
  Open();
  ChooseFilter("storeFilterButton", "Corner");
  Select("Milk");
  InNextDialog([](QWidget& dialog) {
    Type(dialog, "taxEdit", "8.25");
    Click(dialog, "okButton");
  });
  ToolsMenu("Options");
  EXPECT_DOUBLE_EQ(options_.tax(), 8.25);
  EXPECT_TRUE(tree().CaretInfo());
  EXPECT_EQ(Text("storeFilterButton"), "Corner");
}

TEST_F(MainCommandsTest, TheOptionsOpenByTheirKey) {
  Open();
  InNextDialog([](QWidget& dialog) {
    Type(dialog, "taxEdit", "7.5");
    Click(dialog, "okButton");
  });
  Press(Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(options_.tax(), 7.5);
}

}  // namespace
}  // namespace brovanta::test
