// OK in the discount dialog: the checks in their order, and what lands in the file.
#include <QCheckBox>
#include <QDateEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

#include "platform/file.h"
#include "tests/support/comma_locale.h"
#include "tests/support/framed_file.h"
#include "tests/ui/product/discount_form.h"
#include "ui/base/optional_date_edit.h"

namespace brovanta {
namespace {

using test::DoubleAt;
using test::HalfAt;
using test::kDay;
using test::kToday;
using test::TextAt;
using test::WordAt;

const QString kLong(51, QLatin1Char('x'));
const QString kFifty(50, QLatin1Char('y'));
const char* const kSaveError = "There was an error while saving the discount data to the database.";

class DiscountDialogSaveTest : public test::DiscountFormTest {
 protected:
  void Tick(const char* name) {
    QTest::keyClick(&Find<OptionalDateEdit>(name)->check_box(), Qt::Key_Space);
  }
  void Pick(const char* name, QDate date) {
    Tick(name);
    Find<OptionalDateEdit>(name)->date_edit().setDate(date);
  }
  std::string OnlyRecord() {
    const std::vector<std::string> records = Records();
    EXPECT_EQ(records.size(), 1U);
    return records.empty() ? std::string(400, '\0') : records[0];
  }
  /// The stored value of a discount whose value field holds the text.
  double ValueFrom(const QString& text) {
    EXPECT_EQ(Add([&] {
                FillInTheLeast();
                Type("valueEdit", text);
                PressOk();
              }),
              0);
    return DoubleAt(Records().back(), 368);
  }
};

TEST_F(DiscountDialogSaveTest, EveryFieldIsSaved) {
  EXPECT_EQ(Add([&] {
              Type("couponNameEdit", QString::fromUtf8("Crème week"));
              Choose("typeBox", QStringLiteral("Mail In Rebate"));
              Type("productBox", QStringLiteral("Cream"));
              Choose("valueTypeBox", QStringLiteral("Amount ($)"));
              Type("valueEdit", QStringLiteral("0.75"));
              Type("categoryBox", QStringLiteral("Dairy"));
              Type("storeBox", QStringLiteral("Fresh & Co"));
              Tick("startDateEdit");
              Pick("endDateEdit", QDate(2026, 11, 30));
              Find<QTabBar>("tabBar")->setCurrentIndex(1);
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("two"));
              QTest::keyClick(Find("notesEdit"), Qt::Key_Return);
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("lines"));
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "");
  const std::string record = OnlyRecord();
  EXPECT_EQ(WordAt(record, 8), 2U);
  EXPECT_EQ(TextAt(record, 12, 50), "Cr\xE8me week");
  EXPECT_EQ(TextAt(record, 62, 50), "Cream");
  EXPECT_EQ(TextAt(record, 112, 250), "two\r\nlines");
  EXPECT_EQ(HalfAt(record, 362), 0);
  EXPECT_EQ(HalfAt(record, 364), 3);
  EXPECT_EQ(HalfAt(record, 366), 2);
  EXPECT_EQ(DoubleAt(record, 368), 0.75);
  EXPECT_EQ(WordAt(record, 376), static_cast<std::uint32_t>(kToday));
  EXPECT_EQ(WordAt(record, 380), static_cast<std::uint32_t>(kToday));             // 01:00
  EXPECT_EQ(WordAt(record, 384), static_cast<std::uint32_t>(kToday + 9 * kDay));  // 01:00
  EXPECT_EQ(WordAt(record, 388), 5000U);
  EXPECT_EQ(WordAt(record, 392), 5000U);
  EXPECT_EQ(HalfAt(record, 396), 0);
  const auto stores = RecordsOf("store.lst", 64);
  ASSERT_EQ(stores.size(), 1U);
  EXPECT_EQ(TextAt(stores[0], 8, 50), "Fresh & Co");
}

TEST_F(DiscountDialogSaveTest, TheResultsTellWhatWasSaved) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              PressOk();
            }),
            0);
  EXPECT_EQ(saved_, (AppliedDiscount{2, 0, 2}));
  EXPECT_FALSE(apply_chosen_);
  const DiscountRecord record = Stored(9, 2, Full());
  for (const bool apply : {true, false}) {
    EXPECT_EQ(Run(&record, kApplyDiscountMode,
                  [&] {
                    if (apply) QTest::keyClick(Find("applyBox"), Qt::Key_Space);
                    PressOk();
                  }),
              0);
    EXPECT_EQ(saved_, (AppliedDiscount{9, 2, 3}));
    EXPECT_EQ(apply_chosen_, apply);
  }
}

TEST_F(DiscountDialogSaveTest, EverythingElseEmptyIsSavedAsNothing) {
  Add([&] {
    FillInTheLeast();
    PressOk();
  });
  const std::string record = OnlyRecord();
  EXPECT_EQ(TextAt(record, 62, 50), "");
  EXPECT_EQ(TextAt(record, 112, 250), "");
  EXPECT_EQ(DoubleAt(record, 368), 0.0);
  for (const std::size_t offset : {380U, 384U, 388U, 392U}) {
    EXPECT_EQ(WordAt(record, offset), 0U) << offset;
  }
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
}

TEST_F(DiscountDialogSaveTest, EditingWithoutTouchingAnythingKeepsEveryField) {
  for (const std::int16_t source : {std::int16_t{0}, std::int16_t{2}}) {
    const DiscountRecord record = Stored(9, source, Full());
    const std::string before = Records().back();
    EXPECT_EQ(Run(&record, kEditDiscountMode, [&] { PressOk(); }), 0);
    EXPECT_EQ(Records().back(), before);  // notes with their own line ends included
  }
  EXPECT_EQ(Records().size(), 2U);
}

TEST_F(DiscountDialogSaveTest, ANameOf50CharactersIsAcceptedAnd49AreStored) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("couponNameEdit", kFifty);
              Type("productBox", kFifty);
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), std::string(49, 'y'));
  EXPECT_EQ(TextAt(OnlyRecord(), 62, 50), std::string(49, 'y'));
}

TEST_F(DiscountDialogSaveTest, ANameOf51CharactersIsRefused) {
  EXPECT_NE(Add([&] {
              FillInTheLeast();
              Type("couponNameEdit", kLong);
              PressOk();
              EXPECT_TRUE(dialog_->isVisible());
              EXPECT_EQ(Line("couponNameEdit")->text(), kLong);
            }),
            0);
  EXPECT_EQ(Messages(), "The discount name has more than 50 characters.");
  EXPECT_FALSE(folder_.Read("discount.dat").has_value());
}

TEST_F(DiscountDialogSaveTest, TheValueTypeIsAskedForBeforeTheType) {
  Add([&] {
    PressOk();
    Choose("valueTypeBox", QStringLiteral("Percent (%)"));
    PressOk();
    EXPECT_EQ(dialog_->focusWidget(), Combo("typeBox"));
  });
  EXPECT_EQ(Messages(),
            "You must select a value type for this discount.\n"
            "You must select a discount type for this discount.");
}

TEST_F(DiscountDialogSaveTest, TheChecksRunInTheirOrderAndLoseNothing) {
  EXPECT_EQ(Add([&] {
              Type("storeBox", kLong);
              Type("categoryBox", kLong);
              Type("productBox", kLong);
              Type("valueEdit", QStringLiteral("abc"));
              Tick("endDateEdit");
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("note"));
              PressOk();
              Type("storeBox", kFifty);
              PressOk();
              Type("categoryBox", kFifty);
              PressOk();
              Choose("valueTypeBox", QStringLiteral("Amount ($)"));
              PressOk();
              Choose("typeBox", QStringLiteral("Internet Code"));
              PressOk();
              Type("couponNameEdit", kLong);
              PressOk();
              Type("couponNameEdit", QStringLiteral("Spring"));
              PressOk();
              Type("productBox", kFifty);
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(),
            "The store name has more than 50 characters.\n"
            "The category name has more than 50 characters.\n"
            "You must select a value type for this discount.\n"
            "You must select a discount type for this discount.\n"
            "The discount name can not be empty.\n"
            "The discount name has more than 50 characters.\n"
            "The product name has more than 50 characters.");
  const std::string record = OnlyRecord();
  EXPECT_EQ(TextAt(record, 112, 250), "note");
  EXPECT_EQ(DoubleAt(record, 368), 0.0);
  EXPECT_EQ(WordAt(record, 384), static_cast<std::uint32_t>(kToday));
}

TEST_F(DiscountDialogSaveTest, ATabWithAMessageBehindItComesForward) {
  Add([&] {
    Find<QTabBar>("tabBar")->setCurrentIndex(1);
    PressOk();
    EXPECT_TRUE(Combo("valueTypeBox")->isVisible());
  });
  EXPECT_EQ(Messages(), "You must select a value type for this discount.");
}

TEST_F(DiscountDialogSaveTest, KnownNamesAreFoundInAnyLetterCase) {
  Stored(0, 0, Full());
  Add([&] {
    FillInTheLeast();
    Type("storeBox", QStringLiteral("FRESH"));
    Type("categoryBox", QStringLiteral("breakFAST"));
    PressOk();
  });
  ASSERT_EQ(Records().size(), 2U);
  EXPECT_EQ(WordAt(Records()[1], 388), 5000U);
  EXPECT_EQ(WordAt(Records()[1], 392), 5000U);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
}

TEST_F(DiscountDialogSaveTest, AStoreOf50CharactersTypedTwiceIsOneStore) {
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(Add([&] {
                FillInTheLeast();
                Type("storeBox", kFifty);
                PressOk();
              }),
              0);
  }
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
  EXPECT_EQ(WordAt(Records()[1], 388), 5000U);
}

TEST_F(DiscountDialogSaveTest, ValuesAreReadAsTheLeadingNumber) {
  EXPECT_EQ(ValueFrom(QStringLiteral("abc")), 0.0);
  EXPECT_EQ(ValueFrom(QStringLiteral("-3")), -3.0);
  EXPECT_EQ(ValueFrom(QStringLiteral("1e400")), 0.0);
  EXPECT_EQ(ValueFrom(QStringLiteral("0x10")), 0.0);
  EXPECT_EQ(ValueFrom(QStringLiteral("nan")), 0.0);
  EXPECT_EQ(ValueFrom(QStringLiteral("2.5 off")), 2.5);
  EXPECT_EQ(ValueFrom(QStringLiteral("1000000000000000000099")), 1e19);  // its first 20 characters
  EXPECT_EQ(Messages(), "");
}

TEST_F(DiscountDialogSaveTest, AStartAfterTheEndIsAcceptedAsWritten) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Pick("startDateEdit", QDate(2026, 12, 24));
              Pick("endDateEdit", QDate(2026, 11, 20));
              PressOk();
            }),
            0);
  EXPECT_EQ(WordAt(OnlyRecord(), 380), static_cast<std::uint32_t>(kToday + 33 * kDay));
  EXPECT_EQ(WordAt(OnlyRecord(), 384), static_cast<std::uint32_t>(kToday - kDay));
}

TEST_F(DiscountDialogSaveTest, TakingADateAwayStoresNone) {
  const DiscountRecord record = Stored(0, 0, Full());
  Run(&record, kEditDiscountMode, [&] {
    Tick("startDateEdit");
    PressOk();
  });
  EXPECT_EQ(WordAt(OnlyRecord(), 380), 0U);
  EXPECT_EQ(WordAt(OnlyRecord(), 384), static_cast<std::uint32_t>(kToday + kDay));
}

TEST_F(DiscountDialogSaveTest, LongNotesAreCutWithoutAMessage) {
  Add([&] {
    FillInTheLeast();
    Find<QPlainTextEdit>("notesEdit")->insertPlainText(QString(300, QLatin1Char('n')));
    PressOk();
  });
  EXPECT_EQ(TextAt(OnlyRecord(), 112, 250), std::string(249, 'n'));
  EXPECT_EQ(Messages(), "");
}

TEST_F(DiscountDialogSaveTest, AFailedSaveKeepsTheFormAndASecondTrySucceeds) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("storeBox", QStringLiteral("Kiosk"));
              Type("categoryBox", QStringLiteral("Sweets"));
              folder_.Write("discount.dat", test::Hex("00 00 00 00"));
              PressOk();
              EXPECT_TRUE(dialog_->isVisible());
              EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Spring offer"));
              EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Kiosk"));
              EXPECT_TRUE(platform::RemoveFile(folder_.File("discount.dat")));
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), kSaveError);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);  // the names were added once
  EXPECT_EQ(folder_.Read("category.lst")->size(), 8U + 68);
}

TEST_F(DiscountDialogSaveTest, ADiscountThatIsGoneIsNotSaved) {
  DiscountRecord record = Stored(0, 0, Full());
  record.Id = 77;
  const auto before = folder_.Read("discount.dat");
  EXPECT_NE(Run(&record, kEditDiscountMode, [&] { PressOk(); }), 0);
  EXPECT_EQ(Messages(), kSaveError);
  EXPECT_EQ(folder_.Read("discount.dat"), before);
}

TEST_F(DiscountDialogSaveTest, ACommaLocaleChangesNoNumber) {
  if (!test::CommaLocale::IsAvailable()) GTEST_SKIP() << "no compiler of locales";
  const test::CommaLocale comma;
  const DiscountRecord record = Stored(0, 0, Full());
  Run(&record, kEditDiscountMode, [&] {
    EXPECT_EQ(Line("valueEdit")->text(), QStringLiteral("1.50"));
    PressOk();
  });
  EXPECT_EQ(DoubleAt(OnlyRecord(), 368), 1.5);
}

TEST_F(DiscountDialogSaveTest, CtrlEnterInTheNotesIsOk) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Find<QTabBar>("tabBar")->setCurrentIndex(1);
              QTest::keyClicks(Find("notesEdit"), QStringLiteral("note"));
              QTest::keyClick(Find("notesEdit"), Qt::Key_Return, Qt::ControlModifier);
            }),
            0);
  EXPECT_EQ(TextAt(OnlyRecord(), 112, 250), "note");
}

TEST_F(DiscountDialogSaveTest, EnterInAFieldIsOk) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              QTest::keyClick(Line("couponNameEdit"), Qt::Key_Return);
            }),
            0);
  EXPECT_EQ(Records().size(), 1U);
}

TEST_F(DiscountDialogSaveTest, AfterAFailedStartAnEditLosesNoName) {
  const DiscountRecord record = Stored(0, 0, Full());
  folder_.Write("store.lst", test::Hex("00 01 02 03"));
  ASSERT_NE(database_.Open(folder_.path()), 0);
  EXPECT_EQ(Run(&record, kEditDiscountMode,
                [&] {
                  EXPECT_EQ(Combo("categoryBox")->currentText(), QStringLiteral("Breakfast"));
                  EXPECT_EQ(Combo("storeBox")->currentText(), QString());
                  PressOk();
                }),
            0);
  EXPECT_EQ(WordAt(OnlyRecord(), 388), 5000U);
  EXPECT_EQ(WordAt(OnlyRecord(), 392), 5000U);
}

TEST_F(DiscountDialogSaveTest, PastedTextsAreOfOneLine) {
  const QString after_zero = QString(QChar(0)) + QStringLiteral("zz");
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Paste("couponNameEdit", after_zero);
              PressOk();
              EXPECT_TRUE(dialog_->isVisible());
              Paste("couponNameEdit", QStringLiteral("two\nfor\tone"));
              Paste("productBox", QStringLiteral("whole\nmilk"));
              Paste("storeBox", after_zero);
              Paste("valueEdit", QStringLiteral("\t15"));
              PressOk();
            }),
            0);
  EXPECT_EQ(Messages(), "The discount name can not be empty.");
  EXPECT_EQ(TextAt(OnlyRecord(), 12, 50), "two for one");
  EXPECT_EQ(TextAt(OnlyRecord(), 62, 50), "whole milk");
  EXPECT_EQ(DoubleAt(OnlyRecord(), 368), 15.0);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U);
}

}  // namespace
}  // namespace brovanta
