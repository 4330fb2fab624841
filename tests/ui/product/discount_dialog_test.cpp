// Opening the discount dialog: its modes, its looks, "View on the web".
#include "ui/product/discount_dialog.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTest>

#include "tests/support/browser_stand_in.h"
#include "tests/support/form_check.h"
#include "tests/ui/product/discount_form.h"
#include "ui/base/color_button.h"
#include "ui/base/input_panel.h"
#include "ui/base/optional_date_edit.h"
#include "ui/base/theme.h"

namespace brovanta {
namespace {

using test::kDay;
using test::kToday;

/// A whole screen and what the on-screen keyboard leaves of one that lies and one that stands.
const QList<QSize> kFormSizes = {{360, 640}, {640, 180}, {240, 160}};

class DiscountDialogTest : public test::DiscountFormTest {
 protected:
  DateStamp Date(const char* name) { return Find<OptionalDateEdit>(name)->Stamp(); }
  QRect PlaceOf(const char* name) {
    const QWidget* part = Find(name);
    return {part->mapTo(dialog_, QPoint(0, 0)), part->size()};
  }
  void GiveSize(QSize size) {
    dialog_->resize(size);
    for (int i = 0; i < 8; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(dialog_->size(), size);
  }

  test::BrowserStandIn browser_;
};

TEST_F(DiscountDialogTest, ANewDiscountStartsEmpty) {
  Add([&] {
    for (const char* line : {"couponNameEdit", "valueEdit"}) {
      EXPECT_EQ(Line(line)->text(), QString()) << line;
    }
    for (const char* combo : {"productBox", "categoryBox", "storeBox"}) {
      EXPECT_EQ(Combo(combo)->currentText(), QString()) << combo;
    }
    EXPECT_EQ(Combo("typeBox")->currentIndex(), -1);
    EXPECT_EQ(Combo("valueTypeBox")->currentIndex(), -1);
    EXPECT_EQ(Date("startDateEdit"), kNoDate);
    EXPECT_EQ(Date("endDateEdit"), kNoDate);
    EXPECT_FALSE(Find("viewButton")->isVisible());
    EXPECT_FALSE(Find("applyBox")->isVisible());
  });
}

TEST_F(DiscountDialogTest, TheListsOfferTheDocumentedItems) {
  Add([&] {
    const auto items = [&](const char* name) {
      QStringList texts;
      for (int i = 0; i < Combo(name)->count(); ++i) {
        texts << Combo(name)->itemText(i) + QLatin1Char('=') + Combo(name)->itemData(i).toString();
      }
      return texts.join(QLatin1Char('|')).toStdString();
    };
    EXPECT_EQ(items("typeBox"), "Internet Code=1|Store Coupon=2|Mail In Rebate=3");
    EXPECT_EQ(items("valueTypeBox"), "Percent (%)=1|Amount ($)=2");
  });
}

TEST_F(DiscountDialogTest, StoresAndCategoriesAreSortedBehindAnEmptyEntry) {
  for (const char* name : {"Zoo", "apple", "Mango"}) {
    DiscountFields fields = Full();
    fields.store = NameRef{0, name};
    fields.category = NameRef{0, name};
    Stored(0, 0, fields);
  }
  Add([&] {
    for (const char* box : {"storeBox", "categoryBox"}) {
      ASSERT_EQ(Combo(box)->count(), 4);
      EXPECT_EQ(Combo(box)->itemText(0), QString());
      EXPECT_EQ(Combo(box)->itemData(0).toInt(), 0);
      EXPECT_EQ(Combo(box)->itemText(1), QStringLiteral("apple"));
      EXPECT_EQ(Combo(box)->itemData(1).toInt(), 5001);
      EXPECT_EQ(Combo(box)->itemText(3), QStringLiteral("Zoo"));
    }
  });
}

TEST_F(DiscountDialogTest, TheProductFieldOffersWhatTheShownDiscountsAreFor) {
  Stored(0, 0, Full());
  Stored(0, 0, Full());
  Add([&] {
    ASSERT_EQ(Combo("productBox")->count(), 2);
    EXPECT_EQ(Combo("productBox")->itemText(1), QStringLiteral("Coffee"));
    EXPECT_EQ(Combo("productBox")->currentText(), QString());
  });
}

TEST_F(DiscountDialogTest, EditingShowsTheRecord) {
  const DiscountRecord record = Stored(0, 0, Full());
  Run(&record, kEditDiscountMode, [&] {
    EXPECT_EQ(Line("couponNameEdit")->text(), QString::fromUtf8("Café week"));
    EXPECT_EQ(Line("couponNameEdit")->cursorPosition(), 0) << "of a long one the beginning";
    EXPECT_EQ(Combo("productBox")->lineEdit()->cursorPosition(), 0);
    EXPECT_EQ(Combo("typeBox")->currentText(), QStringLiteral("Mail In Rebate"));
    EXPECT_EQ(Combo("productBox")->currentText(), QStringLiteral("Coffee"));
    EXPECT_EQ(Combo("valueTypeBox")->currentText(), QStringLiteral("Amount ($)"));
    EXPECT_EQ(Line("valueEdit")->text(), QStringLiteral("1.50"));
    EXPECT_EQ(Combo("storeBox")->currentText(), QStringLiteral("Fresh"));
    EXPECT_EQ(Combo("categoryBox")->currentText(), QStringLiteral("Breakfast"));
    EXPECT_EQ(Date("startDateEdit"), kToday - kDay);
    EXPECT_EQ(Date("endDateEdit"), kToday + kDay);
    EXPECT_EQ(Find<QPlainTextEdit>("notesEdit")->toPlainText(),
              QStringLiteral("one\nper\nhousehold"));
  });
}

TEST_F(DiscountDialogTest, AValueOfZeroIsAnEmptyField) {
  DiscountFields fields = Full();
  fields.value = 0.0;
  const DiscountRecord record = Stored(0, 0, fields);
  Run(&record, kEditDiscountMode, [&] { EXPECT_EQ(Line("valueEdit")->text(), QString()); });
}

TEST_F(DiscountDialogTest, DatesBelowOneAreEmpty) {
  DiscountFields fields = Full();
  fields.start_date = 0;
  fields.end_date = -5;
  const DiscountRecord record = Stored(0, 0, fields);
  Run(&record, kEditDiscountMode, [&] {
    EXPECT_EQ(Date("startDateEdit"), kNoDate);
    EXPECT_EQ(Date("endDateEdit"), kNoDate);
  });
}

TEST_F(DiscountDialogTest, TypesThatAreNotInTheListsSelectNothing) {
  for (const std::int16_t type : {std::int16_t{0}, std::int16_t{-7}, std::int16_t{101}}) {
    DiscountFields fields = Full();
    fields.type = type;
    fields.value_type = 9;
    const DiscountRecord record = Stored(0, 0, fields);
    Run(&record, kEditDiscountMode, [&] {
      EXPECT_EQ(Combo("typeBox")->currentIndex(), -1) << type;
      EXPECT_EQ(Combo("valueTypeBox")->currentIndex(), -1);
    });
  }
}

TEST_F(DiscountDialogTest, ViewOnTheWebIsForDiscountsOfTheUpdateServer) {
  const struct {
    std::int16_t source;
    bool shown;
  } rows[] = {{0, false}, {-1, false}, {1, true}, {2, true}, {3, true}};
  for (const auto& row : rows) {
    const DiscountRecord record = Stored(7, row.source, Full());
    Run(&record, kEditDiscountMode,
        [&] { EXPECT_EQ(Find("viewButton")->isVisible(), row.shown) << row.source; });
  }
}

TEST_F(DiscountDialogTest, FromAProductTheCheckBoxTakesTheButtonsPlace) {
  const DiscountRecord record = Stored(7, 1, Full());
  for (const int mode : {kApplyDiscountMode, kAppliedDiscountMode}) {
    Run(&record, mode, [&] {
      EXPECT_FALSE(Find("viewButton")->isVisible());
      EXPECT_TRUE(Find("applyBox")->isVisible());
      EXPECT_EQ(Find<QCheckBox>("applyBox")->isChecked(), mode == kAppliedDiscountMode);
      EXPECT_EQ(Find<QCheckBox>("applyBox")->text(),
                QStringLiteral("Apply discount to current product"));
    });
  }
}

TEST_F(DiscountDialogTest, TheWebPageDependsOnTheSource) {
  const DiscountRecord coupon = Stored(7, 1, Full());
  Run(&coupon, kEditDiscountMode, [&] { Press("viewButton"); });
  const DiscountRecord deal = Stored(8, 2, Full());
  Run(&deal, kEditDiscountMode, [&] { Press("viewButton"); });
  EXPECT_EQ(browser_.addresses().join(QLatin1Char('\n')).toStdString(),
            "http://server:8427/coupons/coupon.aspx?srcId=7\n"
            "http://server:8427/coupons/deal.aspx?srcId=8");
  EXPECT_EQ(Messages(), "");
}

TEST_F(DiscountDialogTest, APageThatDoesNotOpenIsReportedAndNothingIsLost) {
  browser_.set_works(false);
  const DiscountRecord coupon = Stored(7, 1, Full());
  Run(&coupon, kEditDiscountMode, [&] {
    Type("couponNameEdit", QStringLiteral("Typed"));
    Press("viewButton");
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Typed"));
  });
  EXPECT_EQ(Messages(),
            "There was an error while opening the selected coupon in Internet Explorer.");
}

TEST_F(DiscountDialogTest, AnotherSourceHasNoPageAndFailsTheSameWay) {
  const DiscountRecord record = Stored(7, 3, Full());
  Run(&record, kEditDiscountMode, [&] { Press("viewButton"); });
  EXPECT_EQ(browser_.addresses().size(), 0);
  EXPECT_EQ(Messages(),
            "There was an error while opening the selected coupon in Internet Explorer.");
}

TEST_F(DiscountDialogTest, ASlashBehindTheServerIsNotDoubled) {
  EXPECT_EQ(DiscountPage("http://host/", 5, 2), "http://host/coupons/deal.aspx?srcId=5");
  EXPECT_EQ(DiscountPage("http://host", 5, 0), "");
}

TEST_F(DiscountDialogTest, TheNotesTabShowsTheNotes) {
  Add([&] {
    auto* bar = Find<QTabBar>("tabBar");
    EXPECT_EQ(bar->tabText(0), QStringLiteral("Coupon"));
    EXPECT_EQ(bar->tabText(1), QStringLiteral("Notes"));
    EXPECT_FALSE(Find("notesEdit")->isVisible());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    EXPECT_TRUE(Find("notesEdit")->isVisible());
    EXPECT_FALSE(Find("couponNameEdit")->isVisible());
    test::SavePicture(dialog_, QStringLiteral("discount_notes"));
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
    EXPECT_FALSE(Find("notesEdit")->isVisible());
  });
}

QList<bool> panel_calls;

TEST_F(DiscountDialogTest, TheInputPanelComesForFieldsAndListsAndGoesForDates) {
  const InputPanelHandler before = SetInputPanelHandler([](bool show) { panel_calls << show; });
  Add([&] {
    for (const char* field : {"couponNameEdit", "valueEdit", "typeBox", "valueTypeBox",
                              "productBox", "storeBox", "categoryBox"}) {
      Find("okButton")->setFocus();
      panel_calls.clear();
      Find(field)->setFocus();
      EXPECT_EQ(panel_calls, QList<bool>{true}) << field;
    }
    for (const char* field : {"startDateEdit", "endDateEdit"}) {
      Find("okButton")->setFocus();
      panel_calls.clear();
      Find(field)->setFocus();
      EXPECT_EQ(panel_calls, QList<bool>{false}) << field;
    }
  });
  SetInputPanelHandler(before);
}

TEST_F(DiscountDialogTest, LabelsAreNavy) {
  Add([&] {
    for (const int number : {1049, 1012, 1005, 1031, 1007, 1030, 1029, 1010, 1011}) {
      auto* label = qobject_cast<QLabel*>(test::Control(dialog_, number));
      ASSERT_NE(label, nullptr) << number;
      EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(0, 0, 128)) << number;
    }
  });
}

TEST_F(DiscountDialogTest, TheControlsCarryTheirNumbers) {
  Add([&] {
    for (const int number :
         {1084, 1002, 1021, 1024, 1023, 1022, 1020, 1019, 1026, 1027, 1016, 3, 1058, 1, 2}) {
      EXPECT_NE(test::Control(dialog_, number), nullptr) << number;
    }
  });
}

TEST_F(DiscountDialogTest, EscapeAndCancelEndWithoutAChange) {
  EXPECT_NE(Add([&] { QTest::keyClick(dialog_, Qt::Key_Escape); }), 0);
  EXPECT_NE(Add([&] {
              FillInTheLeast();
              Press("cancelButton");
            }),
            0);
  EXPECT_FALSE(folder_.Read("discount.dat").has_value());
}

TEST_F(DiscountDialogTest, FitsItsScreens) {
  const DiscountRecord record = Stored(7, 1, Full());
  for (const int mode : {kEditDiscountMode, kAppliedDiscountMode}) {
    for (const QSize& size : test::ScreenSizes()) {
      Run(&record, mode, [&] {
        dialog_->resize(size);
        QTest::qWait(0);
        EXPECT_EQ(test::Clipped(dialog_), "") << size.width() << " x " << size.height();
        test::SavePicture(dialog_, QStringLiteral("discount_mode_%1").arg(mode));
      });
    }
    Run(&record, mode, [&] {
      dialog_->resize(360, 640);
      QTest::qWait(0);
      const bool edit = mode == kEditDiscountMode;
      QWidget* last = Find(edit ? "viewButton" : "endDateEdit");
      // The whole form without scrolling.
      EXPECT_LE(last->mapTo(dialog_, QPoint(0, last->height())).y(),
                PlaceOf(edit ? "buttonRow" : "applyBox").top());
    });
  }
  Add([&] { test::SavePicture(dialog_, QStringLiteral("discount_new")); });
}

// OK without the tick clears a slot that the search filled, so the box must not have to be looked
// for.
TEST_F(DiscountDialogTest, TheCheckBoxIsInSightOnEveryScreenAndTab) {
  const DiscountRecord record = Stored(7, 1, Full());
  for (const QSize& size : test::ScreenSizes()) {
    Run(&record, kApplyDiscountMode, [&] {
      dialog_->resize(size);
      auto* bar = Find<QTabBar>("tabBar");
      for (const int tab : {0, 1}) {
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
        QTest::qWait(0);
        const QWidget* box = Find("applyBox");
        EXPECT_FALSE(Find("scrollArea")->isAncestorOf(box));
        EXPECT_EQ(box->visibleRegion().boundingRect(), box->rect());
        EXPECT_LE(box->mapTo(dialog_, QPoint(0, box->height())).y(), Find("buttonRow")->y());
      }
    });
  }
}

// As beside the on-screen keyboard of a screen that lies.
TEST_F(DiscountDialogTest, OnAWideLowWindowTheCheckBoxStandsBesideTheButtons) {
  const DiscountRecord record = Stored(7, 1, Full());
  Run(&record, kApplyDiscountMode, [&] {
    GiveSize({640, 180});
    auto* bar = Find<QTabBar>("tabBar");
    for (const int tab : {1, 0}) {
      QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
      EXPECT_EQ(PlaceOf("applyBox").center().y(), PlaceOf("okButton").center().y());
      EXPECT_LT(PlaceOf("applyBox").right(), PlaceOf("okButton").left());
      EXPECT_EQ(Find("applyBox")->visibleRegion().boundingRect(), Find("applyBox")->rect());
    }
    EXPECT_EQ(test::Clipped(dialog_), "");
    GiveSize({640, 360});
    EXPECT_GT(PlaceOf("okButton").top(), PlaceOf("applyBox").bottom());
  });
}

TEST_F(DiscountDialogTest, WhereThereIsNoRoomTheCheckBoxEndsTheForm) {
  const DiscountRecord record = Stored(7, 1, Full());
  const int result = Run(&record, kApplyDiscountMode, [&] {
    GiveSize({240, 160});
    EXPECT_TRUE(Find("scrollArea")->isAncestorOf(Find("applyBox")));
    EXPECT_GE(Find("okButton")->height(), 40);
    Find("endDateEdit")->setFocus();
    Find("applyBox")->setFocus();
    QTest::keyClick(Find("applyBox"), Qt::Key_Space);
    QTest::qWait(0);
    EXPECT_EQ(Find("applyBox")->visibleRegion().boundingRect(), Find("applyBox")->rect());
    EXPECT_GT(PlaceOf("applyBox").top(), PlaceOf("endDateEdit").bottom());
    GiveSize({240, 320});
    EXPECT_FALSE(Find("scrollArea")->isAncestorOf(Find("applyBox")));
    EXPECT_TRUE(Find("applyBox")->hasFocus()) << "wherever it stands";
    EXPECT_TRUE(Find<QCheckBox>("applyBox")->isChecked());
    GiveSize({240, 160});
    EXPECT_TRUE(Find("applyBox")->hasFocus());
    Press("okButton");
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(apply_chosen_);
}

TEST_F(DiscountDialogTest, WithoutAProductNoSizeShowsTheCheckBox) {
  Add([&] {
    for (const QSize& size : kFormSizes) {
      GiveSize(size);
      EXPECT_FALSE(Find("applyBox")->isVisible());
      EXPECT_GE(Find("okButton")->height(), 40);
    }
  });
}

TEST_F(DiscountDialogTest, TheTabOrderFollowsTheEye) {
  const DiscountRecord record = Stored(0, 0, Full());
  for (const QSize& size : kFormSizes) {
    Run(&record, kAppliedDiscountMode, [&] {
      GiveSize(size);
      Find("couponNameEdit")->setFocus();
      EXPECT_EQ(test::TabOrder(dialog_),
                "couponNameEdit typeBox productBox valueTypeBox valueEdit categoryBox storeBox "
                "hasDateBox dateEdit dateEdit dateEdit "  // month, day and year
                "hasDateBox dateEdit dateEdit dateEdit applyBox okButton cancelButton tabBar");
    });
  }
}

}  // namespace
}  // namespace brovanta
