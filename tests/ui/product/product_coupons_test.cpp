// The coupon row inside the product dialog: opening, making and selecting coupons.
#include <QCheckBox>
#include <QTest>

#include "tests/support/form_check.h"
#include "tests/ui/product/product_coupons_fixture.h"

namespace brovanta {
namespace {

using test::RawDiscount;

class ProductCouponsTest : public test::ProductCouponsFixture {};

TEST_F(ProductCouponsTest, ANewStoreOfTheProductAndOfItsNewCouponIsOneStore) {
  EXPECT_EQ(Add([&] {
              FillInTheLeast();
              Type("storeBox", QStringLiteral("Kiosk"));
              Type("categoryBox", QStringLiteral("Sweets"));
              InNextDialog([&] {
                FillInACoupon(QStringLiteral("Offer"));
                Type("storeBox", QStringLiteral("kiosk"));
                Type("categoryBox", QStringLiteral("Sweets"));
                Press("okButton");
              });
              ChooseInSlot(1, "Add New Coupon");
              PressOk();
            }),
            0);
  EXPECT_EQ(folder_.Read("store.lst")->size(), 8U + 68);
  EXPECT_EQ(folder_.Read("category.lst")->size(), 8U + 68);
}

TEST_F(ProductCouponsTest, APickedCouponOpensWithTheBoxTicked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 1, 2}}}, [&] {
    InNextDialog([&] {
      EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Soap week"));
      EXPECT_TRUE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(1);
  });
}

TEST_F(ProductCouponsTest, AFoundCouponOpensWithTheBoxNotTicked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 0, 102}}}, [&] {
    InNextDialog([&] {
      EXPECT_EQ(Line("couponNameEdit")->text(), QStringLiteral("Soap week"));
      EXPECT_FALSE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(1);
  });
}

TEST_F(ProductCouponsTest, TheModeChangesBetween100And101) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  for (const std::int16_t type : {std::int16_t{1}, std::int16_t{6}, std::int16_t{100},
                                  std::int16_t{101}, std::int16_t{32767}}) {
    Edit({{{5, 1, type}}}, [&] {
      InNextDialog(
          [&] { EXPECT_EQ(Find<QCheckBox>("applyBox")->isChecked(), type <= 100) << type; });
      PressSlot(1);
    });
  }
}

TEST_F(ProductCouponsTest, ClearingTheApplyChoiceEmptiesTheSlot) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  EXPECT_EQ(Edit({{{5, 1, 2}, {5, 1, 2}}},
                 [&] {
                   InNextDialog([&] {
                     QTest::keyClick(Find("applyBox"), Qt::Key_Space);
                     PressOk();
                   });
                   PressSlot(1);
                   EXPECT_EQ(Picture(1), 146);
                   EXPECT_NE(Slot(1)->menu(), nullptr);
                   EXPECT_EQ(Slot(1)->toolTip(), QStringLiteral("Coupon 1: empty"));
                   EXPECT_EQ(Picture(2), 147);
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 5/1/2 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, OkWithoutTickingClearsAFoundCoupon) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 0, 102}}}, [&] {
    InNextDialog([&] { PressOk(); });
    PressSlot(1);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, CancellingTheDiscountDialogKeepsTheLink) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  Edit({{{5, 1, 2}}}, [&] {
    InNextDialog([&] {
      QTest::keyClick(Find("applyBox"), Qt::Key_Space);
      Press("cancelButton");
    });
    PressSlot(1);
    EXPECT_EQ(Picture(1), 147);
    PressOk();
  });
  EXPECT_EQ(Links(), "5/1/2 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, AcceptingAFoundCouponGivesTheSlotItsTrueSourceAndType) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 3}});
  Edit({{{5, 0, 103}}}, [&] {
    EXPECT_EQ(Picture(1), 150);
    InNextDialog([&] {
      QTest::keyClick(Find("applyBox"), Qt::Key_Space);
      PressOk();
    });
    PressSlot(1);
    EXPECT_EQ(Picture(1), 148);
    PressOk();
  });
  EXPECT_EQ(Links(), "5/2/3 0/0/0 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ACouponThatIsGoneIsReportedAndStaysLinked) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2, .deleted = 1}});
  Edit({{{5, 1, 2}, {6, 0, 102}}}, [&] {
    Type("productNameEdit", QStringLiteral("Typed"));
    PressSlot(1);
    PressSlot(2);
    EXPECT_EQ(Picture(1), 147);
    EXPECT_EQ(Line("productNameEdit")->text(), QStringLiteral("Typed"));
    PressOk();
  });
  EXPECT_EQ(Messages(),
            "The selected coupon was not found in the database.\n"
            "The selected coupon was not found in the database.");
  EXPECT_EQ(Links(), "5/1/2 6/0/102 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, AnEmptySlotDropsItsMenuAndOpensNothing) {
  Edit({}, [&] {
    PressSlot(5);
    ASSERT_NE(Slot(5)->menu(), nullptr);
    EXPECT_TRUE(Slot(5)->menu()->isVisible());
    QTest::keyClick(Slot(5)->menu(), Qt::Key_Escape);
  });
  EXPECT_EQ(Messages(), "");
}

TEST_F(ProductCouponsTest, ANewCouponGoesIntoItsSlot) {
  EXPECT_EQ(Edit({},
                 [&] {
                   InNextDialog([&] {
                     EXPECT_FALSE(Find("applyBox")->isVisible());
                     FillInACoupon(QStringLiteral("Made here"));
                     PressOk();
                   });
                   ChooseInSlot(3, "Add New Coupon");
                   EXPECT_EQ(Picture(3), 148);
                   EXPECT_EQ(Slot(3)->menu(), nullptr);
                   EXPECT_EQ(Slot(3)->accessibleName(),
                             QStringLiteral("Coupon 3: Made here, 0% off, chosen by you"));
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 0/0/0 2/0/3 0/0/0 0/0/0");
  EXPECT_EQ(RecordsOf("discount.dat", 400).size(), 1U);
}

TEST_F(ProductCouponsTest, ACancelledNewCouponLeavesTheSlot) {
  Edit({}, [&] {
    InNextDialog([&] { Press("cancelButton"); });
    ChooseInSlot(1, "Add New Coupon");
    EXPECT_EQ(Picture(1), 146);
  });
}

TEST_F(ProductCouponsTest, ASelectedCouponGoesIntoItsSlot) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 1}});
  EXPECT_EQ(Edit({},
                 [&] {
                   InNextDialog([&] {
                     SelectRow(QStringLiteral("Soap week"));
                     Press("selectButton");
                   });
                   ChooseInSlot(5, "Select Coupon");
                   EXPECT_EQ(Picture(5), 147);
                   PressOk();
                 }),
            0);
  EXPECT_EQ(Links(), "0/0/0 0/0/0 0/0/0 0/0/0 5/2/1");
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeBelowOneIsHeldBehindTheEmptyPicture) {
  for (const std::int16_t type : {std::int16_t{0}, std::int16_t{-3}}) {
    Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = type}});
    Edit({}, [&] {
      InNextDialog([&] {
        SelectRow(QStringLiteral("Soap week"));
        Press("selectButton");
      });
      ChooseInSlot(2, "Select Coupon");
      EXPECT_EQ(Picture(2), 146) << type;
      EXPECT_NE(Slot(2)->menu(), nullptr) << type;
      PressOk();
    });
    EXPECT_EQ(Links(), "0/0/0 5/2/" + std::to_string(type) + " 0/0/0 0/0/0 0/0/0");
  }
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeAboveFiveKeepsThePictureAndOpens) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 7}});
  Edit({}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("selectButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 146);
    EXPECT_EQ(Slot(2)->menu(), nullptr);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 5/2/7 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, APickedCouponOfATypeAbove100LooksAndOpensLikeAFoundOne) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 150}});
  Edit({}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("selectButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 150);
    bool opened = false;
    InNextDialog([&] {
      opened = true;
      EXPECT_FALSE(Find<QCheckBox>("applyBox")->isChecked());
    });
    PressSlot(2);
    EXPECT_TRUE(opened);
    PressOk();
  });
  EXPECT_EQ(Links(), "0/0/0 5/2/150 0/0/0 0/0/0 0/0/0");
}

TEST_F(ProductCouponsTest, ACancelledPickerLeavesTheSlotEvenAfterWorkInIt) {
  Coupons({{.id = 5, .source = 2, .name = "Soap week", .type = 1}});
  Edit({{{5, 2, 1}}}, [&] {
    InNextDialog([&] {
      SelectRow(QStringLiteral("Soap week"));
      Press("cancelButton");
    });
    ChooseInSlot(2, "Select Coupon");
    EXPECT_EQ(Picture(2), 146);
    EXPECT_EQ(Picture(1), 147);
  });
}

TEST_F(ProductCouponsTest, AFullRowFitsItsScreens) {
  Coupons({{.id = 5, .source = 1, .name = "Soap week", .type = 2}});
  for (const QSize& size : test::ScreenSizes()) {
    Edit({{{5, 1, 1}, {5, 1, 3}, {5, 1, 5}, {5, 0, 102}, {}}}, [&] {
      dialog_->resize(size);
      QTest::qWait(0);
      Slot(1)->setFocus();
      EXPECT_EQ(test::Clipped(dialog_), "");
      test::SavePicture(dialog_, QStringLiteral("coupon_row"));
    });
  }
}

}  // namespace
}  // namespace brovanta
