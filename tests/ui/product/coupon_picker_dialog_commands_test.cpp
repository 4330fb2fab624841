// The coupon picker's commands: select, new, edit, delete, and files that cannot be read.
#include <QTest>

#include "tests/support/framed_file.h"
#include "tests/ui/product/picker_form.h"
#include "ui/base/record_tree.h"
#include "ui/product/picker_bar.h"

namespace brovanta {
namespace {

using test::kToday;

const char* const kReadError = "There was an error while reading the database.";
const char* const kApplyError =
    "There was an error while applying the selected coupon to the current product.";
const char* const kNothingSelected =
    "You must first select a coupon from the list to apply to the current product.";

class CouponPickerCommandsTest : public test::PickerFormTest {
 protected:
  std::vector<std::string> Records() const { return RecordsOf("discount.dat", 400); }
  void Damage() const { folder_.Write("discount.dat", test::Hex("00 00 00 00")); }
  /// Narrows by store and text, so that a reset shows.
  void Narrow() {
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    FindText(QStringLiteral("soap"));
  }
  void ExpectReset() {
    EXPECT_EQ(Text("storeFilterButton"), "All Stores");
    EXPECT_EQ(database_.discounts().filter().store_id, 0U);
    EXPECT_EQ(database_.discounts().filter().text, "");
  }
};

TEST_F(CouponPickerCommandsTest, SelectEndsWithTheCoupon) {
  Coupons({{.id = 2, .source = 1, .name = "tea", .type = 3},
           {.id = 2, .source = 2, .name = "soap", .type = 2}});
  EXPECT_EQ(Run([&] {
              SelectRow(QStringLiteral("soap"));
              Press("selectButton");
            }),
            0);
  EXPECT_EQ(picked_, (AppliedDiscount{2, 2, 2}));
  EXPECT_EQ(Messages(), "");
}

TEST_F(CouponPickerCommandsTest, EnterAndADoubleTapOnACouponSelectIt) {
  Coupons({{.id = 2, .source = 1, .name = "tea", .type = 3}});
  EXPECT_EQ(Run([&] {
              SelectRow(QStringLiteral("tea"));
              QTest::keyClick(Tree(), Qt::Key_Return);
            }),
            0);
  EXPECT_EQ(picked_, (AppliedDiscount{2, 1, 3}));
  EXPECT_EQ(Run([&] {
              SelectRow(QStringLiteral("tea"));
              const QRect row = Tree()->visualRect(Tree()->RecordIndex(0, 0));
              QTest::mouseDClick(Tree()->viewport(), Qt::LeftButton, {}, row.center());
            }),
            0);
}

TEST_F(CouponPickerCommandsTest, SelectWithoutASelectionAsksForOne) {
  Coupons({{.id = 2, .name = "tea"}});
  EXPECT_NE(Run([&] {
              Press("selectButton");
              EXPECT_TRUE(dialog_->isVisible());
            }),
            0);
  EXPECT_EQ(Messages(), kNothingSelected);
}

TEST_F(CouponPickerCommandsTest, SelectOnADateIsAnError) {
  Coupons({{.id = 2, .name = "tea"}});
  EXPECT_NE(Run([&] {
              SelectHeading(0);
              Press("selectButton");
              EXPECT_TRUE(dialog_->isVisible());
            }),
            0);
  EXPECT_EQ(Messages(), kApplyError);
}

TEST_F(CouponPickerCommandsTest, SelectOnACouponThatLeftTheListIsAnError) {
  Coupons({{.id = 2, .name = "tea"}});
  Run([&] {
    SelectRow(QStringLiteral("tea"));
    EXPECT_EQ(database_.discounts().Mark(2, 0, kMarkDeleted), 2);
    Press("selectButton");
    EXPECT_TRUE(dialog_->isVisible());
  });
  EXPECT_EQ(Messages(), kApplyError);
}

TEST_F(CouponPickerCommandsTest, ANewCouponIsListedAndNotApplied) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7}});
  EXPECT_NE(Run([&] {
              Narrow();
              InNextDialog([&] {
                EXPECT_FALSE(Find("applyBox")->isVisible());
                Type("couponNameEdit", QStringLiteral("Made"));
                Choose("typeBox", QStringLiteral("Store Coupon"));
                Choose("valueTypeBox", QStringLiteral("Percent (%)"));
                PressOk();
              });
              Tool(kPickerNew);
              ExpectReset();
              EXPECT_EQ(Rows(), "[Saturday 11/21/2026]\nMade\n[Unknown date]\nsoap@Corner");
            }),
            0);
  EXPECT_EQ(picked_, AppliedDiscount());
  EXPECT_EQ(Records().size(), 2U);
}

TEST_F(CouponPickerCommandsTest, ACancelledDialogChangesNothing) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7}});
  Run([&] {
    Narrow();
    InNextDialog([&] { Press("cancelButton"); });
    Tool(kPickerNew);
    SelectRow(QStringLiteral("soap"));
    InNextDialog([&] { Press("cancelButton"); });
    Tool(kPickerEdit);
    EXPECT_EQ(Text("storeFilterButton"), "Corner");
    EXPECT_EQ(Enabled(), "new edit delete find");
  });
}

TEST_F(CouponPickerCommandsTest, EditOpensTheCouponOfItsSource) {
  Coupons({{.id = 2, .source = 1, .name = "tea"},
           {.id = 2, .source = 2, .name = "soap", .store_id = 7}});
  Run([&] {
    Narrow();
    SelectRow(QStringLiteral("soap"));
    InNextDialog([&] {
      EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("soap"));
      EXPECT_FALSE(Find("applyBox")->isVisible());
      EXPECT_TRUE(Find("viewButton")->isVisible());
      Type("couponNameEdit", QStringLiteral("Soap edited"));
      PressOk();
    });
    Tool(kPickerEdit);
    ExpectReset();
  });
  ASSERT_EQ(Records().size(), 2U);
  EXPECT_EQ(test::TextAt(Records()[0], 12, 50), "tea");
  EXPECT_EQ(test::TextAt(Records()[1], 12, 50), "Soap edited");
}

TEST_F(CouponPickerCommandsTest, EditOfACouponThatLeftTheListDoesNothing) {
  Coupons({{.id = 2, .name = "tea"}});
  Run([&] {
    SelectRow(QStringLiteral("tea"));
    EXPECT_EQ(database_.discounts().Mark(2, 0, kMarkDeleted), 2);
    Tool(kPickerEdit);
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(CouponPickerCommandsTest, DeleteAsksAndNoKeepsEverything) {
  Coupons({{.id = 2, .source = 1, .name = "tea"},
           {.id = 2, .source = 2, .name = "soap", .store_id = 7}});
  Run([&] {
    Narrow();
    SelectRow(QStringLiteral("soap"));
    answers_.AnswerNext(QMessageBox::No);
    Tool(kPickerDelete);
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner");
  });
  EXPECT_EQ(Messages(), "Do you want to permanently delete the selected coupon?");
  EXPECT_EQ(Records()[1][397], 0);
}

TEST_F(CouponPickerCommandsTest, YesDeletesTheCouponOfItsSourceAndResets) {
  Coupons({{.id = 2, .source = 1, .name = "tea"},
           {.id = 2, .source = 2, .name = "soap", .store_id = 7}});
  Run([&] {
    Narrow();
    SelectRow(QStringLiteral("soap"));
    answers_.AnswerNext(QMessageBox::Yes);
    Tool(kPickerDelete);
    ExpectReset();
    EXPECT_EQ(Rows(), "[Unknown date]\ntea");
    EXPECT_EQ(Enabled(), "new find");
  });
  EXPECT_EQ(Records()[0][397], 0);
  EXPECT_EQ(Records()[1][397], 1);
}

TEST_F(CouponPickerCommandsTest, AnUnreadableFileIsReportedOnceTheDialogIsOpen) {
  Damage();
  Run([&] {
    QTest::qWait(0);
    EXPECT_EQ(Messages(), kReadError);
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(Tree()->empty_text(),
              QStringLiteral("The coupons could not be read\n"
                             "The program brovanta-data checks files and brings copies back."));
    EXPECT_EQ(MenuTexts("storeFilterButton"), "All Stores=10000");
  });
}

TEST_F(CouponPickerCommandsTest, AMissingFileIsReportedToo) {
  Run([&] {
    QTest::qWait(0);
    EXPECT_EQ(Messages(), kReadError);
    EXPECT_EQ(
        Tree()->empty_text(),
        QStringLiteral("No coupons on this day\nAdd one with +, or choose another time above."));
    EXPECT_EQ(Enabled(), "new find");
  });
}

TEST_F(CouponPickerCommandsTest, EveryFailedFillIsReportedAndKeepsTheFilter) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7, .category_id = 3}});
  Run([&] {
    Damage();
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    EXPECT_EQ(Messages(), kReadError);
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(database_.discounts().filter().store_id, 7U);
    ChooseInMenu("categoryFilterButton", QStringLiteral("Food"));
    FindText(QStringLiteral("soap"));
    EXPECT_EQ(answers_.texts().size(), 3);
    Coupons({{.id = 2, .name = "soap", .store_id = 7, .category_id = 3}, {.id = 3, .name = "tea"}});
    FindText(QStringLiteral("soap"));
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner");
    Damage();
    ChooseInMenu("viewModeButton", QStringLiteral("Monthly"));
    PickDate(QDate(2026, 11, 30));
    EXPECT_EQ(answers_.texts().size(), 5);
    EXPECT_EQ(answers_.texts().count(QLatin1String(kReadError)), 5);
  });
}

}  // namespace
}  // namespace brovanta
