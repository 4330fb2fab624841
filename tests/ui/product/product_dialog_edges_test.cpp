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

/// A weekly product with a store, a category and a unit, each the first of its list: 5000.
ProductFields InNamedPlaces() {
  ProductFields fields;
  fields.name = "Yoghurt";
  fields.purchase_kind = 3;
  fields.every = 1;
  fields.day_value = 2;
  fields.start_date = test::kToday;
  fields.store = NameRef{0, "Kiosk"};
  fields.category = NameRef{0, "Dairy"};
  fields.unit = NameRef{0, "cup"};
  return fields;
}

/// Store, category and unit of a stored record.
std::vector<std::uint32_t> Places(const std::string& record) {
  return {WordAt(record, 324), WordAt(record, 328), WordAt(record, 332)};
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

// "store.lst" is damaged, the lists behind it in the order of loading are sound.
TEST_F(ProductDialogEdgesTest, AfterAFailedStartAnEditLosesNoName) {
  const ProductRecord record = Stored(kProductKind, InNamedPlaces());
  folder_.Write("store.lst", Hex("00 01 02 03"));
  ASSERT_NE(database_.Open(folder_.path()), 0);
  EXPECT_EQ(Run(&record, kProductMode,
                [&] {
                  EXPECT_EQ(Combo("categoryBox")->currentText(), QStringLiteral("Dairy"));
                  EXPECT_EQ(Combo("unitTypeBox")->currentText(), QStringLiteral("cup"));
                  EXPECT_EQ(Combo("storeBox")->currentText(), QString());
                  PressOk();
                }),
            0);
  EXPECT_EQ(Places(OnlyRecord()), (std::vector{5000U, 5000U, 5000U}));
  EXPECT_EQ(folder_.Read("store.lst"), Hex("00 01 02 03"));
}

TEST_F(ProductDialogEdgesTest, AStoreThatIsNotInTheListGoesWhenTheUserSaysSo) {
  const ProductRecord record = Stored(kProductKind, InNamedPlaces());
  folder_.Write("store.lst", Hex("81 38 01 00 83 38 01 00"));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Run(&record, kProductMode, [&] {
    Type("storeBox", QStringLiteral("x"));
    Type("storeBox", QString());
    PressOk();
  });
  EXPECT_EQ(Places(OnlyRecord()), (std::vector{0U, 5000U, 5000U}));
}

TEST_F(ProductDialogEdgesTest, ListsThatWereHeldAtTheStartAreOfferedOnceTheyAreFree) {
  Stored(kProductKind, InNamedPlaces());
  {
    platform::File held;
    ASSERT_TRUE(held.Open(folder_.File("store.lst"), platform::File::Mode::kRead));
    ASSERT_NE(database_.Open(folder_.path()), 0);
  }
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Choose("storeBox", QStringLiteral("Kiosk"));
              Type("categoryBox", QStringLiteral("DAIRY"));
              PressOk();
            }),
            0);
  EXPECT_EQ(Places(Records("product.dat").back()), (std::vector{5000U, 5000U, 0U}));
}

TEST_F(ProductDialogEdgesTest, AKnownNameTypedWhileItsListIsHeldIsNotAddedAgain) {
  Stored(kProductKind, InNamedPlaces());
  platform::File held;
  ASSERT_TRUE(held.Open(folder_.File("category.lst"), platform::File::Mode::kRead));
  ASSERT_NE(database_.Open(folder_.path()), 0);
  EXPECT_EQ(Add([&] {
              EXPECT_EQ(Combo("categoryBox")->count(), 1);
              held.Close();
              FillInTheLeast();
              Type("categoryBox", QStringLiteral("dairy"));
              PressOk();
            }),
            0);
  EXPECT_EQ(Places(Records("product.dat").back()), (std::vector{0U, 5000U, 0U}));
  EXPECT_EQ(folder_.Read("category.lst")->size(), 8U + 68);
}

TEST_F(ProductDialogEdgesTest, APurchaseKeepsItsScheduleWhateverItIs) {
  const struct {
    std::uint16_t kind, every, day;
  } rows[] = {{2, 0, 10}, {0, 0, 0}, {0, 7, 8}, {3, 9, 3}, {3, 0, 9}, {4, 8, 40}, {9, 1, 1}};
  for (const auto& row : rows) {
    ProductFields fields;
    fields.name = "Bought";
    fields.purchase_kind = row.kind;
    fields.every = row.every;
    fields.day_value = row.day;
    fields.start_date = test::kToday + 4321;
    const ProductRecord purchase = Stored(kPurchaseKind, fields);
    EXPECT_EQ(Run(&purchase, kPurchaseMode,
                  [&] {
                    Type("unitPriceEdit", QStringLiteral("2.5"));
                    PressOk();
                  }),
              0)
        << row.kind << ' ' << row.every << ' ' << row.day;
    const std::string saved = Records("purchase.dat").back();
    EXPECT_EQ(test::HalfAt(saved, 336), row.kind);
    EXPECT_EQ(test::HalfAt(saved, 338), row.every);
    EXPECT_EQ(test::HalfAt(saved, 340), row.day);
    EXPECT_EQ(WordAt(saved, 344), static_cast<std::uint32_t>(test::kToday + 4321));
    EXPECT_EQ(test::DoubleAt(saved, 360), 2.5);
  }
  EXPECT_EQ(Messages(), "");
}

TEST_F(ProductDialogEdgesTest, TheSamePurchaseTypeChosenAgainKeepsTheDay) {
  const ProductRecord record = Scheduled(3, 1, 5);
  Run(&record, kProductMode, [&] {
    auto* box = Combo("purchaseTypeBox");
    box->setFocus();
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(box->currentText(), QStringLiteral("Every Week"));
    EXPECT_EQ(Combo("dayBox")->currentText(), QStringLiteral("5"));
    Choose("purchaseTypeBox", QStringLiteral("Every 2 Weeks"));
    EXPECT_EQ(Combo("dayBox")->currentText(), QString()) << "another type drops it";
    Choose("dayBox", QStringLiteral("2"));
    box->setFocus();
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(Combo("dayBox")->currentText(), QStringLiteral("2"));
  });
}

TEST_F(ProductDialogEdgesTest, TheTypeOfADamagedRecordChosenAgainShowsItsOwnDays) {
  const ProductRecord record = Scheduled(3, 0, 3);  // weekly, but shown as "Every Few Days"
  Run(&record, kProductMode, [&] {
    auto* box = Combo("purchaseTypeBox");
    box->setFocus();
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(box->currentText(), QStringLiteral("Every Few Days"));
    EXPECT_EQ(Find("scheduleLabel")->property("text").toString(), QStringLiteral("Days Interval:"));
    EXPECT_EQ(Combo("dayBox")->count(), 6);
  });
}

}  // namespace
}  // namespace brovanta
