// Opening the product dialog, its looks, its schedule controls.
#include "ui/product/product_dialog.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/ui/product/product_form.h"
#include "ui/base/input_panel.h"

namespace brovanta {
namespace {

using test::kToday;

class ProductDialogTest : public test::ProductFormTest {
 protected:
  std::string Schedule() {
    std::string shown;
    auto* label = Find<QLabel>("scheduleLabel");
    if (label->isVisible()) shown += label->text().toStdString();
    if (Find("purchaseDateEdit")->isVisible()) shown += " date";
    if (Find("dayBox")->isVisible()) shown += " day";
    return shown;
  }

  ProductFields Weekly() {
    ProductFields fields;
    fields.name = "M\xFCsli";
    fields.notes = "soft\r\nbox";
    fields.store = NameRef{0, "Fresh"};
    fields.category = NameRef{0, "Breakfast"};
    fields.unit = NameRef{0, "pack"};
    fields.unit_price = 3.5;
    fields.quantity = 3.0;
    fields.tax_percent = 7.0;
    fields.purchase_kind = 3;
    fields.every = 2;
    fields.day_value = 5;
    fields.start_date = kToday;
    return fields;
  }
};

TEST_F(ProductDialogTest, AddingShowsTheTaxWithTwoDecimalsAndNothingElse) {
  Add([&] {
    EXPECT_EQ(Line("taxEdit")->text(), QStringLiteral("8.25"));
    EXPECT_EQ(Line("productNameEdit")->text(), QString());
    EXPECT_EQ(Line("quantityEdit")->text(), QString());
    EXPECT_EQ(Line("unitPriceEdit")->text(), QString());
    EXPECT_EQ(Combo("purchaseTypeBox")->currentIndex(), -1);
    EXPECT_EQ(Combo("storeBox")->currentText(), QString());
    EXPECT_EQ(Schedule(), "");
  });
  tax_ = 7.0;
  Add([&] { EXPECT_EQ(Line("taxEdit")->text(), QStringLiteral("7.00")); });
}

TEST_F(ProductDialogTest, EditingShowsTheRecord) {
  const ProductRecord record = Stored(kProductKind, Weekly());
  Run(&record, kProductMode, [&] {
    EXPECT_EQ(Line("productNameEdit")->text(), QStringLiteral("Müsli"));
    EXPECT_EQ(Line("productNameEdit")->cursorPosition(), 0) << "of a long one the beginning";
    EXPECT_EQ(Find<QPlainTextEdit>("notesEdit")->toPlainText(), QStringLiteral("soft\nbox"));
    EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Fresh"));
    EXPECT_EQ(Combo("categoryBox")->currentText(), QStringLiteral("Breakfast"));
    EXPECT_EQ(Combo("unitTypeBox")->currentText(), QStringLiteral("pack"));
    EXPECT_EQ(Line("unitPriceEdit")->text(), QStringLiteral("3.50"));
    EXPECT_EQ(Line("taxEdit")->text(), QStringLiteral("7.00"));
    EXPECT_EQ(Line("quantityEdit")->text(), QStringLiteral("0"));
    EXPECT_EQ(Combo("purchaseTypeBox")->currentText(), QStringLiteral("Every 2 Weeks"));
    EXPECT_EQ(Schedule(), "Day of Week: day");
    EXPECT_EQ(Combo("dayBox")->currentText(), QStringLiteral("5"));
  });
}

TEST_F(ProductDialogTest, AOneTimeProductShowsItsDate) {
  ProductFields fields = Weekly();
  fields.purchase_kind = 1;
  fields.every = 0;
  fields.day_value = 0;
  fields.start_date = kToday + 9 * 86400;
  const ProductRecord record = Stored(kProductKind, fields);
  Run(&record, kProductMode, [&] {
    EXPECT_EQ(Combo("purchaseTypeBox")->currentText(), QStringLiteral("One Time"));
    EXPECT_EQ(Schedule(), "Purchase Date: date");
    EXPECT_EQ(Find<QDateEdit>("purchaseDateEdit")->date(), QDate(2026, 11, 30));
  });
}

TEST_F(ProductDialogTest, ZerosLeaveTheirFieldsEmpty) {
  ProductFields fields = Weekly();
  fields.unit_price = fields.quantity = fields.tax_percent = 0.0;
  const ProductRecord record = Stored(kProductKind, fields);
  Run(&record, kProductMode, [&] {
    EXPECT_EQ(Line("taxEdit")->text(), QString());  // the options' tax is for new products
    EXPECT_EQ(Line("quantityEdit")->text(), QString());
    EXPECT_EQ(Line("unitPriceEdit")->text(), QString());
  });
}

TEST_F(ProductDialogTest, EachPurchaseTypeShowsItsScheduleControls) {
  Add([&] {
    const struct {
      const char* type;
      const char* shown;
      int choices;
    } rows[] = {
        {"One Time", "Purchase Date: date", 0},   {"Every Few Days", "Days Interval: day", 6},
        {"Every Week", "Day of Week: day", 7},    {"Every 4 Weeks", "Day of Week: day", 7},
        {"Every Month", "Day of Month: day", 31}, {"Every 12 Months", "Day of Month: day", 31}};
    for (const auto& row : rows) {
      Choose("purchaseTypeBox", QLatin1String(row.type));
      EXPECT_EQ(Schedule(), row.shown) << row.type;
      if (row.choices > 0) {
        EXPECT_EQ(Combo("dayBox")->count(), row.choices);
        EXPECT_EQ(Combo("dayBox")->currentIndex(), -1);
      }
    }
  });
}

TEST_F(ProductDialogTest, ChangingTheTypeEmptiesTheDayChoice) {
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Choose("purchaseTypeBox", QStringLiteral("Every Week"));
    Choose("dayBox", QStringLiteral("3"));
    Choose("purchaseTypeBox", QStringLiteral("Every Month"));
    EXPECT_EQ(Combo("dayBox")->currentText(), QString());
    PressOk();
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(Messages(), "You must select the day of the month for this monthly purchase.");
}

TEST_F(ProductDialogTest, APurchaseShowsOnlyItsDate) {
  ProductFields fields = Weekly();
  fields.start_date = kToday - 86400;
  const ProductRecord record = Stored(kPurchaseKind, fields);
  Run(&record, kPurchaseMode, [&] {
    EXPECT_FALSE(Combo("purchaseTypeBox")->isEnabled());
    EXPECT_EQ(Combo("purchaseTypeBox")->currentText(), QStringLiteral("Every 2 Weeks"));
    EXPECT_EQ(Schedule(), "Purchase Date: date");
    EXPECT_EQ(Find<QDateEdit>("purchaseDateEdit")->date(), QDate(2026, 11, 20));
  });
}

TEST_F(ProductDialogTest, ADamagedRecordSelectsNothing) {
  ProductFields fields = Weekly();
  fields.every = 40;
  ProductRecord record = Stored(kProductKind, fields);
  record.StoreId = 4999;
  Run(&record, kProductMode, [&] {
    EXPECT_EQ(Combo("purchaseTypeBox")->currentIndex(), -1);
    EXPECT_EQ(Combo("storeBox")->currentText(), QString());
    EXPECT_EQ(Schedule(), "Day of Week: day");
  });
  record.PurchaseKind = 0;
  Run(&record, kProductMode, [&] { EXPECT_EQ(Schedule(), ""); });
  record.PurchaseKind = 2;
  record.DayValue = 10;
  Run(&record, kProductMode, [&] {
    EXPECT_EQ(Combo("dayBox")->currentIndex(), -1);
    PressOk();
  });
  EXPECT_EQ(Messages(), "You must select the days interval for this daily purchase.");
}

TEST_F(ProductDialogTest, TheNotesTabCoversTheForm) {
  Add([&] {
    auto* bar = Find<QTabBar>("tabBar");
    EXPECT_EQ(bar->tabText(0), QStringLiteral("Product"));
    EXPECT_EQ(bar->tabText(1), QStringLiteral("Notes"));
    EXPECT_FALSE(Find("notesEdit")->isVisible());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    EXPECT_TRUE(Find("notesEdit")->isVisible());
    EXPECT_FALSE(Find("productNameEdit")->isVisible());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
    EXPECT_FALSE(Find("notesEdit")->isVisible());
    EXPECT_TRUE(Find("productNameEdit")->isVisible());
  });
}

TEST_F(ProductDialogTest, EscapeAndCancelEndWithoutAChange) {
  EXPECT_NE(Add([&] { QTest::keyClick(dialog_, Qt::Key_Escape); }), 0);
  EXPECT_NE(Add([&] {
              FillInTheLeast();
              QTest::mouseClick(Find("cancelButton"), Qt::LeftButton);
            }),
            0);
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
}

QList<bool> panel_calls;

TEST_F(ProductDialogTest, TheInputPanelComesForTextAndGoesForLists) {
  const InputPanelHandler before = SetInputPanelHandler([](bool show) { panel_calls << show; });
  Add([&] {
    Choose("purchaseTypeBox", QStringLiteral("One Time"));
    const struct {
      const char* field;
      QList<bool> calls;
    } rows[] = {
        {"unitTypeBox", {true}},     {"quantityEdit", {true}},     {"unitPriceEdit", {true}},
        {"taxEdit", {true}},         {"categoryBox", {true}},      {"storeBox", {true}},
        {"productNameEdit", {true}}, {"purchaseTypeBox", {false}}, {"purchaseDateEdit", {false}}};
    for (const auto& row : rows) {
      Find("okButton")->setFocus();
      panel_calls.clear();
      Find(row.field)->setFocus();
      EXPECT_EQ(panel_calls, row.calls) << row.field;
    }
    Choose("purchaseTypeBox", QStringLiteral("Every Week"));
    panel_calls.clear();
    Find("dayBox")->setFocus();
    EXPECT_EQ(panel_calls, QList<bool>{false});
    Find<QTabBar>("tabBar")->setCurrentIndex(1);
    Find("okButton")->setFocus();
    panel_calls.clear();
    Find("notesEdit")->setFocus();
    EXPECT_TRUE(panel_calls.isEmpty());
  });
  SetInputPanelHandler(before);
}

TEST_F(ProductDialogTest, FitsItsScreens) {
  const ProductRecord record = Stored(kProductKind, Weekly());
  for (const QSize& size : test::ScreenSizes()) {
    Run(&record, kProductMode, [&] {
      dialog_->resize(size);
      QTest::qWait(0);
      EXPECT_EQ(test::Clipped(dialog_), "") << size.width() << " x " << size.height();
      test::SavePicture(dialog_, QStringLiteral("product"));
    });
  }
  Run(&record, kProductMode, [&] {
    dialog_->resize(360, 640);
    QTest::qWait(0);
    const QPoint corner = Find("findDiscountsButton")->mapTo(dialog_, QPoint(10, 39));
    EXPECT_LT(corner.y(), Find("buttonRow")->y());  // the whole form without scrolling
  });
}

TEST_F(ProductDialogTest, TheTabOrderFollowsTheEye) {
  Add([&] {
    Choose("purchaseTypeBox", QStringLiteral("Every Week"));
    Find("productNameEdit")->setFocus();
    EXPECT_EQ(test::TabOrder(dialog_),
              "productNameEdit unitTypeBox quantityEdit unitPriceEdit taxEdit categoryBox storeBox "
              "purchaseTypeBox dayBox couponSlotButton1 couponSlotButton2 couponSlotButton3 "
              "couponSlotButton4 couponSlotButton5 findDiscountsButton okButton cancelButton "
              "tabBar");
  });
}

TEST_F(ProductDialogTest, TheCouponButtonsCarryTheirNumbers) {
  Add([&] {
    for (const int number : {1001, 1002, 1003, 1004, 1055, 1056}) {
      EXPECT_NE(test::Control(dialog_, number), nullptr) << number;
    }
  });
}

}  // namespace
}  // namespace brovanta
