// Add and Edit on the coupons tab.
#include <gmock/gmock.h>

#include <QComboBox>
#include <QToolButton>

#include "tests/support/browser_stand_in.h"
#include "tests/ui/shell/main_screen.h"
#include "ui/shell/main_commands.h"

namespace brovanta::test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

void ChooseFirst(QWidget& dialog, const char* box) {
  QTest::keyClick(dialog.findChild<QComboBox*>(QLatin1String(box)), Qt::Key_Down);
}

class MainCommandsCouponsTest : public MainScreenTest {
 protected:
  /// In the product dialog: chooses an entry of an empty slot's menu.
  void ChooseInSlot(QWidget& dialog, const char* slot, const char* entry) {
    auto* button = dialog.findChild<ColorButton*>(QString::fromLatin1(slot));
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_NE(button->menu(), nullptr);
    ChooseInMenu(*button->menu(), QString::fromLatin1(entry));
  }
  /// Opens Milk, one of whose slots is filled, and works in its dialog.
  void EditMilk(const std::function<void(QWidget& dialog)>& work) {
    AddCoupon("Soap week", 0, 0);
    ProductFields milk;
    milk.name = "Milk";
    milk.purchase_kind = 1;  // one time
    milk.start_date = kToday;
    milk.discounts[0] = {2, 0, 1};
    ASSERT_TRUE(Stored().products().Add(kProductKind, milk).has_value());
    Open();
    Select("Milk");
    InNextDialog(work);
    Tool(kToolEdit);
  }
  void ExpectClosed() {
    EXPECT_FALSE(screen().isVisible());
    EXPECT_EQ(screen().database(), nullptr);
  }
};

TEST_F(MainCommandsCouponsTest, AddMakesACouponAndResetsTheFilters) {
  AddCoupon("Old", 0, 0, "Corner");
  Open();
  ChooseTab(1);
  ChooseFilter("storeFilterButton", "Corner");
  InNextDialog([](QWidget& dialog) {
    Type(dialog, "couponNameEdit", "New");
    ChooseFirst(dialog, "typeBox");
    ChooseFirst(dialog, "valueTypeBox");
    Click(dialog, "okButton");
  });
  Tool(kToolAdd);
  EXPECT_EQ(Text("storeFilterButton"), "All Stores");
  EXPECT_THAT(StoredCoupons(), UnorderedElementsAre("Old", "New"));
}

TEST_F(MainCommandsCouponsTest, EditOpensTheCouponOfItsSource) {
  AddCoupon("First", 0, 0, "", "", 1);
  AddCoupon("Second", 0, 0, "", "", 2);
  Open();
  ChooseTab(1);
  Select("Second");
  InNextDialog([](QWidget& dialog) {
    Type(dialog, "couponNameEdit", "Changed");
    ChooseFirst(dialog, "typeBox");  // that of the stored one is none of the list's
    Click(dialog, "okButton");
  });
  Tool(kToolEdit);
  EXPECT_THAT(StoredCoupons(), UnorderedElementsAre("First", "Changed"));
}

TEST_F(MainCommandsCouponsTest, CancelledDialogsChangeNothing) {
  AddCoupon("Old", 0, 0, "Corner");
  Open();
  ChooseTab(1);
  ChooseFilter("storeFilterButton", "Corner");
  Select("Old");
  for (const int command : {kToolAdd, kToolEdit}) {
    InNextDialog([](QWidget& dialog) { Click(dialog, "cancelButton"); });
    Tool(command);
    EXPECT_EQ(Text("storeFilterButton"), "Corner");
    EXPECT_TRUE(tree().CaretInfo());
  }
  EXPECT_THAT(StoredCoupons(), ElementsAre("Old"));
}

TEST_F(MainCommandsCouponsTest, EditOfACouponThatIsGoneDoesNothing) {
  AddCoupon("Old", 0, 0);
  Open();
  ChooseTab(1);
  Select("Old");
  DiscountFilter other;
  other.text = "bread";
  ASSERT_EQ(screen().database()->discounts().Load(&other), 0);
  const auto opened_one = WatchForDialog();
  Tool(kToolEdit);
  EXPECT_FALSE(*opened_one);
  EXPECT_TRUE(tree().CaretInfo());
}

TEST_F(MainCommandsCouponsTest, FindLooksForAllWordsInTheName) {
  AddCoupon("Oat milk week", 0, 0);
  AddCoupon("Milk", 0, 0);
  Open();
  ChooseTab(1);
  InNextDialog([](QWidget& dialog) {
    QTest::keyClicks(dialog.findChild<QComboBox*>(QStringLiteral("findTextBox")),
                     QStringLiteral("MILK oat"));
    Click(dialog, "findButton");
  });
  Tool(kToolFind);
  EXPECT_THAT(Rows(), ElementsAre("[Saturday 11/21/2026]", "Oat milk week"));
}

TEST_F(MainCommandsCouponsTest, ThePageOfACouponIsOnTheGivenServer) {
  const BrowserStandIn browser;
  AddCoupon("Deal", 0, 0, "", "", 2);
  Open();
  screen().SetUpdateServer("http://update.example:80");
  ChooseTab(1);
  Select("Deal");
  InNextDialog([](QWidget& dialog) {
    Click(dialog, "viewButton");
    Click(dialog, "cancelButton");
  });
  Tool(kToolEdit);
  EXPECT_EQ(browser.addresses().join(QLatin1Char(' ')).toStdString(),
            "http://update.example:80/coupons/deal.aspx?srcId=2");
}

TEST_F(MainCommandsCouponsTest, ClosingTheProgramUnderThePickerOfASlotChangesNothing) {
  EditMilk([this](QWidget& product) {
    InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
    ChooseInSlot(product, "couponSlotButton2", "Select Coupon");
  });
  ExpectClosed();
  EXPECT_THAT(StoredCoupons(), ElementsAre("Soap week"));
}

TEST_F(MainCommandsCouponsTest, ClosingTheProgramUnderADialogOfThePickerEndsAllFour) {
  EditMilk([this](QWidget& product) {
    InNextDialog([this](QWidget& picker) {
      InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
      auto* bar_action = picker.findChild<QToolButton*>();
      ASSERT_NE(bar_action, nullptr);
      QTest::mouseClick(bar_action, Qt::LeftButton);
    });
    ChooseInSlot(product, "couponSlotButton2", "Select Coupon");
  });
  ExpectClosed();
}

TEST_F(MainCommandsCouponsTest, ClosingTheProgramUnderADiscountDialogOfASlotChangesNothing) {
  EditMilk([this](QWidget& product) {
    InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
    ChooseInSlot(product, "couponSlotButton2", "Add New Coupon");
  });
  ExpectClosed();
  EXPECT_THAT(StoredCoupons(), ElementsAre("Soap week"));
}

TEST_F(MainCommandsCouponsTest, ClosingTheProgramUnderTheReadErrorOfAFilterEndsIt) {
  EditMilk([this](QWidget& product) {
    InNextDialog([this](QWidget& picker) {
      folder_.WriteText("discount.dat", "damaged");
      auto* stores = picker.findChild<ColorButton*>(QStringLiteral("storeFilterButton"));
      ASSERT_NE(stores, nullptr);
      InNextDialog([](QWidget&) { QApplication::closeAllWindows(); });
      QTest::mouseClick(stores, Qt::LeftButton);
      ChooseInMenu(*stores->menu(), QStringLiteral("All Stores"));
    });
    ChooseInSlot(product, "couponSlotButton2", "Select Coupon");
  });
  ExpectClosed();
}

}  // namespace
}  // namespace brovanta::test
