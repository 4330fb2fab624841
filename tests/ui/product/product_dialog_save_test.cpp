// OK in the product dialog: the checks in their order, and what lands in the files.
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

#include "platform/file.h"
#include "tests/support/comma_locale.h"
#include "tests/support/framed_file.h"
#include "tests/ui/product/product_form.h"
#include "ui/product/product_dialog.h"
#include "ui/product/purchase_type.h"

namespace brovanta {
namespace {

using test::DoubleAt;
using test::HalfAt;
using test::kToday;
using test::TextAt;
using test::WordAt;

const QString kLong(51, QLatin1Char('x'));

class ProductDialogSaveTest : public test::ProductFormTest {};

TEST_F(ProductDialogSaveTest, EveryFieldIsSaved) {
  EXPECT_EQ(Add([&] {
              Type("productNameEdit", QStringLiteral("Crème fraîche"));
              Type("unitTypeBox", QStringLiteral("cup"));
              Type("quantityEdit", QStringLiteral("2.5"));
              Type("unitPriceEdit", QStringLiteral("0.89"));
              Type("categoryBox", QStringLiteral("Dairy"));
              Type("storeBox", QStringLiteral("Fresh & Co"));
              Choose("purchaseTypeBox", QStringLiteral("Every 3 Weeks"));
              Choose("dayBox", QStringLiteral("6"));
              Find<QTabBar>("tabBar")->setCurrentIndex(1);
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("two lines"));
              QTest::keyClick(Find("notesEdit"), Qt::Key_Return);
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("of notes"));
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "");
  const std::string record = OnlyRecord();
  EXPECT_EQ(WordAt(record, 8), 1U);
  EXPECT_EQ(TextAt(record, 12, 50),
            "Cr\xE8me fra\xEE"
            "che");
  EXPECT_EQ(TextAt(record, 62, 10), "");
  EXPECT_EQ(TextAt(record, 72, 250), "two lines\r\nof notes");
  EXPECT_EQ(WordAt(record, 324), 5000U);
  EXPECT_EQ(WordAt(record, 328), 5000U);
  EXPECT_EQ(WordAt(record, 332), 5000U);
  EXPECT_EQ(HalfAt(record, 336), 3);
  EXPECT_EQ(HalfAt(record, 338), 3);
  EXPECT_EQ(HalfAt(record, 340), 6);
  EXPECT_EQ(WordAt(record, 344), static_cast<std::uint32_t>(kToday));
  EXPECT_EQ(WordAt(record, 348), 0U);
  EXPECT_EQ(DoubleAt(record, 360), 0.89);
  EXPECT_EQ(DoubleAt(record, 368), 2.5);
  EXPECT_EQ(record.substr(376, 60), std::string(60, '\0'));
  EXPECT_EQ(DoubleAt(record, 440), 8.25);
  EXPECT_EQ(record[448], 0);
  const auto stores = test::ReadFramedFile(folder_.File("store.lst"), false, 64);
  ASSERT_TRUE(stores && stores->records.size() == 1);
  EXPECT_EQ(TextAt(stores->records[0], 8, 50), "Fresh & Co");
}

TEST_F(ProductDialogSaveTest, AllPurchaseTypesAreSavedAndShownAgain) {
  for (const PurchaseType& type : PurchaseTypes()) {
    const QString text = QLatin1String(type.text);
    EXPECT_EQ(Add([&] {
                Type("productNameEdit", text);
                Choose("purchaseTypeBox", text);
                if (type.code != kOneTimeType) Choose("dayBox", QStringLiteral("4"));
                PressOk();
              }),
              0)
        << type.text;
    const std::vector<std::string> records = Records("product.dat");
    ASSERT_EQ(records.size(), static_cast<std::size_t>(type.code));
    EXPECT_EQ(HalfAt(records.back(), 336), type.kind) << type.text;
    EXPECT_EQ(HalfAt(records.back(), 338), type.every) << type.text;
    EXPECT_EQ(HalfAt(records.back(), 340), type.code == kOneTimeType ? 0 : 4) << type.text;
    ProductRecord record;
    record.Id = type.code;
    record.PurchaseKind = type.kind;
    record.Every = type.every;
    record.DayValue = HalfAt(records.back(), 340);
    record.StartDate = kToday;
    Run(&record, kProductMode, [&] { EXPECT_EQ(Combo("purchaseTypeBox")->currentText(), text); });
  }
}

TEST_F(ProductDialogSaveTest, AOneTimePurchaseStoresItsDateAtOneOClock) {
  EXPECT_EQ(Add([&] {
              Type("productNameEdit", QStringLiteral("Tyres"));
              Choose("purchaseTypeBox", QStringLiteral("One Time"));
              auto* date = Find<QDateEdit>("purchaseDateEdit");
              date->setFocus(Qt::TabFocusReason);
              QTest::keyClicks(date, QStringLiteral("12032026"));
              PressOk();
            }),
            0);
  EXPECT_EQ(WordAt(OnlyRecord(), 344), (20778U + 12) * 86400 + 3600);
}

TEST_F(ProductDialogSaveTest, TheChecksRunInTheirOrder) {
  Add([&] {
    PressOk();  // no name, no type
    Type("productNameEdit", kLong);
    for (const char* field : {"unitTypeBox", "storeBox", "categoryBox"}) Type(field, kLong);
    PressOk();
    Type("productNameEdit", kLong.left(50));
    PressOk();
    Type("unitTypeBox", kLong.left(50));
    PressOk();
    Type("storeBox", kLong.left(50));
    PressOk();
    Type("categoryBox", kLong.left(50));
    PressOk();
    Choose("purchaseTypeBox", QStringLiteral("Every Few Days"));
    PressOk();
    Choose("purchaseTypeBox", QStringLiteral("Every 2 Weeks"));
    PressOk();
    Choose("purchaseTypeBox", QStringLiteral("Every 5 Months"));
    PressOk();
    EXPECT_EQ(Line("productNameEdit")->text(), kLong.left(50));
  });
  EXPECT_EQ(Messages(),
            "The product name can not be empty.\n"
            "The product name has more than 50 characters.\n"
            "The unit type has more than 50 characters.\n"
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.\n"
            "You must select a purchase type for this product.\n"
            "You must select the days interval for this daily purchase.\n"
            "You must select the day of the week for this weekly purchase.\n"
            "You must select the day of the month for this monthly purchase.");
  EXPECT_FALSE(folder_.Read("product.dat").has_value());
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
}

TEST_F(ProductDialogSaveTest, FiftyCharactersAreAcceptedAnd49Stored) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("productNameEdit", kLong.left(50));
              PressOk();
            }),
            0);
  EXPECT_EQ(OnlyRecord().substr(12, 50), std::string(49, 'x') + '\0');
}

TEST_F(ProductDialogSaveTest, A51stCharacterGivesItsMessageWhateverElseIsWrong) {
  Add([&] {
    Type("productNameEdit", kLong);
    Type("storeBox", kLong);
    PressOk();
    EXPECT_EQ(Line("productNameEdit")->text(), kLong);
  });
  EXPECT_EQ(Messages(), "The product name has more than 50 characters.");
}

TEST_F(ProductDialogSaveTest, ANameInAnotherLetterCasePicksTheExistingEntry) {
  for (const char* store : {"Röstwerk", "RÖSTWERK", "röstwerk"}) {
    EXPECT_EQ(Add([&] {
                FillInTheLeast();
                Type("storeBox", QString::fromUtf8(store));
                PressOk();
              }),
              0);
  }
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
  for (const std::string& record : Records("product.dat")) EXPECT_EQ(WordAt(record, 324), 5000U);
}

TEST_F(ProductDialogSaveTest, AUnitAndACategoryInAnotherLetterCaseAreTheExistingOnes) {
  for (const char* unit : {"Päckchen", "PÄCKCHEN"}) {
    EXPECT_EQ(Add([&] {
                FillInTheLeast();
                Type("unitTypeBox", QString::fromUtf8(unit));
                Type("categoryBox", QString::fromUtf8(unit).toLower());
                PressOk();
              }),
              0);
  }
  EXPECT_EQ(folder_.Read("unit.lst")->size(), 8U + 68);
  EXPECT_EQ(folder_.Read("category.lst")->size(), 8U + 68);
  for (const std::string& record : Records("product.dat")) {
    EXPECT_EQ(WordAt(record, 328), 5000U);
    EXPECT_EQ(WordAt(record, 332), 5000U);
  }
}

TEST_F(ProductDialogSaveTest, A50CharacterStoreTypedTwiceIsAddedOnce) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Add([&] {
                FillInTheLeast();
                Type("storeBox", kLong.left(50));
                PressOk();
              }),
              0);
  }
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
}

TEST_F(ProductDialogSaveTest, EmptyListsMeanNone) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              PressOk();
            }),
            0);
  const std::string record = OnlyRecord();
  EXPECT_EQ(record.substr(324, 12), std::string(12, '\0'));
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
}

TEST_F(ProductDialogSaveTest, SavingAWholeQuantityUnchangedStoresZero) {
  ProductFields fields;
  fields.name = "Eggs";
  fields.quantity = 3.0;
  fields.purchase_kind = 2;
  fields.day_value = 2;
  fields.start_date = kToday - 5 * 86400;
  const ProductRecord record = Stored(kProductKind, fields);
  EXPECT_EQ(Run(&record, kProductMode, [&] { PressOk(); }), 0);
  EXPECT_EQ(DoubleAt(OnlyRecord(), 368), 0.0);
  EXPECT_EQ(WordAt(OnlyRecord(), 344), static_cast<std::uint32_t>(kToday - 5 * 86400));
}

TEST_F(ProductDialogSaveTest, EditingKeepsShortTextLinksAndUntouchedNotes) {
  ProductFields fields;
  fields.name = "Ink";
  fields.short_text = "set";
  fields.notes = "a\nb\r\nc\x01";
  fields.purchase_kind = 4;
  fields.every = 12;
  fields.day_value = 31;
  fields.start_date = kToday;
  fields.discounts[1] = {7, 2, 3};
  fields.discounts[4] = {9, 0, 102};
  const ProductRecord record = Stored(kProductKind, fields);
  EXPECT_EQ(Run(&record, kProductMode,
                [&] {
                  EXPECT_EQ(Combo("purchaseTypeBox")->currentText(),
                            QStringLiteral("Every 12 Months"));
                  Type("productNameEdit", QStringLiteral("Ink, black"));
                  PressOk();
                }),
            0);
  const std::string saved = OnlyRecord();
  EXPECT_EQ(TextAt(saved, 12, 50), "Ink, black");
  EXPECT_EQ(TextAt(saved, 62, 10), "set");
  EXPECT_EQ(TextAt(saved, 72, 250), "a\nb\r\nc\x01");
  EXPECT_EQ(HalfAt(saved, 338), 12);
  EXPECT_EQ(WordAt(saved, 376 + 12 + 4), 7U);
  EXPECT_EQ(HalfAt(saved, 376 + 12 + 8), 2);
  EXPECT_EQ(HalfAt(saved, 376 + 12 + 10), 3);
  EXPECT_EQ(WordAt(saved, 376 + 48 + 4), 9U);
  EXPECT_EQ(HalfAt(saved, 376 + 48 + 10), 102);
}

TEST_F(ProductDialogSaveTest, LongNotesAreCutWithoutAMessage) {
  Add([&] {
    FillInTheLeast();
    Find<QPlainTextEdit>("notesEdit")->setPlainText(QString(400, QLatin1Char('n')));
    Find<QPlainTextEdit>("notesEdit")->document()->setModified(true);
    PressOk();
  });
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(TextAt(OnlyRecord(), 72, 250), std::string(249, 'n'));
}

TEST_F(ProductDialogSaveTest, APurchaseIsSavedAmongThePurchases) {
  ProductFields fields;
  fields.name = "Product one";
  fields.purchase_kind = 1;
  fields.start_date = kToday;
  Stored(kProductKind, fields);
  fields.name = "Bought";
  fields.start_date = kToday + 7777;
  const ProductRecord purchase = Stored(kPurchaseKind, fields);
  EXPECT_EQ(purchase.Id, 1);
  EXPECT_EQ(Run(&purchase, kPurchaseMode,
                [&] {
                  Type("productNameEdit", QStringLiteral("Bought it"));
                  PressOk();
                }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), "Product one");
  const std::vector<std::string> purchases = Records("purchase.dat");
  ASSERT_EQ(purchases.size(), 1U);
  EXPECT_EQ(TextAt(purchases[0], 12, 50), "Bought it");
  EXPECT_EQ(WordAt(purchases[0], 344), static_cast<std::uint32_t>(kToday));  // the day at 01:00
}

TEST_F(ProductDialogSaveTest, AnEditedRecurringPurchaseKeepsItsMoment) {
  ProductFields fields;
  fields.name = "Milk";
  fields.purchase_kind = 3;
  fields.every = 1;
  fields.day_value = 2;
  fields.start_date = kToday + 4321;
  const ProductRecord purchase = Stored(kPurchaseKind, fields);
  EXPECT_EQ(Run(&purchase, kPurchaseMode,
                [&] {
                  auto* date = Find<QDateEdit>("purchaseDateEdit");
                  date->setFocus(Qt::TabFocusReason);
                  QTest::keyClicks(date, QStringLiteral("12032026"));
                  EXPECT_EQ(date->date(), QDate(2026, 12, 3));
                  PressOk();
                }),
            0);
  const std::vector<std::string> purchases = Records("purchase.dat");
  ASSERT_EQ(purchases.size(), 1U);
  EXPECT_EQ(WordAt(purchases[0], 344), static_cast<std::uint32_t>(kToday + 4321));
  EXPECT_EQ(HalfAt(purchases[0], 336), 3);
  EXPECT_EQ(HalfAt(purchases[0], 338), 1);
  EXPECT_EQ(HalfAt(purchases[0], 340), 2);
}

TEST_F(ProductDialogSaveTest, AFailedSaveKeepsTheFormAndASecondTrySucceeds) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("storeBox", QStringLiteral("Kiosk"));
              folder_.Write("product.dat", test::Hex("00 00 00 00"));
              PressOk();
              EXPECT_TRUE(dialog_->isVisible());
              EXPECT_EQ(Line("productNameEdit")->text(), QStringLiteral("Milk"));
              EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Kiosk"));
              EXPECT_TRUE(platform::RemoveFile(folder_.File("product.dat")));
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "There was an error while saving the product data to the database.");
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);  // the name was added once
  EXPECT_EQ(WordAt(OnlyRecord(), 324), 5000U);
}

TEST_F(ProductDialogSaveTest, AFileHeldBySomeoneElseIsNotSavedTo) {
  Stored(kProductKind, ProductFields());
  platform::File held;
  ASSERT_TRUE(held.Open(folder_.File("product.dat"), platform::File::Mode::kRead));
  const auto before = folder_.Read("product.dat");
  EXPECT_NE(Add([&] {
              FillInTheLeast();
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "There was an error while saving the product data to the database.");
  EXPECT_EQ(folder_.Read("product.dat"), before);
}

TEST_F(ProductDialogSaveTest, CharactersOutsideTheCodePageBecomeQuestionMarks) {
  Add([&] {
    FillInTheLeast();
    Type("productNameEdit", QString::fromUtf8("Tea 茶 €"));
    PressOk();
  });
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), "Tea ? \x80");
}

TEST_F(ProductDialogSaveTest, ANameOfBlanksIsAccepted) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("productNameEdit", QStringLiteral("  "));
              PressOk();
            }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), "  ");
}

TEST_F(ProductDialogSaveTest, ACommaLocaleChangesNoNumber) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  Add([&] {
    EXPECT_EQ(Line("taxEdit")->text(), QStringLiteral("8.25"));
    FillInTheLeast();
    Type("unitPriceEdit", QStringLiteral("1.5"));
    PressOk();
  });
  EXPECT_EQ(DoubleAt(OnlyRecord(), 360), 1.5);
  EXPECT_EQ(DoubleAt(OnlyRecord(), 440), 8.25);
}

TEST_F(ProductDialogSaveTest, EnterInAFieldIsOk) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              QTest::keyClick(Line("productNameEdit"), Qt::Key_Return);
            }),
            0);
  EXPECT_EQ(Records("product.dat").size(), 1U);
}

}  // namespace
}  // namespace brovanta
