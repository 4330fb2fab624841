// The product dialog at its edges: whole files, several faults at once, damaged records.
#include <QAbstractItemView>
#include <QTest>
#include <cstdint>
#include <memory>

#include "platform/file.h"
#include "tests/support/framed_file.h"
#include "tests/ui/product/product_form.h"
#include "ui/product/product_dialog.h"

namespace brovanta {
namespace {

using test::Hex;
using test::Join;
using test::Padded;
using test::TextAt;
using test::WordAt;

class ProductDialogEdgesTest : public test::ProductFormTest {};

ProductRecord Scheduled(int kind, int every, int day) {
  ProductRecord record;
  record.Id = 1;
  record.Name.Assign("Milk");
  record.PurchaseKind = static_cast<std::uint16_t>(kind);
  record.Every = static_cast<std::uint16_t>(every);
  record.DayValue = static_cast<std::uint16_t>(day);
  record.StartDate = test::kToday;
  return record;
}

// 2026-11-21 01:00 UTC is 1795222800, 6B00ED10.
TEST_F(ProductDialogEdgesTest, ANewProductStandsInItsFilesByteForByte) {
  EXPECT_EQ(Add([&] {
              Type("productNameEdit", QStringLiteral("M\u00fcsli"));
              Type("quantityEdit", QStringLiteral("2.5"));
              Type("unitPriceEdit", QStringLiteral("1"));
              Type("taxEdit", QStringLiteral("-0.5"));
              Type("categoryBox", QStringLiteral("Food"));
              Choose("purchaseTypeBox", QStringLiteral("One Time"));
              PressOk();
            }),
            0);
  const test::Bytes record =
      Join({test::Run(8), Hex("01 00 00 00"), Padded("M\xFCsli", 50), test::Run(10 + 252),
            Hex("00 00 00 00 88 13 00 00 00 00 00 00"), Hex("01 00 00 00 00 00 00 00 10 ED 00 6B"),
            test::Run(12), Hex("00 00 00 00 00 00 F0 3F 00 00 00 00 00 00 04 40"), test::Run(64),
            Hex("00 00 00 00 00 00 E0 BF"), test::Run(8)});
  EXPECT_EQ(folder_.Read("product.dat"),
            Join({Hex("81 38 01 00 01 00 00 00 82 38 01 00"), record, Hex("83 38 01 00")}));
  EXPECT_EQ(folder_.Read("category.lst"),
            Join({Hex("81 38 01 00 82 38 01 00 00 00 00 00 88 13 00 00"), Padded("Food", 50),
                  test::Run(6), Hex("83 38 01 00")}));
  EXPECT_EQ(folder_.Read("store.lst"), Hex("81 38 01 00 83 38 01 00"));
  EXPECT_FALSE(folder_.Read("purchase.dat").has_value());
}

TEST_F(ProductDialogEdgesTest, OfSeveralFaultsOnlyTheFirstIsReported) {
  const QString good(50, QLatin1Char('x'));
  const QString bad(51, QLatin1Char('x'));
  const struct {
    QString name, unit, store, category;
    const char* type;
    const char* message;
  } rows[] = {
      {{}, bad, bad, bad, "Every Week", "The product name can not be empty."},
      {bad, bad, bad, bad, "Every Week", "The product name has more than 50 characters."},
      {bad, {}, {}, {}, nullptr, "The product name has more than 50 characters."},
      {good, bad, bad, bad, "Every Month", "The unit type has more than 50 characters."},
      {good, bad, {}, {}, nullptr, "The unit type has more than 50 characters."},
      {good, {}, bad, bad, nullptr, "The store name has more than 50 characters."},
      {good, good, {}, bad, "Every Few Days", "The category name has more than 50 characters."},
      {good, {}, {}, {}, nullptr, "You must select a purchase type for this product."},
  };
  for (const auto& row : rows) {
    const auto before = answers_.texts().size();
    Add([&] {
      Type("productNameEdit", row.name);
      Type("unitTypeBox", row.unit);
      Type("storeBox", row.store);
      Type("categoryBox", row.category);
      if (row.type != nullptr) Choose("purchaseTypeBox", QLatin1String(row.type));
      PressOk();
      EXPECT_TRUE(dialog_->isVisible());
      EXPECT_EQ(Combo("unitTypeBox")->currentText(), row.unit);
    });
    EXPECT_EQ(answers_.texts().mid(before), QStringList{QLatin1String(row.message)});
  }
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
  EXPECT_EQ(folder_.Read("unit.lst")->size(), 8U);
}

TEST_F(ProductDialogEdgesTest, ATypeOfCodeZeroIsReportedBeforeAnythingElse) {
  Add([&] {
    Combo("purchaseTypeBox")->addItem(QStringLiteral("none"), 0);
    Choose("purchaseTypeBox", QStringLiteral("none"));
    EXPECT_FALSE(Find("scheduleLabel")->isVisible());
    PressOk();
  });
  EXPECT_EQ(Messages(), "You must select the purchase type for this product.");
}

TEST_F(ProductDialogEdgesTest, DamagedSchedulesSelectTheItemOfTheirCodeOrNothing) {
  const struct {
    int kind, every, day;
    const char* type;
    const char* day_shown;
  } rows[] = {{0, 0, 0, "", ""},
              {9, 1, 1, "", ""},
              {65535, 65535, 65535, "", ""},
              {3, 65535, 3, "", "3"},
              {3, 0, 3, "Every Few Days", "3"},   // code 2
              {3, 9, 3, "Every 5 Months", "3"},   // code 11
              {4, 0, 9, "Every 4 Weeks", "9"},    // code 6
              {4, 8, 9, "", "9"},                 // code 14
              {3, 1, 8, "Every Week", ""},        // choices end at 7
              {2, 0, 10, "Every Few Days", ""}};  // choices end at 6
  for (const auto& row : rows) {
    const ProductRecord record = Scheduled(row.kind, row.every, row.day);
    Run(&record, kProductMode, [&] {
      EXPECT_EQ(Combo("purchaseTypeBox")->currentText(), QLatin1String(row.type))
          << row.kind << ' ' << row.every;
      EXPECT_EQ(Combo("dayBox")->currentText(), QLatin1String(row.day_shown))
          << row.kind << ' ' << row.every;
      EXPECT_EQ(Combo("dayBox")->isVisible(), row.kind >= 2 && row.kind <= 4);
    });
  }
}

TEST_F(ProductDialogEdgesTest, DatesAtBothEndsOfAStampOpenAndStayInsideThePicker) {
  for (const DateStamp date : {INT32_MIN, -1, 0, INT32_MAX}) {
    ProductRecord record = Scheduled(1, 0, 0);
    record.StartDate = date;
    Run(&record, kProductMode, [&] {
      const QDate shown = Find<QDateEdit>("purchaseDateEdit")->date();
      EXPECT_GE(shown, QDate(1970, 1, 2));
      EXPECT_LE(shown, QDate(2038, 1, 18));
    });
  }
}

TEST_F(ProductDialogEdgesTest, ATypeChosenWithTheMouseDropsTheDay) {
  const ProductRecord record = Scheduled(3, 1, 5);
  Run(&record, kProductMode, [&] {
    auto* box = Combo("purchaseTypeBox");
    box->showPopup();
    QAbstractItemView* view = box->view();
    const QModelIndex month = view->model()->index(box->findText(QStringLiteral("Every Month")), 0);
    view->scrollTo(month);
    const QPoint center = view->visualRect(month).center();
    QTest::mouseMove(view->viewport(), center);
    // The list takes a release on the item for the choice once the press was its own.
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, center);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, center);
    EXPECT_EQ(box->currentText(), QStringLiteral("Every Month"));
    EXPECT_EQ(Find("scheduleLabel")->property("text").toString(), QStringLiteral("Day of Month:"));
    EXPECT_EQ(Combo("dayBox")->currentText(), QString());
  });
}

TEST_F(ProductDialogEdgesTest, TheLentRecordMayDieWhileTheDialogIsOpen) {
  auto record = std::make_unique<ProductRecord>(Stored(kProductKind, [] {
    ProductFields fields;
    fields.name = "Milk";
    fields.short_text = "short";
    fields.purchase_kind = 3;
    fields.every = 1;
    fields.day_value = 5;
    fields.start_date = test::kToday;
    return fields;
  }()));
  EXPECT_EQ(Run(record.get(), kProductMode,
                [&] {
                  record.reset();
                  PressOk();
                }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 62, 10), "short");
}

TEST_F(ProductDialogEdgesTest, AOneTimeDateIsOneOClockOfTheLocalDay) {
  const test::ZoneGuard new_york("America/New_York");
  Add([&] {
    Type("productNameEdit", QStringLiteral("Milk"));
    Choose("purchaseTypeBox", QStringLiteral("One Time"));
    EXPECT_EQ(Find<QDateEdit>("purchaseDateEdit")->date(), QDate(2026, 11, 21));
    PressOk();
  });
  EXPECT_EQ(WordAt(OnlyRecord(), 344), 1795222800U + 5 * 3600);
}

TEST_F(ProductDialogEdgesTest, ManyFailedTriesAddANewNameOnce) {
  folder_.Write("product.dat", Hex("81 38 01 00 00 00 00 00 83 38 01 00"));
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("storeBox", QStringLiteral("Kiosk"));
              Type("unitTypeBox", QStringLiteral("box"));
              {
                platform::File held;
                ASSERT_TRUE(held.Open(folder_.File("product.dat"), platform::File::Mode::kRead));
                PressOk();
                PressOk();
              }
              EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Kiosk"));
              PressOk();
            }),
            0);
  EXPECT_EQ(answers_.texts().size(), 2);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
  EXPECT_EQ(folder_.Read("unit.lst")->size(), 8U + 68);
  EXPECT_EQ(WordAt(OnlyRecord(), 324), 5000U);
  EXPECT_EQ(WordAt(OnlyRecord(), 332), 5000U);
}

}  // namespace
}  // namespace brovanta
