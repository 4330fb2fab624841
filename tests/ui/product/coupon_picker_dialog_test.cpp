// The coupon picker: period, filters, rows, shortened texts and its looks.
#include "ui/product/coupon_picker_dialog.h"

#include <QComboBox>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/ui/product/picker_form.h"
#include "ui/base/color_button.h"
#include "ui/base/record_tree.h"
#include "ui/product/picker_bar.h"

namespace brovanta {
namespace {

using test::kDay;
using test::kToday;

class CouponPickerDialogTest : public test::PickerFormTest {};

TEST_F(CouponPickerDialogTest, StartsInTheDailyViewOfToday) {
  Coupons({{.name = "Soap", .stamp = kToday, .store_id = 7}});
  Run([&] {
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 21, 2026");
    EXPECT_EQ(Find<ColorButton>("viewModeButton")->first_picture(), 136);
    EXPECT_EQ(MenuTexts("viewModeButton"), "Daily=3001*|Weekly=3002|Monthly=3003");
    EXPECT_EQ(Text("storeFilterButton"), "All Stores");
    EXPECT_EQ(Text("categoryFilterButton"), "All Categories");
    EXPECT_EQ(Rows(), "[Saturday 11/21/2026]\nSoap@Corner");
    EXPECT_EQ(Enabled(), "new find");
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(CouponPickerDialogTest, TheViewModesChangePeriodPictureAndCheckMark) {
  Coupons({});
  Run([&] {
    ChooseInMenu("viewModeButton", QStringLiteral("Weekly"));
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 15 - 21, 2026");
    EXPECT_EQ(Find<ColorButton>("viewModeButton")->first_picture(), 137);
    EXPECT_EQ(MenuTexts("viewModeButton"), "Daily=3001|Weekly=3002*|Monthly=3003");
    ChooseInMenu("viewModeButton", QStringLiteral("Monthly"));
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 2026");
    EXPECT_EQ(Find<ColorButton>("viewModeButton")->first_picture(), 138);
  });
}

TEST_F(CouponPickerDialogTest, AWeekStartsOnItsSundayOrSixDaysBeforeItsSaturday) {
  Coupons({});
  Run([&] {
    ChooseInMenu("viewModeButton", QStringLiteral("Weekly"));
    PickDate(QDate(2026, 11, 22));
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 22 - 28, 2026");
    PickDate(QDate(2026, 11, 28));
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 22 - 28, 2026");
  });
  EXPECT_EQ(database_.discounts().filter().valid_on, kToday + kDay - 3600);
  EXPECT_EQ(database_.discounts().filter().started_since, kToday + 8 * kDay - 3601);
}

// As on the main screen: what expired before the period is hidden, and so is what started before
// the period's end.
TEST_F(CouponPickerDialogTest, ThePeriodIsHandedToTheQueryAsOnTheMainScreen) {
  Coupons({{.id = 2, .name = "Expired", .end_date = kToday - kDay},
           {.id = 3, .name = "Last day", .end_date = kToday},
           {.id = 4, .name = "Starts today", .start_date = kToday},
           {.id = 5, .name = "Starts later", .start_date = kToday + kDay}});
  Run([&] {
    EXPECT_EQ(Rows(), "[Unknown date]\nLast day\nStarts later");
    PickDate(QDate(2026, 11, 20));
    EXPECT_EQ(Rows(), "[Unknown date]\nExpired\nLast day\nStarts today\nStarts later");
  });
}

TEST_F(CouponPickerDialogTest, EqualDatesFollowingEachOtherShareAHeading) {
  Coupons({{.id = 2, .name = "a"},
           {.id = 3, .name = "b", .stamp = kToday},
           {.id = 4, .name = "c"},
           {.id = 5, .name = "d", .stamp = kToday - kDay}});
  Run([&] {
    EXPECT_EQ(Rows(), "[Saturday 11/21/2026]\nb\n[Friday 11/20/2026]\nd\n[Unknown date]\na\nc");
    EXPECT_EQ(Tree()->HeadingIndex(0).data().toString(),
              QStringLiteral("Saturday 11/21/2026") + QString(22, QLatin1Char(' ')));
    EXPECT_EQ(Tree()->HeadingIndex(2).data().toString(),
              QStringLiteral("Unknown date") + QString(60, QLatin1Char(' ')));
    EXPECT_EQ(Tree()->RecordIndex(2, 0).data().toString(), QString(46, QLatin1Char(' ')));
  });
}

TEST_F(CouponPickerDialogTest, CouponNamesFrom20CharactersAreCut) {
  Coupons({{.id = 2, .name = "1234567890123456789"}, {.id = 3, .name = "12345678901234567890"}});
  Run([&] { EXPECT_EQ(Rows(), "[Unknown date]\n1234567890123456789\n12345678901234567.."); });
}

TEST_F(CouponPickerDialogTest, StoreNamesFrom9CharactersAreCutInTheRows) {
  folder_.Write("store.lst",
                test::RawListFile({test::RawItem(7, "12345678"), test::RawItem(8, "123456789")}));
  ASSERT_EQ(database_.Open(folder_.path()), 0);
  Coupons({{.id = 2, .name = "a", .store_id = 7}, {.id = 3, .name = "b", .store_id = 8}});
  Run([&] { EXPECT_EQ(Rows(), "[Unknown date]\na@12345678\nb@123456.."); });
}

TEST_F(CouponPickerDialogTest, TheFilterMenusListWhatTheCouponsUse) {
  Coupons({{.id = 2, .name = "a", .store_id = 7, .category_id = 4},
           {.id = 3, .name = "b", .store_id = 9}});
  Run([&] {
    EXPECT_EQ(MenuTexts("storeFilterButton"),
              "All Stores=10000|Corner=10007|Fifteen charact=10009");
    EXPECT_EQ(MenuTexts("categoryFilterButton"), "All Categories=20000|R&&D=20004");
  });
}

TEST_F(CouponPickerDialogTest, AStoreNameOf14CharactersIsShownWholeAndOneOf15IsCut) {
  Coupons({{.id = 2, .name = "a", .store_id = 8}, {.id = 3, .name = "b", .store_id = 9}});
  Run([&] {
    ChooseInMenu("storeFilterButton", QStringLiteral("Fourteen chars"));
    EXPECT_EQ(Text("storeFilterButton"), "Fourteen chars");
    EXPECT_EQ(Rows(), "[Unknown date]\na@Fourte..");
    ChooseInMenu("storeFilterButton", QStringLiteral("Fifteen charact"));
    EXPECT_EQ(Text("storeFilterButton"), "Fifteen cha...");
    ChooseInMenu("storeFilterButton", QStringLiteral("All Stores"));
    EXPECT_EQ(Text("storeFilterButton"), "All Stores");
    EXPECT_EQ(Rows(), "[Unknown date]\na@Fourte..\nb@Fiftee..");
  });
}

TEST_F(CouponPickerDialogTest, StoreAndCategoryNarrowTogether) {
  Coupons({{.id = 2, .name = "a", .store_id = 7, .category_id = 3},
           {.id = 3, .name = "b", .store_id = 7, .category_id = 4},
           {.id = 4, .name = "c", .store_id = 8, .category_id = 3}});
  Run([&] {
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    ChooseInMenu("categoryFilterButton", QStringLiteral("Food"));
    EXPECT_EQ(Text("categoryFilterButton"), "Food");
    EXPECT_EQ(Rows(), "[Unknown date]\na@Corner");
    EXPECT_EQ(MenuTexts("storeFilterButton"), "All Stores=10000|Corner=10007|Fourteen chars=10008");
  });
}

TEST_F(CouponPickerDialogTest, FindKeepsTheFilters) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7},
           {.id = 3, .name = "tea", .store_id = 7},
           {.id = 4, .name = "soap two", .store_id = 8}});
  Run([&] {
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    FindText(QStringLiteral("SOAP"));
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner");
    EXPECT_EQ(Text("storeFilterButton"), "Corner");
    FindText(QStringLiteral("zzz"), "cancelButton");
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner");
    FindText(QStringLiteral("zzz"), "clearButton");
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner\ntea@Corner");
  });
}

TEST_F(CouponPickerDialogTest, FindStartsWithTheTextInForceAndKeepsBlanks) {
  Coupons({{.id = 2, .name = "soap"}, {.id = 3, .name = "tea"}});
  Run([&] {
    FindText(QStringLiteral("soap"));
    InNextDialog([&] {
      EXPECT_EQ(Find<QComboBox>("findTextBox")->currentText(), QStringLiteral("soap"));
      Press("cancelButton");
    });
    Tool(kPickerFind);
    FindText(QStringLiteral("  "));
    EXPECT_EQ(database_.discounts().filter().text, "  ");
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap\ntea");  // no words: everything has them
  });
}

TEST_F(CouponPickerDialogTest, ClearWithoutATextStillFillsAnew) {
  Coupons({{.id = 2, .name = "soap"}});
  Run([&] {
    Coupons({{.id = 3, .name = "tea"}});
    FindText(QString(), "clearButton");
    EXPECT_EQ(Rows(), "[Unknown date]\ntea");
  });
}

TEST_F(CouponPickerDialogTest, AStoreWithoutANameHidesNoOther) {
  NameRef nameless{0, ""};  // as an import makes it
  NameRef kiosk{0, "Kiosk"};
  ASSERT_EQ(database_.ResolveNames(&nameless, nullptr, nullptr), 0);
  ASSERT_EQ(database_.ResolveNames(&kiosk, nullptr, nullptr), 0);
  ASSERT_LT(nameless.Id, kiosk.Id);
  Coupons({{.id = 2, .name = "soap", .store_id = static_cast<std::uint32_t>(nameless.Id)},
           {.id = 3, .name = "tea", .store_id = static_cast<std::uint32_t>(kiosk.Id)}});
  Run([&] {
    EXPECT_EQ(MenuTexts("storeFilterButton"), "All Stores=10000|Kiosk=15001");
    ChooseInMenu("storeFilterButton", QStringLiteral("Kiosk"));
    EXPECT_EQ(Rows(), "[Unknown date]\ntea@Kiosk");
  });
}

// As an import may have brought them.
TEST_F(CouponPickerDialogTest, OfTwoCouponsWithOneKeyTheFormShowsTheOneThatItChanges) {
  Coupons({{.id = 5, .source = 1, .name = "old", .stamp = kToday - 86400},
           {.id = 5, .source = 1, .name = "new", .stamp = kToday}});
  Run([&] {
    SelectRow(QStringLiteral("new"));
    InNextDialog([&] {
      EXPECT_EQ(Find<QLineEdit>("couponNameEdit")->text(), QStringLiteral("old"));
      Type("couponNameEdit", QStringLiteral("edited"));
      Press("okButton");
    });
    Tool(kPickerEdit);
    EXPECT_EQ(Rows().find("old"), std::string::npos);
    EXPECT_NE(Rows().find("new"), std::string::npos);
    EXPECT_NE(Rows().find("edited"), std::string::npos);
  });
}

TEST_F(CouponPickerDialogTest, AModeChangeDropsFindTextAndFilters) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7, .category_id = 3},
           {.id = 3, .name = "tea", .store_id = 8, .category_id = 4}});
  Run([&] {
    for (const char* const mode : {"Daily", "Weekly", "Monthly"}) {  // first the same mode again
      ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
      ChooseInMenu("categoryFilterButton", QStringLiteral("Food"));
      FindText(QStringLiteral("soap"));
      ChooseInMenu("viewModeButton", QLatin1String(mode));
      EXPECT_EQ(Text("storeFilterButton"), "All Stores") << mode;
      EXPECT_EQ(Text("categoryFilterButton"), "All Categories") << mode;
      EXPECT_EQ(database_.discounts().filter().store_id, 0U) << mode;
      EXPECT_EQ(database_.discounts().filter().category_id, 0U) << mode;
      EXPECT_EQ(database_.discounts().filter().text, "") << mode;
      EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner\ntea@Fourte..") << mode;
    }
  });
}

TEST_F(CouponPickerDialogTest, ADateDropsFindTextAndFilters) {
  Coupons({{.id = 2, .name = "soap", .store_id = 7}, {.id = 3, .name = "tea"}});
  Run([&] {
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    FindText(QStringLiteral("soap"));
    PickDate(QDate(2026, 11, 30));
    EXPECT_EQ(Text("periodHeadingButton"), "Nov 30, 2026");
    EXPECT_EQ(Text("storeFilterButton"), "All Stores");
    EXPECT_EQ(Rows(), "[Unknown date]\nsoap@Corner\ntea");
  });
}

TEST_F(CouponPickerDialogTest, AnEmptyListNamesWhatNarrowsIt) {
  Coupons({{.id = 2, .name = "soap", .end_date = kToday, .store_id = 7, .category_id = 3},
           {.id = 3, .name = "tea", .end_date = kToday, .store_id = 8, .category_id = 4}});
  Run([&] {
    ChooseInMenu("storeFilterButton", QStringLiteral("Corner"));
    ChooseInMenu("categoryFilterButton", QStringLiteral("R&&D"));
    EXPECT_EQ(Tree()->empty_text(),
              QStringLiteral("Nothing of this choice on this day\n"
                             "All Stores and All Categories show everything again."));
    FindText(QStringLiteral("%1 zzz"));
    EXPECT_EQ(Tree()->empty_text(),
              QStringLiteral("Nothing found for \"%1 zzz\" on this day\n"
                             "Find and Clear, All Stores and All Categories together show "
                             "everything again."));
    ChooseInMenu("storeFilterButton", QStringLiteral("All Stores"));
    ChooseInMenu("categoryFilterButton", QStringLiteral("All Categories"));
    EXPECT_EQ(Tree()->empty_text(), QStringLiteral("Nothing found for \"%1 zzz\" on this day\n"
                                                   "Find and Clear show everything again."));
    EXPECT_EQ(Find("tool2794")->accessibleName(), QStringLiteral("Find: %1 zzz"));
    ChooseInMenu("viewModeButton", QStringLiteral("Monthly"));
    EXPECT_EQ(Find("tool2794")->accessibleName(), QStringLiteral("Find"));
    PickDate(QDate(2026, 12, 5));
    EXPECT_EQ(Tree()->empty_text(),
              QStringLiteral("No coupons in this month\n"
                             "Add one with +, or choose another time above."));
  });
}

TEST_F(CouponPickerDialogTest, EditAndDeleteAreForCouponRows) {
  Coupons({{.id = 2, .name = "soap"}});
  Run([&] {
    EXPECT_EQ(Enabled(), "new find");
    SelectRow(QStringLiteral("soap"));
    EXPECT_EQ(Enabled(), "new edit delete find");
    SelectHeading(0);
    EXPECT_EQ(Enabled(), "new find");
    SelectRow(QStringLiteral("soap"));
    ChooseInMenu("viewModeButton", QStringLiteral("Weekly"));
    EXPECT_EQ(Enabled(), "new find");  // the rebuilt tree has no selection
  });
}

TEST_F(CouponPickerDialogTest, EscapeAndCancelPickNothing) {
  Coupons({{.id = 2, .name = "soap"}});
  EXPECT_NE(Run([&] {
              SelectRow(QStringLiteral("soap"));
              QTest::keyClick(Tree(), Qt::Key_Escape);
            }),
            0);
  EXPECT_NE(Run([&] {
              SelectRow(QStringLiteral("soap"));
              Press("cancelButton");
            }),
            0);
  EXPECT_EQ(picked_, AppliedDiscount());
}

TEST_F(CouponPickerDialogTest, FitsItsScreens) {
  Coupons({{.id = 2, .name = "Soap week", .stamp = kToday, .store_id = 7},
           {.id = 3, .name = "Ten percent off every pack", .type = 2, .store_id = 8},
           {.id = 4, .name = "Tea", .stamp = kToday, .end_date = kToday + 9 * kDay}});
  for (const QSize& size : test::ScreenSizes()) {
    Run([&] {
      dialog_->resize(size);
      QTest::qWait(0);
      SelectRow(QStringLiteral("Tea"));
      EXPECT_EQ(dialog_->size(), size);
      EXPECT_EQ(test::Clipped(dialog_), "") << size.width() << " x " << size.height();
      EXPECT_GE(Tree()->height(), 3 * 48);  // three rows at least
      test::SavePicture(dialog_, QStringLiteral("picker"));
    });
  }
}

// The window keeps its size meanwhile.
TEST_F(CouponPickerDialogTest, AFilterWithALongNameGoesBelowTheOther) {
  Coupons({{.id = 2, .name = "Soap week", .stamp = kToday, .store_id = 9}});
  Run([&] {
    dialog_->resize(240, 400);
    const auto below = [this] {
      for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
      const QPoint zero(0, 0);
      return Find("categoryFilterButton")->mapTo(dialog_, zero).y() -
             Find("storeFilterButton")->mapTo(dialog_, zero).y();
    };
    EXPECT_EQ(below(), 0);
    ChooseInMenu("storeFilterButton", QStringLiteral("Fifteen charact"));
    EXPECT_GE(below(), Find("storeFilterButton")->height());
    EXPECT_EQ(test::Clipped(dialog_), "");
    ChooseInMenu("storeFilterButton", QStringLiteral("All Stores"));
    EXPECT_EQ(below(), 0);
  });
}

TEST_F(CouponPickerDialogTest, TheTabOrderFollowsTheEye) {
  Coupons({{.id = 2, .name = "soap"}});
  Run([&] {
    SelectRow(QStringLiteral("soap"));
    EXPECT_EQ(test::TabOrder(dialog_),
              "recordTree tool2791 tool2792 tool2793 tool2794 selectButton cancelButton "
              "viewModeButton periodHeadingButton storeFilterButton categoryFilterButton");
  });
}

}  // namespace
}  // namespace brovanta
